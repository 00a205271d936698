#ifndef OVXID_RECORDING_DEVICE_TREE_H
#define OVXID_RECORDING_DEVICE_TREE_H

#include <string_view>

#include "recording/recording.h"

namespace ovxid::recording {

bool isDeviceTree(std::string_view bytes);

// What a compiled device tree (.dtb) tells of a board. All else is not known, which reading gives
// as the error ENODATA. Throws Unreadable.
Recording readDeviceTree(std::string_view bytes);

}  // namespace ovxid::recording

#endif
