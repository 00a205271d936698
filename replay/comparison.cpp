#include "replay/comparison.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <iostream>

#include "recording/files.h"
#include "recording/session.h"
#include "replay/complaint.h"
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

// A file without a name, by the path at which another program finds it.
std::string fileOf(const std::string& text) {
  const int file = memfd_create("said", 0);
  require(
      file >= 0 && pwrite(file, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()),
      "what ovxid said");
  return "/proc/self/fd/" + std::to_string(file);
}

std::string firstLineOf(const std::string& text) { return text.substr(0, text.find('\n')); }

// A session has its escapes already, but a recording may hold anything.
std::string shownLines(const std::string& text) {
  std::string shown;
  for (const char byte : text) {
    const bool isPlain = byte == '\n' || byte == '\\';
    shown += isPlain ? std::string{byte} : recording::escaped({&byte, 1});
  }
  return shown;
}

}  // namespace

int compareWithRecording(const Recording& recording) {
  // As for the program, the end of children is given back as it was; here they are waited for.
  const Signals usual;
  const std::string said = recording.file(recording::file::said);
  if (!recording.has(recording::file::said)) {
    throw Failure(said, "is missing: there is nothing to compare with");
  }
  const std::string here =
      fileOf(recording::session("ovxid -v list", recording::outcomeOf(listHere)));
  const recording::Outcome difference = recording::outcomeOf([&] {
    execlp("diff", "diff", "--text", "--unified", "--label", recording::escaped(said).c_str(),
           "--label", "here", said.c_str(), here.c_str(), nullptr);
    std::perror("diff");
    return notFound;
  });
  if (difference.status > 1) {
    throw Failure(said, "cannot be compared: " + firstLineOf(difference.err));
  }
  std::cout << shownLines(difference.out) << std::flush;
  require(std::cout.good(), "standard output");
  return difference.status;
}

}  // namespace ovxid::replay
