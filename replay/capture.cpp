#include "replay/capture.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <exception>
#include <string>

#include "replay/failure.h"

namespace ovxid::replay {

namespace {

// A file without a name, which takes any number of bytes without a reader.
class Capture {
 public:
  // Not in the place of a stream that is closed.
  Capture() {
    const int file = memfd_create("ovxid", MFD_CLOEXEC);
    require(file >= 0, "memfd_create");
    mDescriptor = fcntl(file, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(file);
    require(mDescriptor >= 0, "fcntl");
  }
  ~Capture() { close(mDescriptor); }
  Capture(const Capture&) = delete;
  Capture& operator=(const Capture&) = delete;

  void takeOver(int stream) const { require(dup2(mDescriptor, stream) >= 0, "dup2"); }

  std::string text() const {
    std::string text;
    std::array<char, 4096> part{};
    for (;;) {
      const ssize_t count =
          pread(mDescriptor, part.data(), part.size(), static_cast<off_t>(text.size()));
      require(count >= 0, "read what was written");
      if (count == 0) {
        return text;
      }
      text.append(part.data(), static_cast<std::size_t>(count));
    }
  }

 private:
  int mDescriptor = -1;
};

int exitStatusOf(int waited) {
  return WIFSIGNALED(waited) ? 128 + WTERMSIG(waited) : WEXITSTATUS(waited);
}

// An exception must not reach those who called for what is captured.
[[noreturn]] void callAndEnd(const std::function<int()>& call, const Capture& out,
                             const Capture& err) {
  try {
    out.takeOver(STDOUT_FILENO);
    err.takeOver(STDERR_FILENO);
    const int status = call();
    _exit(status);
  } catch (...) {
    std::terminate();
  }
}

}  // namespace

recording::Said captured(const std::function<int()>& call) {
  const Capture out;
  const Capture err;
  const pid_t child = fork();
  require(child >= 0, "fork");
  if (child == 0) {
    callAndEnd(call, out, err);
  }
  int waited = 0;
  require(waitpid(child, &waited, 0) == child, "waitpid");
  return {exitStatusOf(waited), out.text(), err.text()};
}

}  // namespace ovxid::replay
