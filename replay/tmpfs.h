#ifndef OVXID_REPLAY_TMPFS_H
#define OVXID_REPLAY_TMPFS_H

#include <cstdint>
#include <set>
#include <string>

namespace ovxid::replay {

// Changes to directories in the mount namespace of this process. All of these throw Failure.

// What a tmpfs takes at most. As in its options, 0 is no limit.
struct TmpfsLimits {
  std::uint64_t bytes = 0;
  std::uint64_t inodes = 0;
};

// From now on the directory holds nothing but `.kept`, and that holds what was in the directory
// before. No device can be opened there.
void mountTmpfs(const std::string& directory, const TmpfsLimits& limits = {});

// Link entries of such a directory to what is in its `.kept`.
void keep(const std::string& directory, const std::string& entry);
void keepAllBut(const std::string& directory, const std::set<std::string>& entries);

// Lets such a directory show all of its `.kept`, of which nothing can be changed, and take in
// memory what is written. False where the kernel does not allow that.
bool mountOverlay(const std::string& directory);

}  // namespace ovxid::replay

#endif
