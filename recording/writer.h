#ifndef OVXID_RECORDING_WRITER_H
#define OVXID_RECORDING_WRITER_H

#include <string>

#include "recording/recording.h"

namespace ovxid::recording {

// The document that has all of the recording, with a newline at its end.
std::string documentOf(const Recording& recording);

}  // namespace ovxid::recording

#endif
