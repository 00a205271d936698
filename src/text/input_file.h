#ifndef OVXID_TEXT_INPUT_FILE_H
#define OVXID_TEXT_INPUT_FILE_H

#include <sys/types.h>

#include <cstddef>

namespace ovxid {

// A file that is open for reading, closed when it goes out of scope. Not a stream, because
// std::getline treats a lack of memory as the end of the file.
class InputFile {
 public:
  explicit InputFile(const char* path);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  bool isOpen() const { return mDescriptor >= 0; }

  // How many bytes were read: 0 at the end of the file, -1 when it cannot be read.
  ssize_t read(char* buffer, std::size_t size) const;

 private:
  int mDescriptor;
};

}  // namespace ovxid

#endif
