#ifndef OVXID_REPLAY_NAMESPACES_H
#define OVXID_REPLAY_NAMESPACES_H

#include <sys/types.h>

#include <system_error>

namespace ovxid::replay {

// The kernel makes no namespace for this process; what() tells what allows it.
class NamespaceError : public std::system_error {
 public:
  using std::system_error::system_error;
};

// Gives this process and its children their own mounts. A user other than root enters a user
// namespace for that, with these numbers. Throws NamespaceError and Failure.
void enterMountNamespace(uid_t user, gid_t group);

// From now on the only network interface is a loopback without an address. Throws Failure.
void enterNetworkNamespace();

}  // namespace ovxid::replay

#endif
