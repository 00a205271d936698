#include "simulation/world.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace fs = std::filesystem;

namespace {

void require(bool success, const std::string& what) {
  if (!success) {
    throw std::system_error(errno, std::generic_category(), what);
  }
}

void write(const std::string& path, const std::string& text) {
  std::ofstream file(path);
  file << text << std::flush;
  require(file.good(), "write " + path);
}

void becomeRootOfUserNamespace() {
  const auto user = std::to_string(geteuid());
  const auto group = std::to_string(getegid());
  require(unshare(CLONE_NEWUSER) == 0, "make a user namespace (or run the tests as root)");
  write("/proc/self/setgroups", "deny");
  write("/proc/self/uid_map", "0 " + user + " 1");
  write("/proc/self/gid_map", "0 " + group + " 1");
}

int openDirectory(const char* path) {
  const int descriptor = open(path, O_PATH | O_DIRECTORY | O_CLOEXEC);
  require(descriptor >= 0, std::string("open ") + path);
  return descriptor;
}

// Keeps the mounts of a test from appearing in the rest of the system. Only a mount point can be
// made private, and in a chroot `/` is not one. So this leaves the chroot for a moment: setns(2)
// moves the process to the top of a mount namespace, even of the one in which the process is
// already.
void makeMountsPrivate() {
  const int root = openDirectory("/");
  const int workingDirectory = openDirectory(".");
  const int mounts = open("/proc/self/ns/mnt", O_RDONLY | O_CLOEXEC);
  require(mounts >= 0, "open /proc/self/ns/mnt (or mount /proc)");
  require(setns(mounts, CLONE_NEWNS) == 0, "go to the top of the mount namespace");
  require(mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0, "make mounts private");
  require(fchdir(root) == 0 && chroot(".") == 0, "go back to the root directory");
  require(fchdir(workingDirectory) == 0, "go back to the working directory");
  close(mounts);
  close(workingDirectory);
  close(root);
}

void takeOwnMounts() {
  static bool left = false;
  if (left) {
    return;
  }
  if (geteuid() != 0) {
    becomeRootOfUserNamespace();
  }
  require(unshare(CLONE_NEWNS) == 0, "make a mount namespace");
  makeMountsPrivate();
  left = true;
}

using Capabilities = std::array<__user_cap_data_struct, 2>;

Capabilities capabilities() {
  __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
  Capabilities data{};
  require(syscall(SYS_capget, &header, data.data()) == 0, "read the process's capabilities");
  return data;
}

void setCapabilities(const Capabilities& data) {
  __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
  require(syscall(SYS_capset, &header, data.data()) == 0, "set the process's capabilities");
}

constexpr std::uint32_t passPermissions = 1U << CAP_DAC_OVERRIDE | 1U << CAP_DAC_READ_SEARCH;

}  // namespace

void enterEmptyNetwork() { require(unshare(CLONE_NEWNET) == 0, "make a network namespace"); }

ReplacedDirectory::ReplacedDirectory(std::string path) : mPath(std::move(path)) {
  takeOwnMounts();
  const int kept = open_tree(AT_FDCWD, mPath.c_str(), OPEN_TREE_CLONE | AT_RECURSIVE);
  require(kept >= 0, "keep " + mPath);
  require(mount("tests", mPath.c_str(), "tmpfs", 0, nullptr) == 0, "mount a tmpfs over " + mPath);
  fs::create_directory(mPath + "/.kept");
  require(move_mount(kept, "", AT_FDCWD, (mPath + "/.kept").c_str(), MOVE_MOUNT_F_EMPTY_PATH) == 0,
          "keep " + mPath);
  close(kept);
}

// NOLINTNEXTLINE(bugprone-exception-escape): the next test must not see the changes of this one
ReplacedDirectory::~ReplacedDirectory() {
  require(umount2(mPath.c_str(), MNT_DETACH) == 0, "give back " + mPath);
}

void ReplacedDirectory::keep(const std::string& entry) {
  fs::create_symlink(".kept/" + entry, mPath + "/" + entry);
}

void ReplacedDirectory::keepAllBut(const std::string& entry) {
  for (const auto& kept : fs::directory_iterator(mPath + "/.kept")) {
    const std::string name = kept.path().filename();
    if (name != entry && name != ".kept") {
      keep(name);
    }
  }
}

DroppedPrivileges::DroppedPrivileges() {
  Capabilities data = capabilities();
  data[0].effective &= ~passPermissions;
  setCapabilities(data);
}

// NOLINTNEXTLINE(bugprone-exception-escape): no test may run without these rights
DroppedPrivileges::~DroppedPrivileges() {
  Capabilities data = capabilities();
  data[0].effective |= passPermissions;
  setCapabilities(data);
}
