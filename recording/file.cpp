#include "recording/file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "host/descriptor.h"
#include "recording/limits.h"
#include "recording/reader.h"

namespace ovxid::recording {

namespace {

// A part of the file that was added to the bytes: whether it was not the end.
bool readPart(int descriptor, std::string& bytes) {
  constexpr std::size_t part = 65536;
  const std::size_t before = bytes.size();
  bytes.resize(before + part);
  const ssize_t count = read(descriptor, bytes.data() + before, part);
  if (count < 0) {
    throw std::system_error(errno, std::generic_category());
  }
  bytes.resize(before + static_cast<std::size_t>(count));
  return count > 0;
}

Descriptor openFile(const std::string& path) {
  Descriptor file(path == "-" ? dup(STDIN_FILENO) : open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.get() < 0) {
    throw std::system_error(errno, std::generic_category());
  }
  return file;
}

}  // namespace

std::string bytesOfFile(const std::string& path, std::size_t mostBytes) {
  const Descriptor file = openFile(path);
  std::string bytes;
  while (readPart(file.get(), bytes)) {
    if (bytes.size() > mostBytes) {
      throw std::system_error(EFBIG, std::generic_category());
    }
  }
  return bytes;
}

std::string bytesOfDocument(const std::string& path) {
  try {
    return bytesOfFile(path, limit::document);
  } catch (const std::system_error& error) {  // GCOVR_EXCL_BR_LINE: std::bad_alloc goes on
    if (error.code().value() == EISDIR) {
      throw NotARecording("a folder: a board is one file, as 'ovxid record' writes it");
    }
    throw;
  }
}

Recording readFile(const std::string& path) { return readDocument(bytesOfDocument(path)); }

}  // namespace ovxid::recording
