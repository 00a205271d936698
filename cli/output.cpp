#include "output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string_view>
#include <utility>

#include "diagnostics.h"

namespace ovxid::cli {

namespace {

SignalHandler inheritedHandler = SIG_DFL;

// Whether all of the text was written; errno tells why not.
bool writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

[[noreturn]] void failToWrite(const std::string& what, int reason) {
  throw Failure(exit_status::notWritten, what, std::strerror(reason));
}

void dieOfClosedPipe() {
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
}

// The file itself, where the path is a link to it: the link is to stay.
std::string fileBehind(const std::string& path) {
  char* const resolved = realpath(path.c_str(), nullptr);
  std::string file = resolved == nullptr ? path : resolved;
  std::free(resolved);
  return file;
}

// A device or a pipe would be replaced by a file that nobody reads.
void refuseSpecialFile(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
    throw Failure(exit_status::notWritten, path,
                  S_ISDIR(status.st_mode) ? std::strerror(EISDIR) : "not a regular file");
  }
}

// A file beside the one that it is to replace, removed unless it did.
class Replacement {
 public:
  explicit Replacement(const std::string& path) : mPath(path), mTemporary(path + ".XXXXXX") {
    mDescriptor = mkstemp(mTemporary.data());
  }
  ~Replacement() {
    if (mDescriptor >= 0) {
      close(mDescriptor);
      unlink(mTemporary.c_str());
    }
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  bool isWritten(std::string_view text) const {
    return mDescriptor >= 0 && writeAll(mDescriptor, text) &&
           fchmod(mDescriptor, modeOfNewFiles()) == 0 && fsync(mDescriptor) == 0;
  }

  bool isInPlace() {
    const int closed = close(std::exchange(mDescriptor, -1));
    if (closed == 0 && rename(mTemporary.c_str(), mPath.c_str()) == 0) {
      return true;
    }
    const int reason = errno;
    unlink(mTemporary.c_str());
    errno = reason;
    return false;
  }

 private:
  static mode_t modeOfNewFiles() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
  }

  std::string mPath;
  std::string mTemporary;
  int mDescriptor;
};

}  // namespace

void ignoreClosedPipes() { inheritedHandler = std::signal(SIGPIPE, SIG_IGN); }

InheritedPipeHandler::InheritedPipeHandler() { std::signal(SIGPIPE, inheritedHandler); }
InheritedPipeHandler::~InheritedPipeHandler() { std::signal(SIGPIPE, SIG_IGN); }

void print(const std::string& text) {
  if (!writeAll(STDOUT_FILENO, text)) {
    const int reason = errno;
    if (reason == EPIPE && inheritedHandler != SIG_IGN) {
      dieOfClosedPipe();
    }
    failToWrite("standard output", reason);
  }
  if (!std::cerr) {
    failToWrite("standard error", EIO);
  }
}

void replaceFile(const std::string& path, const std::string& text) {
  refuseSpecialFile(path);
  Replacement replacement(fileBehind(path));
  if (!replacement.isWritten(text) || !replacement.isInPlace()) {
    failToWrite(path, errno);
  }
}

}  // namespace ovxid::cli
