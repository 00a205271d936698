#include "replay/capture.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "replay/failure.h"

namespace ovxid::replay {

namespace {

std::string textOf(const Descriptor& file) {
  std::string text(static_cast<std::size_t>(lseek(file.get(), 0, SEEK_END)), '\0');
  require(pread(file.get(), text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()),
          "read what was written");
  return text;
}

int exitStatusOf(int status) {
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

// An exception must not reach those who called for what is captured.
[[noreturn]] void callAndExit(const std::function<int()>& call, int out, int err) noexcept {
  if (dup2(out, STDOUT_FILENO) < 0 || dup2(err, STDERR_FILENO) < 0) {
    std::abort();
  }
  _exit(call());
}

}  // namespace

Descriptor memoryFile(const std::string& text, unsigned flags) {
  Descriptor file(memfd_create("ovxid", flags));
  require(file.get() >= 0 &&
              pwrite(file.get(), text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()),
          "memfd_create");
  return file;
}

// Files take any number of bytes without a reader.
recording::Said captured(const std::function<int()>& call) {
  const Descriptor out = memoryFile("");
  const Descriptor err = memoryFile("");
  const pid_t child = fork();
  require(child >= 0, "fork");
  if (child == 0) {
    callAndExit(call, out.get(), err.get());
  }
  int status = 0;
  require(waitpid(child, &status, 0) == child, "waitpid");
  return {exitStatusOf(status), textOf(out), textOf(err)};
}

}  // namespace ovxid::replay
