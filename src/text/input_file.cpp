#include "text/input_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace ovxid {

InputFile::InputFile(const char* path) : mDescriptor(open(path, O_RDONLY | O_CLOEXEC)) {}

InputFile::~InputFile() {
  if (isOpen()) {
    close(mDescriptor);
  }
}

ssize_t InputFile::read(char* buffer, std::size_t size) const {
  ssize_t count = 0;
  do {
    count = ::read(mDescriptor, buffer, size);
  } while (count < 0 && errno == EINTR);
  return count;
}

}  // namespace ovxid
