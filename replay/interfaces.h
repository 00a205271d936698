#ifndef OVXID_REPLAY_INTERFACES_H
#define OVXID_REPLAY_INTERFACES_H

#include <vector>

#include "replay/recording.h"

namespace ovxid::replay {

// Makes the interfaces of the board, whose addresses the kernel then lists in the recorded order. A
// tunnel is connected for as long as its descriptor, one of those returned, is open. Throws
// Failure.
std::vector<int> makeInterfaces(const Recording& recording);

}  // namespace ovxid::replay

#endif
