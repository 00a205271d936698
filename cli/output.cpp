#include "output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <iterator>
#include <string_view>
#include <utility>

#include "diagnostics.h"
#include "undisturbed.h"

namespace ovxid::cli {

namespace {

// Both end the process when it writes: a pipe without a reader, and a file of the largest size.
constexpr int signalsOfWriting[] = {SIGPIPE, SIGXFSZ};
SignalHandler inherited[std::size(signalsOfWriting)];

// Whether all of the text was written; errno tells why not.
bool writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count < 0) {
      return false;
    }
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

[[noreturn]] void failToWrite(const std::string& what, int reason) {
  throw Failure(exit_status::notWritten, what, std::strerror(reason));
}

// GCOVR_EXCL_START: gcc does not write its counts when a signal ends a process
void dieOfClosedPipe() {
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
}
// GCOVR_EXCL_STOP

void requireThatMessagesWereWritten() {
  if (!std::cerr) {
    failToWrite("standard error", EIO);
  }
}

// The file itself, where the path is a link to it: the link is to stay.
std::string fileBehind(const std::string& path) {
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) {
    return path;
  }
  char* const resolved = realpath(path.c_str(), nullptr);
  if (resolved == nullptr) {
    throw Failure(exit_status::notWritten, path,
                  errno == ENOENT ? "a link that leads nowhere" : std::strerror(errno));
  }
  std::string file = resolved;
  std::free(resolved);
  return file;
}

// In the directory of the file, since only there a file can be renamed into its place. It has a
// short name, as that of the file may be as long as names can be. mkostemp(3) replaces the last six
// letters.
std::string temporaryBeside(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1) + ".ovxid.XXXXXX";
}

// What open(2) would have given the file.
bool hasUsualMode(int descriptor) {
  const mode_t masked = umask(0);
  umask(masked);
  return fchmod(descriptor, 0666 & ~masked) == 0;
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
  explicit Replacement(const std::string& path)
      : mPath(path),
        mTemporary(temporaryBeside(path)),
        mDescriptor(mkostemp(mTemporary.data(), O_CLOEXEC)) {}
  ~Replacement() {
    if (mDescriptor >= 0) {
      close(mDescriptor);
      unlink(mTemporary.c_str());
    }
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  bool isWritten(std::string_view text) const {
    if (mDescriptor < 0 || !writeAll(mDescriptor, text)) {
      return false;
    }
    // No file system of the tests fails when it has taken the text.
    return hasUsualMode(mDescriptor) && fsync(mDescriptor) == 0;  // GCOVR_EXCL_BR_LINE
  }

  // What was written is on the disk already, so that closing has nothing to report.
  bool isInPlace() {
    close(std::exchange(mDescriptor, -1));
    if (rename(mTemporary.c_str(), mPath.c_str()) == 0) {
      return true;
    }
    const int reason = errno;
    unlink(mTemporary.c_str());
    errno = reason;
    return false;
  }

 private:
  std::string mPath;
  std::string mTemporary;
  int mDescriptor;
};

}  // namespace

void turnSignalsIntoErrors() {
  std::transform(std::begin(signalsOfWriting), std::end(signalsOfWriting), std::begin(inherited),
                 [](int signal) { return std::signal(signal, SIG_IGN); });
}

InheritedHandlers::InheritedHandlers() {
  for (std::size_t i = 0; i < std::size(signalsOfWriting); ++i) {
    std::signal(signalsOfWriting[i], inherited[i]);
  }
}

InheritedHandlers::~InheritedHandlers() {
  for (const int signal : signalsOfWriting) {
    std::signal(signal, SIG_IGN);
  }
}

void print(const std::string& text) {
  if (!writeAll(STDOUT_FILENO, text)) {
    const int reason = errno;
    if (reason == EPIPE && inherited[0] != SIG_IGN) {  // GCOVR_EXCL_BR_LINE: see above
      dieOfClosedPipe();                               // GCOVR_EXCL_LINE
    }
    failToWrite("standard output", reason);
  }
  requireThatMessagesWereWritten();
}

void createFile(const std::string& path, std::string_view content) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (descriptor < 0) {
    failToWrite(path, errno);
  }
  const bool written = writeAll(descriptor, content);
  const int reason = errno;
  // GCOVR_EXCL_BR_LINE: some file systems tell only now that there is no room, none of the tests'
  const bool closed = close(descriptor) == 0;
  if (!written || !closed) {                      // GCOVR_EXCL_BR_LINE: see above
    failToWrite(path, written ? errno : reason);  // GCOVR_EXCL_BR_LINE: see above
  }
}

void replaceFile(const std::string& path, const std::string& text) {
  refuseSpecialFile(path);
  const Undisturbed undisturbed;
  Replacement replacement(fileBehind(path));
  if (!replacement.isWritten(text)) {
    failToWrite(path, errno);
  }
  requireThatMessagesWereWritten();
  if (!replacement.isInPlace()) {
    failToWrite(path, errno);
  }
}

}  // namespace ovxid::cli
