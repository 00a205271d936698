#include "bench/child.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace {

int require(int result, const char* what) {
  if (result < 0) {
    throw std::system_error(errno, std::generic_category(), what);
  }
  return result;
}

// A file in memory that stands in for a standard stream.
class Recording {
 public:
  Recording() : mDescriptor(require(memfd_create("recording", MFD_CLOEXEC), "memfd_create")) {}
  ~Recording() { close(mDescriptor); }
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

  void replace(int descriptor) const { require(dup2(mDescriptor, descriptor), "dup2"); }

  std::string text() const {
    std::string text;
    std::array<char, 4096> part{};
    for (off_t position = 0;; position = static_cast<off_t>(text.size())) {
      const ssize_t count = pread(mDescriptor, part.data(), part.size(), position);
      if (require(static_cast<int>(count), "pread") == 0) {
        return text;
      }
      text.append(part.data(), static_cast<std::size_t>(count));
    }
  }

 private:
  int mDescriptor;
};

int shellStatus(int status) {
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

// A replaced /proc holds no entry for a new process, and leak checkers look for their own.
void appearInReplacedProc() {
  std::error_code notReplaced;
  const std::string process = std::to_string(getpid());
  std::filesystem::create_symlink(".kept/" + process, "/proc/" + process, notReplaced);
}

}  // namespace

Outcome inChild(const std::function<int()>& call) {
  const Recording out;
  const Recording err;
  std::fflush(nullptr);
  const pid_t child = require(fork(), "fork");
  if (child == 0) {
    out.replace(STDOUT_FILENO);
    err.replace(STDERR_FILENO);
    appearInReplacedProc();
    std::exit(call());
  }
  int status = 0;
  require(waitpid(child, &status, 0), "waitpid");
  return {shellStatus(status), out.text(), err.text()};
}

Outcome runProgram(const std::vector<std::string>& argv) {
  return inChild([&] {
    std::vector<std::string> arguments = argv;
    execvp(arguments[0].c_str(), pointers(arguments).data());
    std::perror(("cannot run " + argv[0]).c_str());
    return 255;
  });
}

std::vector<char*> pointers(std::vector<std::string>& arguments) {
  std::vector<char*> argv;
  argv.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) {
    argv.push_back(argument.data());
  }
  argv.push_back(nullptr);
  return argv;
}

std::string standardErrorOf(const std::function<void()>& call) {
  const Recording err;
  std::fflush(stderr);
  const int kept = require(dup(STDERR_FILENO), "dup");
  err.replace(STDERR_FILENO);
  call();
  std::fflush(stderr);
  require(dup2(kept, STDERR_FILENO), "dup2");
  close(kept);
  return err.text();
}
