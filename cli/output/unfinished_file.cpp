#include "output/unfinished_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <memory>

#include "encoding/ascii.h"
#include "output/output.h"

namespace ovxid::cli {

namespace {

constexpr std::string_view nameOfUnfinished = ".ovxid-unfinished-";

// No other process has the first number, nor this one twice the second.
std::string unusedName() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
  return std::string(nameOfUnfinished) + std::to_string(getpid()) + "-" + std::to_string(now);
}

bool lock(const Descriptor& file) { return flock(file.get(), LOCK_EX | LOCK_NB) == 0; }

// Whether another run, which saw the file before it was locked, takes it for one that is left.
bool isTaken(const Descriptor& file) {
  struct stat status {};
  const bool isLocked = !lock(file) && errno == EWOULDBLOCK;
  require(fstat(file.get(), &status) == 0);
  return isLocked || status.st_nlink == 0;
}

// Whoever writes a file holds a lock on it, however long that takes, and loses it with its life.
void removeIfLeft(int directory, const char* name) {
  const Descriptor file(openat(directory, name, O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  struct stat status {};
  const bool isOurs =
      fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid();
  if (isOurs && lock(file)) {
    unlinkat(directory, name, 0);
  }
}

}  // namespace

UnfinishedFile::UnfinishedFile(int directory) : mDirectory(directory) {
  do {
    make();
  } while (isTaken(mFile));
}

// Where it has taken another place, nothing has this name any more.
UnfinishedFile::~UnfinishedFile() { unlinkat(mDirectory, mName.c_str(), 0); }

// Until it is whole, it is nobody else's.
void UnfinishedFile::make() {
  mName = unusedName();
  mFile =
      Descriptor(openat(mDirectory, mName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  require(mFile.get() >= 0);
}

void UnfinishedFile::write(std::string_view content, mode_t mode) const {
  require(writeAll(mFile.get(), content));
  require(fchmod(mFile.get(), mode) == 0);
  require(fsync(mFile.get()) == 0);
}

void UnfinishedFile::rename(const std::string& name) const {
  require(renameat(mDirectory, mName.c_str(), mDirectory, name.c_str()) == 0);
}

void removeUnfinishedFiles(int directory) {
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(
      fdopendir(openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)), closedir);
  while (const dirent* const entry = stream ? readdir(stream.get()) : nullptr) {
    const std::string_view name = static_cast<const char*>(entry->d_name);
    if (beginsWith(name, nameOfUnfinished)) {
      removeIfLeft(directory, name.data());
    }
  }
}

}  // namespace ovxid::cli
