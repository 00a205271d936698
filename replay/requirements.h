#ifndef OVXID_REPLAY_REQUIREMENTS_H
#define OVXID_REPLAY_REQUIREMENTS_H

#include "recording/recording.h"

namespace ovxid::replay {

// What file systems and networks ask for, and a document does not. Throws NotReplayable.
void requireReplayable(const recording::Recording& recording);

}  // namespace ovxid::replay

#endif
