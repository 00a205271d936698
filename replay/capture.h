#ifndef OVXID_REPLAY_CAPTURE_H
#define OVXID_REPLAY_CAPTURE_H

#include <functional>

#include "recording/recording.h"

namespace ovxid::replay {

// Runs the call in a child process; what it returns is the exit status, and of a process that a
// signal ended, 128 and the number of the signal are. Throws Failure.
recording::Said captured(const std::function<int()>& call);

}  // namespace ovxid::replay

#endif
