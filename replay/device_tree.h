#ifndef OVXID_REPLAY_DEVICE_TREE_H
#define OVXID_REPLAY_DEVICE_TREE_H

#include "recording/recording.h"

namespace ovxid::replay {

// Makes the directories and files of the board's device tree, if it has one. Each node lists its
// entries in the order of the recording. Throws Failure.
void makeDeviceTree(const recording::Recording& recording);

}  // namespace ovxid::replay

#endif
