#ifndef OVXID_TEXT_LINES_H
#define OVXID_TEXT_LINES_H

#include <optional>
#include <string>
#include <string_view>

#include "text/input_file.h"

namespace ovxid {

// Reads a file line by line. A line ends at a newline, which is not part of it, or at the end of
// the file.
class LineReader {
 public:
  explicit LineReader(InputFile& file) : mFile(file) {}

  // The next line, which stays valid until the next call. None at the end of the file or when
  // reading fails: a line of which only the beginning can be read is dropped.
  std::optional<std::string_view> next();

 private:
  bool readMore();
  void makeRoom();

  InputFile& mFile;
  std::string mBuffer;
  // What was read into the buffer and is not handed out yet.
  std::size_t mBegin = 0;
  std::size_t mEnd = 0;
  bool mAtEnd = false;
};

struct FirstLine {
  std::string text;
  // Whether a newline ends it, and whether more than NUL bytes were read behind that.
  bool endsInNewline = false;
  bool hasMoreBehind = false;
};

// The first line of a file, or as much of it as can be read: nothing of one that is not open.
FirstLine firstLine(InputFile& file);

}  // namespace ovxid

#endif
