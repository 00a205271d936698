#include "replay/comparison.h"

#include <sys/mman.h>
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

// A file without a name, by the path at which another program finds it.
std::string fileOf(const std::string& text) {
  const int file = memfd_create("said", 0);
  require(
      file >= 0 && pwrite(file, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()),
      "what ovxid said");
  return "/proc/self/fd/" + std::to_string(file);
}

std::string firstLineOf(const std::string& text) { return text.substr(0, text.find('\n')); }

}  // namespace

int compareWithBoard(const std::string& file, const recording::Said& said) {
  // As for the program, the end of children is given back as it was; here they are waited for.
  const Signals usual;
  const std::string there = fileOf(textOf(said));
  const std::string here = fileOf(textOf(captured(listHere)));
  const recording::Said difference = captured([&] {
    execlp("diff", "diff", "--text", "--unified", "--label", visible(file).c_str(), "--label",
           "here", there.c_str(), here.c_str(), nullptr);
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
