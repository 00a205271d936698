#ifndef OVXID_REPLAY_UNAME_H
#define OVXID_REPLAY_UNAME_H

#include "recording/recording.h"
#include "replay/processes.h"

namespace ovxid::replay {

// Answers the calls of uname(2) on the listening descriptor, until no process is left that could
// make one, and keeps the entries of the processes in /proc meanwhile.
void superviseUname(const recording::Recording& recording, Processes& processes, int listener);

}  // namespace ovxid::replay

#endif
