#include "output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

#include "diagnostics.h"
#include "directory_entry.h"
#include "output.h"
#include "undisturbed.h"
#include "unfinished_file.h"

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

void createFile(const std::string& path, std::string_view content) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (descriptor < 0) {
    failToWrite(path, errno);
  }
  const bool written = writeAll(descriptor, content);
  const int reason = errno;
  // GCOVR_EXCL_BR_LINE: some file systems tell only now that there is no room, none of the tests'
  const bool closed = close(descriptor) == 0;
  if (!written || !closed) {                      // GCOVR_EXCL_BR_LINE: see above
    failToWrite(path, written ? errno : reason);  // GCOVR_EXCL_BR_LINE: see above
  }
}

void replaceFile(const std::string& path, std::string_view content) {
  try {
    const DirectoryEntry entry = entryBehind(path);
    requireThatMayBeReplaced(entry, path);
    const Undisturbed undisturbed;
    removeUnfinishedFiles(entry.directory.get());
    const UnfinishedFile file(entry.directory.get());
    file.write(content, modeInPlaceOf(entry));
    requireThatMessagesWereWritten();
    file.rename(entry.name);
  } catch (const std::system_error& error) {
    failToWrite(path, error.code().value());
  }
}

}  // namespace ovxid::cli
