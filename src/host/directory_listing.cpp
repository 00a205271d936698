#include "host/directory_listing.h"

#include <dirent.h>

#include <cerrno>
#include <memory>

namespace ovxid {

std::optional<std::vector<std::string>> namesIn(const std::string& directory) {
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(directory.c_str()), closedir);
  if (!stream) {
    return std::nullopt;
  }
  std::vector<std::string> names;
  errno = 0;
  while (const dirent* const entry = readdir(stream.get())) {
    const std::string name = static_cast<const char*>(entry->d_name);
    if (name != "." && name != "..") {
      names.push_back(name);
    }
  }
  // GCOVR_EXCL_START: no directory of the tests fails after its beginning
  if (errno != 0) {
    return std::nullopt;
  }
  // GCOVR_EXCL_STOP
  return names;
}

}  // namespace ovxid
