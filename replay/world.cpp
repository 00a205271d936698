#include "replay/world.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace fs = std::filesystem;

namespace {

void require(bool success, const std::string& what) {
  if (!success) {
    throw std::system_error(errno, std::generic_category(), what);
  }
}

// A value of sysctl(8) with which only root may make namespaces, and one with which others may.
struct Setting {
  const char* name;
  const char* forbids;
  const char* allows;
};

constexpr Setting settings[] = {
    {"user.max_user_namespaces", "0", "10000"},
    // Debian has this one, and Ubuntu the next.
    {"kernel.unprivileged_userns_clone", "0", "1"},
    {"kernel.apparmor_restrict_unprivileged_userns", "1", "0"},
};

std::string valueOf(std::string setting) {
  std::replace(setting.begin(), setting.end(), '.', '/');
  std::string value;
  std::getline(std::ifstream("/proc/sys/" + setting), value);
  return value;
}

std::string whatAllowsNamespaces() {
  const Setting* const setting =
      std::find_if(std::begin(settings), std::end(settings),
                   [](const Setting& each) { return valueOf(each.name) == each.forbids; });
  if (setting == std::end(settings)) {
    return "root needs none; a chroot and some containers do not allow it";
  }
  return std::string("root needs none; 'sysctl ") + setting->name + "=" + setting->allows +
         "' allows it";
}

// Where a security module restrains the namespace, making it succeeds, and using it fails.
void requireNamespace(bool success, const std::string& what) {
  if (!success) {
    const int reason = errno;
    throw NamespaceRefused(reason, std::generic_category(),
                           what + " (" + whatAllowsNamespaces() + ")");
  }
}

void write(const std::string& path, const std::string& text) {
  std::ofstream file(path);
  file << text << std::flush;
  requireNamespace(file.good(), "make a user namespace");
}

void enterUserNamespace(InNamespace as) {
  const auto user = std::to_string(geteuid());
  const auto group = std::to_string(getegid());
  const bool asRoot = as == InNamespace::asRoot;
  requireNamespace(unshare(CLONE_NEWUSER) == 0, "make a user namespace");
  write("/proc/self/setgroups", "deny");
  write("/proc/self/uid_map", (asRoot ? "0" : user) + " " + user + " 1");
  write("/proc/self/gid_map", (asRoot ? "0" : group) + " " + group + " 1");
}

int openDirectory(const char* path) {
  const int descriptor = open(path, O_PATH | O_DIRECTORY | O_CLOEXEC);
  require(descriptor >= 0, std::string("open ") + path);
  return descriptor;
}

// Keeps the mounts of this process from appearing in the rest of the system. Only a mount point can
// be made private, and in a chroot `/` is not one. So this leaves the chroot for a moment: setns(2)
// moves the process to the top of a mount namespace, even of the one in which the process is
// already.
void makeMountsPrivate() {
  const int root = openDirectory("/");
  // Which may be one that nobody may enter again.
  const int workingDirectory = open(".", O_PATH | O_DIRECTORY | O_CLOEXEC);
  const int mounts = open("/proc/self/ns/mnt", O_RDONLY | O_CLOEXEC);
  require(mounts >= 0, "open /proc/self/ns/mnt (or mount /proc)");
  require(setns(mounts, CLONE_NEWNS) == 0, "go to the top of the mount namespace");
  require(mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0, "make mounts private");
  require(fchdir(root) == 0 && chroot(".") == 0, "go back to the root directory");
  if (workingDirectory < 0 || fchdir(workingDirectory) != 0) {
    require(chdir("/") == 0, "go to the root directory");
  }
  close(mounts);
  close(workingDirectory);
  close(root);
}

// Without a limit, it is half of the machine's memory.
std::string optionsFor(const std::optional<Room>& room) {
  const std::string options = "mode=755";
  return room ? options + ",size=" + std::to_string(room->bytes) +
                    ",nr_inodes=" + std::to_string(room->files)
              : options;
}

}  // namespace

void takeOwnMounts(InNamespace user) {
  static bool left = false;
  if (left) {
    return;
  }
  if (unshare(CLONE_NEWNS) != 0) {
    enterUserNamespace(user);
    requireNamespace(unshare(CLONE_NEWNS) == 0, "make a mount namespace");
  }
  makeMountsPrivate();
  left = true;
}

void enterEmptyNetwork() { require(unshare(CLONE_NEWNET) == 0, "make a network namespace"); }

ReplacedDirectory::ReplacedDirectory(std::string path, std::optional<Room> room)
    : mPath(std::move(path)) {
  takeOwnMounts();
  const int kept =
      open_tree(AT_FDCWD, mPath.c_str(), OPEN_TREE_CLONE | OPEN_TREE_CLOEXEC | AT_RECURSIVE);
  require(kept >= 0, "keep " + mPath);
  require(mount("board", mPath.c_str(), "tmpfs", MS_NODEV, optionsFor(room).c_str()) == 0,
          "mount a tmpfs over " + mPath);
  fs::create_directory(mPath + "/.kept");
  require(move_mount(kept, "", AT_FDCWD, (mPath + "/.kept").c_str(), MOVE_MOUNT_F_EMPTY_PATH) == 0,
          "keep " + mPath);
  close(kept);
}

// NOLINTNEXTLINE(bugprone-exception-escape): nobody may go on with half of the real directory
ReplacedDirectory::~ReplacedDirectory() {
  require(umount2(mPath.c_str(), MNT_DETACH) == 0, "give back " + mPath);
}

void ReplacedDirectory::keep(const std::string& entry) {
  fs::create_symlink(".kept/" + entry, mPath + "/" + entry);
}

void ReplacedDirectory::keepAllBut(const std::set<std::string>& entries) {
  for (const auto& kept : fs::directory_iterator(mPath + "/.kept")) {
    const std::string name = kept.path().filename();
    if (entries.count(name) != 0 || name == ".kept") {
      continue;
    }
    if (kept.is_symlink()) {
      // It may lead to what stands beside it.
      fs::copy_symlink(kept.path(), mPath + "/" + name);
    } else {
      keep(name);
    }
  }
}
