#include "replay/tmpfs.h"

#include <fcntl.h>
#include <mntent.h>
#include <sys/mount.h>

#include <cstdio>
#include <filesystem>
#include <utility>
#include <vector>

#include "replay/failure.h"
#include "text/descriptor.h"

namespace ovxid::replay {

namespace {

namespace fs = std::filesystem;

// A copy of what is mounted there and below, which stands nowhere yet.
Descriptor copyOfMounts(const std::string& path, const std::string& what) {
  Descriptor copy(
      open_tree(AT_FDCWD, path.c_str(), OPEN_TREE_CLONE | OPEN_TREE_CLOEXEC | AT_RECURSIVE));
  require(copy.get() >= 0, what);
  return copy;
}

void placeMounts(const Descriptor& copy, const std::string& path, const std::string& what) {
  require(move_mount(copy.get(), "", AT_FDCWD, path.c_str(), MOVE_MOUNT_F_EMPTY_PATH) == 0, what);
}

void makeReadOnly(const std::string& directory) {
  mount_attr attributes{};
  attributes.attr_set = MOUNT_ATTR_RDONLY;
  require(
      mount_setattr(AT_FDCWD, directory.c_str(), AT_RECURSIVE, &attributes, sizeof attributes) == 0,
      "make " + directory + " read-only", "that takes Linux 5.12");
}

std::vector<std::string> mountPointsBelow(const std::string& directory) {
  std::vector<std::string> points;
  std::FILE* const mounts = setmntent("/proc/self/mounts", "re");
  require(mounts != nullptr, "/proc/self/mounts");
  while (const mntent* const mount = getmntent(mounts)) {
    const std::string point = mount->mnt_dir;
    if (point.rfind(directory + "/", 0) == 0) {
      points.push_back(point);
    }
  }
  endmntent(mounts);
  return points;
}

}  // namespace

void mountTmpfs(const std::string& directory, const TmpfsLimits& limits) {
  const std::string what = "the board: keep " + directory;
  const Descriptor before = copyOfMounts(directory, what);
  const std::string options = "mode=755,size=" + std::to_string(limits.bytes) +
                              ",nr_inodes=" + std::to_string(limits.inodes);
  require(mount("board", directory.c_str(), "tmpfs", MS_NODEV, options.c_str()) == 0,
          "the board: mount a tmpfs over " + directory);
  fs::create_directory(directory + "/.kept");
  placeMounts(before, directory + "/.kept", what);
}

void keep(const std::string& directory, const std::string& entry) {
  fs::create_symlink(".kept/" + entry, directory + "/" + entry);
}

void keepAllBut(const std::string& directory, const std::set<std::string>& entries) {
  for (const auto& kept : fs::directory_iterator(directory + "/.kept")) {
    const std::string name = kept.path().filename();
    if (entries.count(name) != 0 || name == ".kept") {
      continue;
    }
    if (kept.is_symlink()) {
      // It may lead to what stands beside it.
      fs::copy_symlink(kept.path(), fs::path(directory) / name);
    } else {
      keep(directory, name);
    }
  }
}

bool mountOverlay(const std::string& directory) {
  const std::string kept = directory + "/.kept";
  const std::string written = directory + "/.written";
  const std::string work = directory + "/.work";
  makeReadOnly(kept);
  // An overlay does not show them.
  std::vector<std::pair<std::string, Descriptor>> submounts;
  for (const std::string& point : mountPointsBelow(kept)) {
    submounts.emplace_back(directory + point.substr(kept.size()), copyOfMounts(point, point));
  }
  fs::create_directory(written);
  fs::create_directory(work);
  const std::string layers = "lowerdir=" + kept + ",upperdir=" + written + ",workdir=" + work;
  if (mount("board", directory.c_str(), "overlay", 0, layers.c_str()) != 0) {
    fs::remove_all(written);
    fs::remove_all(work);
    return false;
  }
  for (const auto& [point, copy] : submounts) {
    placeMounts(copy, point, point);
  }
  return true;
}

}  // namespace ovxid::replay
