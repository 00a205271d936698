#include "replay/surroundings.h"

#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "recording/files.h"
#include "replay/failure.h"
#include "replay/overlay.h"

namespace ovxid::replay {

namespace {

namespace fs = std::filesystem;
namespace file = recording::file;

constexpr const char* deviceTree = "/proc/device-tree";
constexpr const char* node = "/proc/device-tree/orvanix";

void write(const std::string& path, const std::string& text) {
  require((std::ofstream(path, std::ios::binary) << text << std::flush).good(), path);
}

// A device that not even root can open. More is forbidden where the machine forbids it, too.
void placeClosedFile(const std::string& path) {
  constexpr unsigned long forbidden = MS_NODEV | MS_NOSUID | MS_NOEXEC | MS_RDONLY;
  // Which the kernel may have there already.
  std::ofstream(path).close();
  require(mount("/dev/null", path.c_str(), nullptr, MS_BIND, nullptr) == 0, "/dev/null");
  require(mount(nullptr, path.c_str(), nullptr, MS_REMOUNT | MS_BIND | forbidden, nullptr) == 0,
          "/dev/null");
}

// Root reads every directory.
void placeClosedDirectory(const Recording& recording, const std::string& name,
                          const std::string& path) {
  if (geteuid() == 0) {
    throw Failure(recording.file(name.c_str()),
                  "may not be read on the board, but root reads it: replay it as another user");
  }
  fs::create_directories(path);
  fs::permissions(path, fs::perms::none);
}

void placeFile(const Recording& recording, const std::string& name, const std::string& path) {
  if (recording.isUnreadable(name)) {
    placeClosedFile(path);
    return;
  }
  if (!recording.has(name.c_str())) {
    return;
  }
  if (fs::is_directory(recording.file(name.c_str()))) {
    fs::create_directories(path);
    return;
  }
  std::ifstream from(recording.file(name.c_str()), std::ios::binary);
  std::ofstream to(path, std::ios::binary);
  if (from.peek() != std::ifstream::traits_type::eof()) {
    to << from.rdbuf();
  }
  require(from.is_open() && !from.bad() && to.flush().good(), recording.file(name.c_str()));
}

void placeEntry(const Recording& recording, const std::string& path) {
  const std::string name = std::string(file::node) + "/" + path;
  const std::string place = std::string(node) + "/" + path;
  const bool isDirectory = fs::is_directory(recording.file(name.c_str()));
  if (isDirectory && recording.isUnreadable(name)) {
    placeClosedDirectory(recording, name, place);
  } else {
    placeFile(recording, name, place);
  }
}

// All that is recorded of the node: what a person has added is behind what the kernel listed.
std::vector<std::string> entriesOf(const Recording& recording) {
  std::vector<std::string> entries = recording.order;
  const std::set<std::string> listed(entries.begin(), entries.end());
  const fs::path root = recording.file(file::node);
  std::vector<std::string> added;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string path = entry.path().lexically_relative(root);
    if (listed.count(path) == 0) {
      added.push_back(path);
    }
  }
  std::sort(added.begin(), added.end());
  entries.insert(entries.end(), added.begin(), added.end());
  return entries;
}

// Whether a directory in memory lists the newest entry first, as it does on most kernels.
bool listsNewestFirst() {
  const fs::path probe = "/proc/.probe";
  fs::create_directories(probe / "first");
  fs::create_directory(probe / "second");
  const bool result = fs::directory_iterator(probe)->path().filename() == "second";
  fs::remove_all(probe);
  return result;
}

void placeNode(const Recording& recording) {
  if (!fs::is_directory(recording.file(file::node))) {
    if (recording.has(file::node) || recording.isUnreadable(file::node)) {
      fs::create_directory(deviceTree);
      placeFile(recording, file::node, node);
    }
    return;
  }
  fs::create_directories(node);
  std::vector<std::string> entries = entriesOf(recording);
  if (listsNewestFirst()) {
    std::reverse(entries.begin(), entries.end());
  }
  for (const std::string& entry : entries) {
    fs::create_directories((fs::path(node) / entry).parent_path());
    placeEntry(recording, entry);
  }
}

// Over a file of the kernel, into which nobody can write a text.
void placeOver(const fs::path& path, const std::string& text) {
  const std::string file = "/proc/." + path.filename().string();
  write(file, text);
  require(mount(file.c_str(), path.c_str(), nullptr, MS_BIND, nullptr) == 0, path);
}

std::string textOf(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

// Of the line, only the release is known.
void placeVersion(const std::string& release) {
  utsname here{};
  require(uname(&here) == 0, "uname");
  std::string text = textOf("/proc/.kept/version");
  if (const auto begin = text.find(here.release); begin != std::string::npos) {
    text.replace(begin, std::strlen(here.release), release);
  }
  write("/proc/version", text);
}

// The files in which the kernel tells what uname(2) tells. Not every kernel has the last one.
void placeNames(const Recording& recording) {
  const std::string release = "/proc/.kept/sys/kernel/osrelease";
  const std::string machine = "/proc/.kept/sys/kernel/arch";
  if (!recording.hasUname) {
    placeClosedFile("/proc/version");
    placeClosedFile(release);
  } else {
    placeVersion(*recording.release);
    placeOver(release, *recording.release + "\n");
  }
  if (fs::exists(machine)) {
    recording.hasUname ? placeOver(machine, *recording.machine + "\n") : placeClosedFile(machine);
  }
}

// All that is in /etc, but no catalogue.
void placeEtc(ReplacedDirectory& etc) {
  if (keepInMemory("/etc")) {
    // It may be mounted there.
    while (umount2("/etc/known_ovx_ids", MNT_DETACH) == 0) {
    }
    fs::remove_all("/etc/known_ovx_ids");
  } else {
    etc.keepAllBut({"known_ovx_ids"});
  }
}

// What a program looks for from where it stands is what others find there. It need not be allowed
// to go there again.
void goToTheSameDirectory(const fs::path& directory) {
  if (!directory.empty() && chdir(directory.c_str()) != 0) {
    require(chdir("/") == 0, "/");
  }
}

fs::path currentDirectory() {
  std::error_code error;
  return fs::current_path(error);
}

}  // namespace

Surroundings::Surroundings(const Recording& recording)
    : mDirectory(currentDirectory()), mProc("/proc"), mEtc("/etc") {
  // Everybody reads these files, whatever the user keeps from others.
  const mode_t hidden = umask(S_IWGRP | S_IWOTH);
  // These two lead each process to its own entry.
  const std::set<std::string> own = {"self", "thread-self"};
  mProc.keepAllBut({"cpuinfo", "device-tree", "self", "thread-self", "version"});
  for (const std::string& entry : own) {
    mProc.keep(entry);
  }
  placeEtc(mEtc);
  placeNode(recording);
  placeFile(recording, file::cpuinfo, "/proc/cpuinfo");
  placeFile(recording, file::catalogue, "/etc/known_ovx_ids");
  placeNames(recording);
  umask(hidden);
  goToTheSameDirectory(mDirectory);
}

}  // namespace ovxid::replay
