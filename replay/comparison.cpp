#include "replay/comparison.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string_view>

#include "encoding/visible.h"
#include "replay/capture.h"
#include "replay/failure.h"
#include "replay/signals.h"

namespace ovxid::replay {

namespace {

constexpr const char* program = "ovxid";

int listHere() {
  execlp(program, program, "-v", "list", nullptr);
  std::perror(program);
  return notFound;
}

// Each line behind a mark. One that nothing ends has a backslash there.
std::string marked(const std::string& mark, std::string_view lines) {
  std::string text;
  while (!lines.empty()) {
    const std::size_t end = std::min(lines.find('\n'), lines.size());
    const bool isWhole = end < lines.size();
    text += mark + visible(lines.substr(0, end)) + (isWhole ? "\n" : "\\\n");
    lines.remove_prefix(isWhole ? end + 1 : end);
  }
  return text;
}

// Every byte of it shows, so that people see what differs.
std::string textOf(const recording::Said& said) {
  return marked("out| ", said.out) + marked("err| ", said.err) + "exit " +
         std::to_string(said.status) + "\n";
}

// Where another program finds it.
std::string pathOf(const Descriptor& file) { return "/proc/self/fd/" + std::to_string(file.get()); }

std::string firstLineOf(const std::string& text) { return text.substr(0, text.find('\n')); }

}  // namespace

int compareWithBoard(const std::string& file, const recording::Said& said) {
  // For the program, SIGCHLD does again what its caller wants; here children are waited for.
  const Signals signals;
  const Descriptor there = memoryFile(textOf(said), 0);
  const Descriptor here = memoryFile(textOf(captured(listHere)), 0);
  const recording::Said difference = captured([&] {
    execlp("diff", "diff", "--text", "--unified", "--label", visible(file).c_str(), "--label",
           "here", pathOf(there).c_str(), pathOf(here).c_str(), nullptr);
    std::perror("diff");
    return notFound;
  });
  if (difference.status > 1) {
    throw Failure(file, "cannot be compared: " + firstLineOf(difference.err));
  }
  std::cout << difference.out << std::flush;
  require(std::cout.good(), "standard output");
  return difference.status;
}

}  // namespace ovxid::replay
