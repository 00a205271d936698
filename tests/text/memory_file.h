#ifndef OVXID_TESTS_TEXT_MEMORY_FILE_H
#define OVXID_TESTS_TEXT_MEMORY_FILE_H

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <system_error>

// A file in memory that others can open by its path for as long as this lives.
class MemoryFile {
 public:
  explicit MemoryFile(std::string_view bytes) : mDescriptor(memfd_create("tests", MFD_CLOEXEC)) {
    while (!bytes.empty()) {
      const ssize_t written = write(mDescriptor, bytes.data(), bytes.size());
      if (written < 0) {
        throw std::system_error(errno, std::generic_category(), "write a file in memory");
      }
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  ~MemoryFile() { close(mDescriptor); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::string path() const { return "/proc/self/fd/" + std::to_string(mDescriptor); }

 private:
  int mDescriptor;
};

#endif
