#include "replay/namespaces.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

#include "replay/failure.h"
#include "text/descriptor.h"

namespace ovxid::replay {

namespace {

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
    const int error = errno;
    throw NamespaceError(error, std::generic_category(),
                         what + " (" + whatAllowsNamespaces() + ")");
  }
}

void write(const std::string& path, const std::string& text) {
  std::ofstream file(path);
  file << text << std::flush;
  requireNamespace(file.good(), "make a user namespace");
}

void enterUserNamespace(uid_t user, gid_t group) {
  const std::string userMap = std::to_string(user) + " " + std::to_string(geteuid()) + " 1";
  const std::string groupMap = std::to_string(group) + " " + std::to_string(getegid()) + " 1";
  requireNamespace(unshare(CLONE_NEWUSER) == 0, "make a user namespace");
  write("/proc/self/setgroups", "deny");
  write("/proc/self/uid_map", userMap);
  write("/proc/self/gid_map", groupMap);
}

// Keeps the mounts of this process from appearing in the rest of the system. Only a mount point can
// be made private, and in a chroot `/` is not one. So this leaves the chroot for a moment: setns(2)
// moves the process to the top of a mount namespace, even of the one in which the process is
// already.
void makeMountsPrivate() {
  const Descriptor root(open("/", O_PATH | O_DIRECTORY | O_CLOEXEC));
  require(root.get() >= 0, "the board: open /");
  // Which may be one that nobody may enter again.
  const Descriptor workingDirectory(open(".", O_PATH | O_DIRECTORY | O_CLOEXEC));
  const Descriptor mounts(open("/proc/self/ns/mnt", O_RDONLY | O_CLOEXEC));
  require(mounts.get() >= 0, "the board: open /proc/self/ns/mnt (or mount /proc)");
  require(setns(mounts.get(), CLONE_NEWNS) == 0, "the board: go to the top of the mount namespace");
  require(mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0,
          "the board: make mounts private");
  require(fchdir(root.get()) == 0 && chroot(".") == 0, "the board: go back to the root directory");
  require(fchdir(workingDirectory.get()) == 0 || chdir("/") == 0,
          "the board: go to the root directory");
}

}  // namespace

void enterMountNamespace(uid_t user, gid_t group) {
  if (unshare(CLONE_NEWNS) != 0) {
    enterUserNamespace(user, group);
    requireNamespace(unshare(CLONE_NEWNS) == 0, "make a mount namespace");
  }
  makeMountsPrivate();
}

void enterNetworkNamespace() {
  require(unshare(CLONE_NEWNET) == 0, "the board: make a network namespace");
}

}  // namespace ovxid::replay
