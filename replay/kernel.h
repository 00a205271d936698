#ifndef OVXID_REPLAY_KERNEL_H
#define OVXID_REPLAY_KERNEL_H

#include "replay/recording.h"

namespace ovxid::replay {

// From now on, uname(2) tells this process and its children the release and the machine of the
// board. Throws Failure. A process of its own answers, until the last of them has ended.
void answerForKernel(const Recording& recording);

}  // namespace ovxid::replay

#endif
