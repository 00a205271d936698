#include "replay/surroundings.h"

#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "recording/files.h"
#include "replay/failure.h"

namespace ovxid::replay {

namespace {

namespace fs = std::filesystem;
namespace file = recording::file;

constexpr const char* deviceTree = "/proc/device-tree";
constexpr const char* node = "/proc/device-tree/orvanix";

// A device that cannot be opened, by root neither. More may be forbidden, as it may be already.
void placeClosedFile(const std::string& path) {
  constexpr unsigned long forbidden = MS_NODEV | MS_NOSUID | MS_NOEXEC | MS_RDONLY;
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
  const fs::path root = recording.file(file::node);
  std::vector<std::string> added;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string path = entry.path().lexically_relative(root);
    if (std::find(entries.begin(), entries.end(), path) == entries.end()) {
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

// What a program looks for from where it stands is what others find there.
void goToTheSameDirectory(const fs::path& directory) {
  require(chdir(directory.c_str()) == 0, directory);
}

}  // namespace

Surroundings::Surroundings(const Recording& recording)
    : mDirectory(fs::current_path()), mProc("/proc"), mEtc("/etc") {
  // These two lead each process to its own entry.
  const std::set<std::string> own = {"self", "thread-self"};
  mProc.keepAllBut({"cpuinfo", "device-tree", "self", "thread-self"});
  for (const std::string& entry : own) {
    mProc.keep(entry);
  }
  mEtc.keepAllBut({"known_ovx_ids"});
  placeNode(recording);
  placeFile(recording, file::cpuinfo, "/proc/cpuinfo");
  placeFile(recording, file::catalogue, "/etc/known_ovx_ids");
  goToTheSameDirectory(mDirectory);
}

}  // namespace ovxid::replay
