#ifndef OVXID_RECORDING_FILE_H
#define OVXID_RECORDING_FILE_H

#include <cstddef>
#include <string>

#include "recording/recording.h"

namespace ovxid::recording {

// All bytes of a file, or of standard input, which is "-". Throws Unreadable, also if it has more.
std::string bytesOfFile(const std::string& path, std::size_t mostBytes);

// Those of a file that should have a document.
std::string bytesOfDocument(const std::string& path);

// Reads the document that is in a file. Throws Unreadable.
Recording readFile(const std::string& path);

}  // namespace ovxid::recording

#endif
