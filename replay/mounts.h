#ifndef OVXID_REPLAY_MOUNTS_H
#define OVXID_REPLAY_MOUNTS_H

#include "recording/recording.h"

namespace ovxid::replay {

// Puts the files of the board into /proc and /etc of this process's mount namespace, in the places
// where programs look for them. All else in these directories is that of this machine. Throws
// Failure.
void mountBoard(const recording::Recording& recording);

}  // namespace ovxid::replay

#endif
