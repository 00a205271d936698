#ifndef OVXID_CLI_OUTPUT_DIRECTORY_ENTRY_H
#define OVXID_CLI_OUTPUT_DIRECTORY_ENTRY_H

#include <sys/stat.h>

#include <optional>
#include <string>

#include "text/descriptor.h"

namespace ovxid::cli {

// A name in a directory that is held open: whoever can rename what a path goes through cannot put
// another directory in its place any more.
struct DirectoryEntry {
  Descriptor directory;
  std::string name;
  // Of what has this name. None if nothing has.
  std::optional<struct stat> status;
  // How many links led here.
  int links = 0;
};

// Where a path leads: behind a link of this name, if it may be followed. Throws std::system_error.
DirectoryEntry entryBehind(const std::string& path);

}  // namespace ovxid::cli

#endif
