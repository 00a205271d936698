#include "recording/file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "recording/limits.h"
#include "recording/reader.h"
#include "text/descriptor.h"

namespace ovxid::recording {

namespace {

// Adds the bytes of a file. Returns why they cannot be read, as in errno; else 0.
int read(const std::string& path, std::size_t mostBytes, std::string& bytes) {
  constexpr std::size_t part = 65536;
  const Descriptor file(path == "-" ? dup(STDIN_FILENO) : open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.get() < 0) {
    return errno;
  }
  while (bytes.size() <= mostBytes) {
    const std::size_t before = bytes.size();
    bytes.resize(before + part);
    const ssize_t count = ::read(file.get(), bytes.data() + before, part);
    if (count < 0) {
      return errno;
    }
    bytes.resize(before + static_cast<std::size_t>(count));
    if (count == 0) {
      return 0;
    }
  }
  return EFBIG;
}

std::string bytesOf(const std::string& path, std::size_t mostBytes, const char* whyNoFolder) {
  std::string bytes;
  if (const int error = read(path, mostBytes, bytes)) {
    throw Unreadable(error == EISDIR ? whyNoFolder : std::strerror(error));
  }
  return bytes;
}

}  // namespace

std::string bytesOfFile(const std::string& path, std::size_t mostBytes) {
  return bytesOf(path, mostBytes, std::strerror(EISDIR));
}

std::string bytesOfDocument(const std::string& path) {
  return bytesOf(path, limit::document,
                 "a folder: a board is one file, as 'ovxid record' writes it");
}

Recording readFile(const std::string& path) { return readDocument(bytesOfDocument(path)); }

}  // namespace ovxid::recording
