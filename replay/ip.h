#ifndef OVXID_REPLAY_IP_H
#define OVXID_REPLAY_IP_H

#include <string>

namespace ovxid::replay {

// Makes the changes to the network of this process that these lines ask ip(8) for. Throws
// std::runtime_error with what ip says, or Failure.
void runIp(const std::string& commands);

}  // namespace ovxid::replay

#endif
