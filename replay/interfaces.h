#ifndef OVXID_REPLAY_INTERFACES_H
#define OVXID_REPLAY_INTERFACES_H

#include <vector>

#include "recording/recording.h"

namespace ovxid::replay {

// Makes the interfaces of the board, whose addresses the kernel then lists in the recorded order. A
// tunnel is connected for as long as its descriptor, one of those returned, is open. Throws
// Failure.
std::vector<int> makeInterfaces(const std::vector<recording::Interface>& entries);

}  // namespace ovxid::replay

#endif
