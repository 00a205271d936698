#ifndef OVXID_REPLAY_COMPARISON_H
#define OVXID_REPLAY_COMPARISON_H

#include <string>

#include "recording/recording.h"

namespace ovxid::replay {

// Lets ovxid list the parameters here, and prints what differs from what it said on the board, as
// the file tells. Returns the exit status: 0 if nothing does, 1 if something does. Throws Failure.
int compareWithBoard(const std::string& file, const recording::Said& said);

}  // namespace ovxid::replay

#endif
