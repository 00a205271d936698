#ifndef OVXID_REPLAY_CAPTURE_H
#define OVXID_REPLAY_CAPTURE_H

#include <sys/mman.h>

#include <functional>
#include <string>

#include "recording/recording.h"
#include "text/descriptor.h"

namespace ovxid::replay {

// A file in memory that has this text; the flags are those of memfd_create(2). Throws Failure.
Descriptor memoryFile(const std::string& text, unsigned flags = MFD_CLOEXEC);

// Runs the call in a child process; what it returns is the exit status, and of a process that a
// signal ended, 128 and the number of the signal are. No standard stream may be closed. Throws
// Failure.
recording::Said captured(const std::function<int()>& call);

}  // namespace ovxid::replay

#endif
