#include "replay/mounts.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

#include "host/host.h"
#include "replay/device_tree.h"
#include "replay/failure.h"
#include "replay/files.h"
#include "replay/processes.h"
#include "replay/tmpfs.h"

namespace ovxid::replay {

namespace {

namespace fs = std::filesystem;

constexpr const char* closedFile = "/proc/.closed";

// Files in memory have whole pages.
std::uint64_t pagesFor(std::size_t bytes) {
  const auto page = static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
  return (bytes + page - 1) / page * page;
}

void addEntry(const recording::Entry& entry, TmpfsLimits& limits) {
  limits.bytes += pagesFor(entry.value.bytes.size());
  ++limits.inodes;
  for (const recording::Entry& each : entry.content) {
    addEntry(each, limits);
  }
}

// For the board's files, a link to each entry of this machine's /proc, and one to each process that
// there can be.
TmpfsLimits limitsOfProc(const recording::Recording& recording) {
  constexpr std::uint64_t texts = 1U << 20;
  constexpr std::uint64_t files = 64;
  TmpfsLimits limits{
      texts + pagesFor(recording.cpuinfo.bytes.size()) + pagesFor(recording.model.size()), files};
  for (const std::string& each : recording.compatible) {
    limits.bytes += pagesFor(each.size());
  }
  if (recording.node) {
    addEntry(*recording.node, limits);
  }
  limits.inodes += static_cast<std::uint64_t>(
      std::distance(fs::directory_iterator("/proc"), fs::directory_iterator()));
  limits.inodes += static_cast<std::uint64_t>(largestProcess());
  return limits;
}

// For the catalogue, and for what programs write there: settings, and no more.
TmpfsLimits limitsOfEtc(const recording::Recording& recording) {
  constexpr std::uint64_t settings = 64U << 20;
  constexpr std::uint64_t files = 65536;
  return {settings + pagesFor(recording.catalogue.bytes.size()), files};
}

// Over a file that is there.
void bindMount(const std::string& path, const std::string& file) {
  require(mount(file.c_str(), path.c_str(), nullptr, MS_BIND, nullptr) == 0, path);
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
    bindMount(path, closedFile);
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
    bindMount(path, "/proc/." + name);
  }
}

// The files in which the kernel tells what uname(2) tells.
void makeNames(const recording::Recording& recording) {
  const int error = recording.unameError;
  makeContent(AT_FDCWD, "/proc/version", {versionWith(recording.release), error, 0});
  placeText("osrelease", {recording.release + "\n", error, 0});
  placeText("arch", {recording.machine + "\n", error, 0});
}

void keepProc() {
  // The names with a dot are there if this is a board that is replayed on one.
  keepAllBut("/proc", {"cpuinfo", "device-tree", "self", "thread-self", "version", ".closed",
                       ".osrelease", ".arch"});
  // These two lead each process to its own entry.
  keep("/proc", "self");
  keep("/proc", "thread-self");
}

// All that is in /etc, but no catalogue.
void keepEtc() {
  const fs::path catalogue = pathOf(File::catalogue);
  if (!mountOverlay("/etc")) {
    keepAllBut("/etc", {catalogue.filename()});
    return;
  }
  // It may be mounted there.
  while (umount2(catalogue.c_str(), MNT_DETACH) == 0) {
  }
  fs::remove_all(catalogue);
}

// Everybody reads these files, whatever the user keeps from others.
void makeFiles(const recording::Recording& recording) {
  const mode_t mask = umask(S_IWGRP | S_IWOTH);
  keepProc();
  keepEtc();
  makeClosedFile(AT_FDCWD, closedFile);
  makeDeviceTree(recording);
  makeCpuinfo(recording.cpuinfo);
  makeCatalogue(recording.catalogue);
  makeNames(recording);
  umask(mask);
}

// What a program looks for from where it stands is what others find there. It need not be allowed
// to go there again.
void enterAgain(const fs::path& directory) {
  require((!directory.empty() && chdir(directory.c_str()) == 0) || chdir("/") == 0, "/");
}

}  // namespace

void mountBoard(const recording::Recording& recording) {
  std::error_code removed;
  const fs::path workingDirectory = fs::current_path(removed);
  mountTmpfs("/proc", limitsOfProc(recording));
  mountTmpfs("/etc", limitsOfEtc(recording));
  makeFiles(recording);
  enterAgain(workingDirectory);
}

}  // namespace ovxid::replay
