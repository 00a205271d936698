#include "replay/comparison.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include "recording/files.h"
#include "recording/session.h"
#include "replay/failure.h"

namespace ovxid::replay {

namespace {

constexpr const char* program = "ovxid";

int listHere() {
  execlp(program, program, "-v", "list", nullptr);
  std::perror(program);
  return 127;
}

// A file without a name, by the path at which another program finds it.
std::string fileOf(const std::string& text) {
  const int file = memfd_create("said", 0);
  require(
      file >= 0 && pwrite(file, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()),
      "what ovxid said");
  return "/proc/self/fd/" + std::to_string(file);
}

}  // namespace

int compareWithRecording(const Recording& recording) {
  const std::string said = recording.file(recording::file::said);
  if (!recording.has(recording::file::said)) {
    throw Failure(said, "is missing: there is nothing to compare with");
  }
  const std::string here =
      fileOf(recording::session("ovxid -v list", recording::outcomeOf(listHere)));
  const pid_t child = fork();
  require(child >= 0, "fork");
  if (child == 0) {
    execlp("diff", "diff", "--unified", "--label", said.c_str(), "--label", "here", said.c_str(),
           here.c_str(), nullptr);
    std::perror("diff");
    _exit(127);
  }
  int status = 0;
  require(waitpid(child, &status, 0) == child, "waitpid");
  if (!WIFEXITED(status) || WEXITSTATUS(status) > 1) {
    throw Failure(said, "cannot be compared");
  }
  return WEXITSTATUS(status);
}

}  // namespace ovxid::replay
