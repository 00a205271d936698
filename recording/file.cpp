#include "recording/file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

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

class OpenFile {
 public:
  explicit OpenFile(const std::string& path)
      : mDescriptor(path == "-" ? dup(STDIN_FILENO) : open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (mDescriptor < 0) {
      throw std::system_error(errno, std::generic_category());
    }
  }
  ~OpenFile() { close(mDescriptor); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int descriptor() const { return mDescriptor; }

 private:
  int mDescriptor;
};

}  // namespace

std::string bytesOfFile(const std::string& path, std::size_t mostBytes) {
  const OpenFile file(path);
  std::string bytes;
  while (readPart(file.descriptor(), bytes)) {
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
