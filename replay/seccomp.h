#ifndef OVXID_REPLAY_SECCOMP_H
#define OVXID_REPLAY_SECCOMP_H

namespace ovxid::replay {

// From now on, each call of uname(2) by this process and its children waits until somebody answers
// it on the listening descriptor (seccomp_unotify(2)), which goes to whoever receives it from the
// other end of the socket. Throws Failure.
void loadUnameFilter(int socket);

// The listening descriptor, or -1 when the process that should send it has ended.
int receiveListener(int socket);

}  // namespace ovxid::replay

#endif
