#ifndef OVXID_REPLAY_NODE_H
#define OVXID_REPLAY_NODE_H

#include <string>

#include "recording/recording.h"

namespace ovxid::replay {

// Makes a node's directory, which lists its entries in the order of the node. Throws Failure.
void makeNode(const recording::Entry& node, const std::string& path);

}  // namespace ovxid::replay

#endif
