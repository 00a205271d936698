#ifndef OVXID_REPLAY_SECCOMP_H
#define OVXID_REPLAY_SECCOMP_H

namespace ovxid::replay {

// From now on, each call of uname(2) by this process and its children waits until somebody answers
// it on the descriptor that is returned. Throws Failure.
int handOverUname();

}  // namespace ovxid::replay

#endif
