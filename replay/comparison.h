#ifndef OVXID_REPLAY_COMPARISON_H
#define OVXID_REPLAY_COMPARISON_H

#include "replay/recording.h"

namespace ovxid::replay {

// Lets ovxid list the parameters here, and prints what differs from what it said on the board.
// Returns the exit status: 0 if nothing does, 1 if something does. Throws Failure.
int compareWithRecording(const Recording& recording);

}  // namespace ovxid::replay

#endif
