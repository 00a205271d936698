#ifndef OVXID_REPLAY_TRANSCRIPT_H
#define OVXID_REPLAY_TRANSCRIPT_H

#include <string>

#include "recording/recording.h"

namespace ovxid::replay {

// What a program said, for people to read and to compare: each line behind the name of its stream,
// and the exit status. Every byte of it shows.
std::string transcript(const recording::Said& said);

}  // namespace ovxid::replay

#endif
