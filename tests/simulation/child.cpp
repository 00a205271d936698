#include "simulation/child.h"

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

// A file in memory that takes what is written to a standard stream.
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

// While this object lives, a recording takes what is written to a standard stream.
class Redirection {
 public:
  Redirection(int descriptor, const Recording& recording)
      : mDescriptor(descriptor), mKept(require(dup(descriptor), "dup")) {
    std::fflush(nullptr);
    recording.replace(descriptor);
  }
  ~Redirection() {
    std::fflush(nullptr);
    dup2(mKept, mDescriptor);
    close(mKept);
  }
  Redirection(const Redirection&) = delete;
  Redirection& operator=(const Redirection&) = delete;

 private:
  int mDescriptor;
  int mKept;
};

int shellStatus(int status) {
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

// A leak checker looks for its own process in /proc, and a replaced /proc has no new processes.
void appearInReplacedProc() {
  const std::string process = std::to_string(getpid());
  if (std::filesystem::exists("/proc/.kept") && !std::filesystem::is_symlink("/proc/" + process)) {
    std::filesystem::create_symlink(".kept/" + process, "/proc/" + process);
  }
}

// An exception would leave this function, and the child would run the tests of its parent.
int runChild(const std::function<int()>& call, const Recording& out, const Recording& err) {
  try {
    out.replace(STDOUT_FILENO);
    err.replace(STDERR_FILENO);
    appearInReplacedProc();
    return call();
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "the child threw: %s\n", exception.what());
    return 254;
  }
}

}  // namespace

bool operator==(const Outcome& left, const Outcome& right) {
  return left.status == right.status && left.out == right.out && left.err == right.err;
}

// Brackets show where a text ends, and whether with a newline.
void PrintTo(const Outcome& outcome, std::ostream* out) {
  *out << "\n  status: " << outcome.status << "\n  out: [" << outcome.out << "]\n  err: ["
       << outcome.err << "]";
}

Outcome inChild(const std::function<int()>& call) {
  const Recording out;
  const Recording err;
  std::fflush(nullptr);
  const pid_t child = require(fork(), "fork");
  if (child == 0) {
    std::exit(runChild(call, out, err));
  }
  int status = 0;
  require(waitpid(child, &status, 0), "waitpid");
  return {shellStatus(status), out.text(), err.text()};
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
  {
    const Redirection redirection(STDERR_FILENO, err);
    call();
  }
  return err.text();
}
