#ifndef OVXID_REPLAY_OVERLAY_H
#define OVXID_REPLAY_OVERLAY_H

#include <string>

namespace ovxid::replay {

// Nothing can be written to what a replaced directory keeps. If the kernel allows it, the directory
// then shows all of that, and takes what is written in memory; the result tells whether it does.
// Throws Failure.
bool keepInMemory(const std::string& directory);

}  // namespace ovxid::replay

#endif
