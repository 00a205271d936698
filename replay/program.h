#ifndef OVXID_REPLAY_PROGRAM_H
#define OVXID_REPLAY_PROGRAM_H

#include <functional>
#include <vector>

#include "recording/recording.h"
#include "replay/signals.h"

namespace ovxid::replay {

// Runs the call in a process to which, and to whose children, uname(2) tells the release and the
// machine of the board. Waits for it and ends as it does: signals that are sent to this process
// reach it, and when it stops, so does this one. The tunnels stay connected for as long as a
// process of the board is left. Throws Failure when the process cannot be made.
[[noreturn]] void runOnBoard(const recording::Recording& recording, const std::vector<int>& tunnels,
                             Signals& signals, const std::function<int()>& call);

}  // namespace ovxid::replay

#endif
