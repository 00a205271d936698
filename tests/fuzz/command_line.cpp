// The input is the command line of the front end, a word a line, without the front end's name.

#include "reference/command_line.h"

#include <cstddef>
#include <cstdint>
#include <sstream>

#include "cli/command_line/command_line.h"
#include "cli/output/diagnostics.h"
#include "fuzz/compare.h"
#include "simulation/child.h"

using ovxid::cli::Failure;
using ovxid::cli::Invocation;
using reference::Request;

namespace {

using Words = std::vector<std::string>;
using Values = std::vector<std::pair<std::string, std::string>>;

Words wordsOf(const std::string& text) {
  Words words;
  std::istringstream lines(text);
  for (std::string word; std::getline(lines, word);) {
    // As a program receives it, a word ends at its first NUL byte.
    words.emplace_back(word.c_str());
  }
  return words;
}

Values valuesOf(const Invocation& invocation) {
  Values values;
  for (const auto& [name, value] : invocation.options) {
    values.emplace_back(name, value == nullptr ? "" : value);
  }
  return values;
}

void expectSameRequest(const Invocation& invocation, const Request& reference) {
  expectSame("whether it is refused", false, reference.isUsageError);
  expectSame<std::string>("command", invocation.command->name, reference.command);
  if (reference.command != "help") {
    expectSame("whether it is verbose", invocation.verbose, reference.verbose);
  }
  expectSame("options", valuesOf(invocation) == reference.options, true);
  const Words operands(invocation.operands, invocation.operands + invocation.operandCount);
  expectSame("operands", operands, reference.operands);
  if (reference.command == "run" || reference.command == "shell") {
    expectSame("whether the operands end in a null pointer",
               invocation.operands[invocation.operandCount] == nullptr, true);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Words words = wordsOf({data, data + size});
  const Request reference = reference::readCommandLine(words);
  words.insert(words.begin(), "ovxid");
  std::vector<char*> argv = pointers(words);
  try {
    const auto count = static_cast<int>(words.size());
    expectSameRequest(ovxid::cli::readCommandLine(count, argv.data()), reference);
  } catch (const Failure& failure) {
    expectSame("whether it is refused: " + failure.subject() + ": " + failure.what(), true,
               reference.isUsageError);
  }
  return 0;
}
