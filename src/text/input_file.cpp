#include "text/input_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace ovxid {

namespace {

// People are shown less.
constexpr std::size_t mostKept = 65536;

}  // namespace

InputFile::InputFile(const char* path) : mFile(open(path, O_RDONLY | O_CLOEXEC)) {
  mIsOpen = mFile.get() >= 0;
  mError = mIsOpen ? 0 : errno;
}

ssize_t InputFile::read(char* buffer, std::size_t size) {
  const ssize_t count = mFile.get() < 0 ? readBytes(buffer, size) : readFile(buffer, size);
  if (count > 0 && mBeginning != nullptr && mBeginning->size() < mostKept) {
    mBeginning->append(buffer, static_cast<std::size_t>(count));
  }
  return count;
}

ssize_t InputFile::readFile(char* buffer, std::size_t size) {
  ssize_t count = 0;
  do {
    count = ::read(mFile.get(), buffer, size);
  } while (count < 0 && errno == EINTR);
  if (count < 0) {
    mError = errno;
  }
  return count;
}

ssize_t InputFile::readBytes(char* buffer, std::size_t size) {
  const std::size_t count = mBytes.copy(buffer, size);
  mBytes.remove_prefix(count);
  if (count == 0 && mErrorAtEnd != 0) {
    mError = mErrorAtEnd;
    return -1;
  }
  return static_cast<ssize_t>(count);
}

}  // namespace ovxid
