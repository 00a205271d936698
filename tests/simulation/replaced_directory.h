#ifndef OVXID_TESTS_SIMULATION_REPLACED_DIRECTORY_H
#define OVXID_TESTS_SIMULATION_REPLACED_DIRECTORY_H

#include <sys/mount.h>

#include <string>
#include <utility>

#include "replay/failure.h"
#include "replay/namespaces.h"
#include "replay/tmpfs.h"

// While this object lives, a directory of the system holds nothing but `.kept`, and that holds what
// was in the directory before. The first object of a process gives the process its own mounts, in
// which it is root.
class ReplacedDirectory {
 public:
  explicit ReplacedDirectory(std::string path) : mPath(std::move(path)) {
    [[maybe_unused]] static const bool entered = enterMounts();
    ovxid::replay::mountTmpfs(mPath);
  }
  // NOLINTNEXTLINE(bugprone-exception-escape): nobody may go on with half of the real directory
  ~ReplacedDirectory() {
    ovxid::replay::require(umount2(mPath.c_str(), MNT_DETACH) == 0, "give back " + mPath);
  }
  ReplacedDirectory(const ReplacedDirectory&) = delete;
  ReplacedDirectory& operator=(const ReplacedDirectory&) = delete;

 private:
  static bool enterMounts() {
    ovxid::replay::enterMountNamespace(0, 0);
    return true;
  }

  std::string mPath;
};

#endif
