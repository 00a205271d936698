#ifndef OVXID_REPLAY_OVERLAY_H
#define OVXID_REPLAY_OVERLAY_H

#include <string>

namespace ovxid::replay {

// Lets a replaced directory show all that it keeps, of which nothing can be changed, and take in
// memory what is written. False where the kernel does not allow that. Throws Failure.
bool keepInMemory(const std::string& directory);

}  // namespace ovxid::replay

#endif
