#ifndef OVXID_REPLAY_MOUNTS_H
#define OVXID_REPLAY_MOUNTS_H

#include <filesystem>

#include "recording/recording.h"
#include "replay/world.h"

namespace ovxid::replay {

// The files of the board in the places where programs look for them, while it lives. All else in
// these directories is that of this machine. Throws Failure.
class Mounts {
 public:
  explicit Mounts(const recording::Recording& recording);

 private:
  std::filesystem::path mDirectory;
  ReplacedDirectory mProc;
  ReplacedDirectory mEtc;
};

}  // namespace ovxid::replay

#endif
