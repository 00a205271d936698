#include "replay/mounts.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include "host/host.h"
#include "replay/failure.h"
#include "replay/files.h"
#include "replay/node.h"
#include "replay/overlay.h"
#include "replay/processes.h"

namespace ovxid::replay {

namespace {

namespace fs = std::filesystem;

constexpr const char* closedFile = "/proc/.closed";

// Files in memory have whole pages.
std::uint64_t pagesFor(std::size_t bytes) {
  const auto page = static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
  return (bytes + page - 1) / page * page;
}

void addEntry(const recording::Entry& entry, Room& room) {
  room.bytes += pagesFor(entry.value.bytes.size());
  ++room.files;
  for (const recording::Entry& each : entry.content) {
    addEntry(each, room);
  }
}

// For the board's files, a link to each entry of this machine's /proc, and one to each process that
// there can be.
Room roomInProc(const recording::Recording& recording) {
  constexpr std::uint64_t texts = 1U << 20;
  constexpr std::uint64_t files = 64;
  Room room{texts + pagesFor(recording.cpuinfo.bytes.size()) + pagesFor(recording.model.size()),
            files};
  for (const std::string& each : recording.compatible) {
    room.bytes += pagesFor(each.size());
  }
  if (recording.node) {
    addEntry(*recording.node, room);
  }
  room.files += static_cast<std::uint64_t>(
      std::distance(fs::directory_iterator("/proc"), fs::directory_iterator()));
  room.files += static_cast<std::uint64_t>(largestProcess());
  return room;
}

// For the catalogue, and for what programs write there: settings, and no more.
Room roomInEtc(const recording::Recording& recording) {
  constexpr std::uint64_t settings = 64U << 20;
  constexpr std::uint64_t files = 65536;
  return {settings + pagesFor(recording.catalogue.bytes.size()), files};
}

// Over a file that is there.
void placeOver(const std::string& path, const std::string& file) {
  require(mount(file.c_str(), path.c_str(), nullptr, MS_BIND, nullptr) == 0, path);
}

// Each text with a NUL byte behind it.
void makeProperty(const std::string& path, const std::vector<std::string>& texts) {
  std::string bytes;
  for (const std::string& each : texts) {
    bytes += each + '\0';
  }
  if (!bytes.empty()) {
    makeFile(AT_FDCWD, path, bytes);
  }
}

void makeDeviceTree(const recording::Recording& recording) {
  if (!recording.hasDeviceTree) {
    return;
  }
  const std::string root(treePath);
  makeDirectory(AT_FDCWD, root);
  if (recording.node) {
    makeNode(*recording.node, std::string(nodePath));
  }
  if (!recording.model.empty()) {
    makeProperty(root + "/model", {recording.model});
  }
  makeProperty(root + "/compatible", recording.compatible);
}

void makeCpuinfo(const recording::Content& cpuinfo) {
  if (cpuinfo.openError != ENOENT) {
    makeContent(AT_FDCWD, pathOf(File::cpuinfo), cpuinfo);
  }
}

// Where it stands, devices may be allowed.
void makeCatalogue(const recording::Content& catalogue) {
  const std::string path = pathOf(File::catalogue);
  if (catalogue.openError == 0) {
    makeContent(AT_FDCWD, path, catalogue);
  } else if (catalogue.openError != ENOENT) {
    makeFile(AT_FDCWD, path, "");
    placeOver(path, closedFile);
  }
}

std::string textOf(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

// Of the line, only the release is known.
std::string versionWith(const std::string& release) {
  utsname here{};
  require(uname(&here) == 0, "uname");
  std::string text = textOf("/proc/.kept/version");
  if (const auto begin = text.find(here.release); begin != std::string::npos) {
    text.replace(begin, std::strlen(here.release), release);
  }
  return text;
}

// Over a file of the kernel, into which nobody can write a text. Not every kernel has each.
void placeText(const std::string& name, const recording::Content& text) {
  const std::string path = "/proc/.kept/sys/kernel/" + name;
  if (fs::exists(path)) {
    makeContent(AT_FDCWD, "/proc/." + name, text);
    placeOver(path, "/proc/." + name);
  }
}

// The files in which the kernel tells what uname(2) tells.
void makeNames(const recording::Recording& recording) {
  const int error = recording.unameError;
  makeContent(AT_FDCWD, "/proc/version", {versionWith(recording.release), error, 0});
  placeText("osrelease", {recording.release + "\n", error, 0});
  placeText("arch", {recording.machine + "\n", error, 0});
}

// All that is in /etc, but no catalogue.
void keepEtc(ReplacedDirectory& etc) {
  const fs::path catalogue = pathOf(File::catalogue);
  if (keepInMemory("/etc")) {
    // It may be mounted there.
    while (umount2(catalogue.c_str(), MNT_DETACH) == 0) {
    }
    fs::remove_all(catalogue);
  } else {
    etc.keepAllBut({catalogue.filename()});
  }
}

void keepProc(ReplacedDirectory& proc) {
  // These two lead each process to its own entry.
  const std::set<std::string> own = {"self", "thread-self"};
  // The names with a dot are there if this is a board that is replayed on one.
  proc.keepAllBut({"cpuinfo", "device-tree", "self", "thread-self", "version", ".closed",
                   ".osrelease", ".arch"});
  for (const std::string& entry : own) {
    proc.keep(entry);
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

Mounts::Mounts(const recording::Recording& recording)
    : mDirectory(currentDirectory()),
      mProc("/proc", roomInProc(recording)),
      mEtc("/etc", roomInEtc(recording)) {
  // Everybody reads these files, whatever the user keeps from others.
  const mode_t hidden = umask(S_IWGRP | S_IWOTH);
  keepProc(mProc);
  keepEtc(mEtc);
  makeClosedFile(AT_FDCWD, closedFile);
  makeDeviceTree(recording);
  makeCpuinfo(recording.cpuinfo);
  makeCatalogue(recording.catalogue);
  makeNames(recording);
  umask(hidden);
  goToTheSameDirectory(mDirectory);
}

}  // namespace ovxid::replay
