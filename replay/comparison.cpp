#include "replay/comparison.h"

#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <string>

#include "encoding/visible.h"
#include "replay/capture.h"
#include "replay/failure.h"
#include "replay/signals.h"
#include "replay/transcript.h"

namespace ovxid::replay {

namespace {

constexpr const char* program = "ovxid";

int listHere() {
  execlp(program, program, "-v", "list", nullptr);
  std::perror(program);
  return notFound;
}

// Where another program finds it.
std::string pathOf(const Descriptor& file) { return "/proc/self/fd/" + std::to_string(file.get()); }

std::string firstLineOf(const std::string& text) { return text.substr(0, text.find('\n')); }

}  // namespace

int compareWithBoard(const std::string& file, const recording::Said& said) {
  // For the program, SIGCHLD does again what its caller wants; here children are waited for.
  const Signals signals;
  const Descriptor there = memoryFile(transcript(said), 0);
  const Descriptor here = memoryFile(transcript(captured(listHere)), 0);
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
