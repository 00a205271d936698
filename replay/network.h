#ifndef OVXID_REPLAY_NETWORK_H
#define OVXID_REPLAY_NETWORK_H

#include <string>
#include <vector>

// The network of this process and its children, which is private already.

// Makes the changes that these command lines of ip(8) ask for. Throws std::runtime_error.
void changeNetwork(const std::vector<std::string>& commands);

#endif
