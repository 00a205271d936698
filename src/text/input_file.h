#ifndef OVXID_TEXT_INPUT_FILE_H
#define OVXID_TEXT_INPUT_FILE_H

#include <sys/types.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "text/descriptor.h"

namespace ovxid {

// The bytes of a file: of one that is open for reading and is closed when it goes out of scope, or
// of one that was read before. Not a stream, because std::getline treats a lack of memory as the
// end of the file.
class InputFile {
 public:
  explicit InputFile(const char* path);
  // Bytes that were read before, and the error that ended the reading, as in errno: 0 at the end.
  // They have to be there as long as this.
  static InputFile ofBytes(std::string_view bytes, int error) { return {bytes, error}; }
  // A file that could not be opened, and why not, as in errno.
  static InputFile unopened(int error) { return InputFile(error); }

  bool isOpen() const { return mIsOpen; }
  // Why it could not be opened, or read any further, as in errno; else 0.
  int error() const { return mError; }

  // Has the first bytes that are read added to a string, which has to be there as long as this.
  void keepBeginning(std::string& beginning) { mBeginning = &beginning; }

  // How many bytes were read: 0 at the end of the file, -1 when it cannot be read.
  ssize_t read(char* buffer, std::size_t size);

 private:
  InputFile(std::string_view bytes, int error) : mIsOpen(true), mBytes(bytes), mErrorAtEnd(error) {}
  explicit InputFile(int error) : mError(error) {}

  ssize_t readFile(char* buffer, std::size_t size);
  ssize_t readBytes(char* buffer, std::size_t size);

  bool mIsOpen = false;
  int mError = 0;
  Descriptor mFile;
  std::string_view mBytes;
  int mErrorAtEnd = 0;
  std::string* mBeginning = nullptr;
};

}  // namespace ovxid

#endif
