#include "output/directory_entry.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <climits>
#include <system_error>

#include "output/output.h"

namespace ovxid::cli {

namespace {

[[noreturn]] void fail(int reason) { throw std::system_error(reason, std::generic_category()); }

// What is opened so can be asked for, but not be read or written, whatever it is.
Descriptor held(int directory, const std::string& path, int kind) {
  return Descriptor(openat(directory, path.c_str(), kind | O_PATH | O_CLOEXEC));
}

struct stat statusOf(const Descriptor& file) {
  struct stat status {};
  require(fstat(file.get(), &status) == 0);
  return status;
}

// Behind the last slash. Where nothing is, the path is that of a directory.
std::string nameIn(const std::string& path) {
  std::string name = path.substr(path.rfind('/') + 1);
  if (name.empty() && !path.empty()) {
    name = ".";
  }
  return name;
}

DirectoryEntry entryAt(int from, const std::string& path) {
  std::string directory = path.substr(0, path.rfind('/') + 1);
  if (directory.empty()) {
    directory = ".";
  }
  DirectoryEntry entry;
  entry.directory = held(from, directory, O_DIRECTORY);
  entry.name = nameIn(path);
  require(entry.directory.get() >= 0);
  return entry;
}

// Where all may put files, but remove only their own, a link of another user may be a trap. The
// kernel follows none there, either, unless it is told to.
void requireThatMayBeFollowed(const struct stat& link, const struct stat& directory) {
  constexpr mode_t shared = S_ISVTX | S_IWOTH;
  const bool isShared = (directory.st_mode & shared) == shared;
  // GCOVR_EXCL_BR_LINE: another user than the owner of the build may not write gcc's counts
  const bool isOfOwner = link.st_uid == directory.st_uid;
  if (isShared && link.st_uid != geteuid() && !isOfOwner) {  // GCOVR_EXCL_BR_LINE
    fail(EACCES);
  }
}

std::string textOf(const Descriptor& link) {
  std::array<char, PATH_MAX> text{};
  const auto size = readlinkat(link.get(), "", text.data(), text.size());
  require(size >= 0);
  return {text.data(), static_cast<std::size_t>(size)};
}

}  // namespace

// The link itself is held, so that what is asked about it and its text belong together.
DirectoryEntry entryBehind(const std::string& path) {
  constexpr int mostLinks = 40;
  DirectoryEntry entry = entryAt(AT_FDCWD, path);
  for (int links = 0; links <= mostLinks; ++links) {
    const Descriptor file = held(entry.directory.get(), entry.name, O_NOFOLLOW);
    if (file.get() < 0 && errno == ENOENT) {
      return entry;
    }
    require(file.get() >= 0);
    entry.status = statusOf(file);
    if (!S_ISLNK(entry.status->st_mode)) {
      return entry;
    }
    requireThatMayBeFollowed(*entry.status, statusOf(entry.directory));
    entry = entryAt(entry.directory.get(), textOf(file));
    entry.links = links + 1;
  }
  fail(ELOOP);
}

}  // namespace ovxid::cli
