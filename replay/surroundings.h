#ifndef OVXID_REPLAY_SURROUNDINGS_H
#define OVXID_REPLAY_SURROUNDINGS_H

#include <filesystem>

#include "replay/recording.h"
#include "replay/world.h"

namespace ovxid::replay {

// The files of the board in the places where programs look for them, while it lives. All else in
// these directories is that of this machine. Throws Failure.
class Surroundings {
 public:
  explicit Surroundings(const Recording& recording);

 private:
  std::filesystem::path mDirectory;
  ReplacedDirectory mProc;
  ReplacedDirectory mEtc;
};

}  // namespace ovxid::replay

#endif
