#ifndef OVXID_REPLAY_UNAME_H
#define OVXID_REPLAY_UNAME_H

#include "recording/recording.h"
#include "replay/processes.h"

namespace ovxid::replay {

// Answers for uname(2) on the descriptor, until no process is left that could call it, and keeps
// the entries of the processes in /proc meanwhile.
void answerForUname(const recording::Recording& recording, Processes& processes, int listener);

}  // namespace ovxid::replay

#endif
