#ifndef OVXID_REPLAY_INTERFACES_H
#define OVXID_REPLAY_INTERFACES_H

#include "replay/recording.h"

namespace ovxid::replay {

// Makes the interfaces of the board, whose addresses the kernel then lists in the recorded order.
// Throws Failure.
void makeInterfaces(const Recording& recording);

}  // namespace ovxid::replay

#endif
