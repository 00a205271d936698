#ifndef OVXID_CLI_RECORD_NODE_H
#define OVXID_CLI_RECORD_NODE_H

#include "recording/recording.h"
#include "text/input_file.h"

namespace ovxid::cli {

// The platform's node, and what the root of the device tree tells people. Throws Failure for what a
// recording cannot hold.
void recordTree(recording::Recording& recording);

// The bytes of a file, or why they cannot be read. Throws Failure if it has more. Its path, and
// what people call it, are for that.
recording::Content contentOf(InputFile& file, const std::string& path, const std::string& what,
                             std::size_t mostBytes);

}  // namespace ovxid::cli

#endif
