#include "output/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

#include "output/delayed_signals.h"
#include "output/diagnostics.h"
#include "output/directory_entry.h"
#include "output/output.h"
#include "output/unfinished_file.h"

namespace ovxid::cli {

namespace {

// A device or a pipe would be replaced by a file that nobody reads.
void requireThatMayBeReplaced(const DirectoryEntry& entry, const std::string& path) {
  if (!entry.status && entry.links > 0) {
    throw Failure(exit_status::notWritten, path, "a link that leads to no file");
  }
  if (entry.status && !S_ISREG(entry.status->st_mode)) {
    throw Failure(exit_status::notWritten, path,
                  S_ISDIR(entry.status->st_mode) ? std::strerror(EISDIR) : "not a regular file");
  }
}

// What open(2) would have given a new file, but nobody gets a right that the old file denied.
mode_t modeInPlaceOf(const DirectoryEntry& entry) {
  const mode_t masked = umask(0);
  umask(masked);
  return 0666 & ~masked & (entry.status ? entry.status->st_mode : 0666);
}

}  // namespace

void replaceFile(const std::string& path, std::string_view content, mode_t mode) {
  try {
    const DirectoryEntry entry = entryBehind(path);
    requireThatMayBeReplaced(entry, path);
    const DelayedSignals delayed;
    removeUnfinishedFiles(entry.directory.get());
    const UnfinishedFile file(entry.directory.get());
    file.write(content, mode & modeInPlaceOf(entry));
    requireThatMessagesWereWritten();
    file.rename(entry.name);
  } catch (const std::system_error& error) {
    failToWrite(path, error.code().value());
  }
}

}  // namespace ovxid::cli
