#ifndef OVXID_RECORDING_READER_H
#define OVXID_RECORDING_READER_H

#include <stdexcept>
#include <string>
#include <string_view>

#include "recording/recording.h"

namespace ovxid::recording {

// Why a file cannot be read, or is no recording. The message names the place in it, and has nothing
// that a terminal would obey.
class Unreadable : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Reads a document, which may come from anybody. Throws Unreadable.
Recording readDocument(std::string_view document);

}  // namespace ovxid::recording

#endif
