#include "directory_listing.h"

#include <dirent.h>

#include <memory>

namespace ovxid::cli {

std::vector<std::string> namesIn(const std::string& directory) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(directory.c_str()), closedir);
  while (const dirent* const entry = stream ? readdir(stream.get()) : nullptr) {
    const std::string name = static_cast<const char*>(entry->d_name);
    if (name != "." && name != "..") {
      names.push_back(name);
    }
  }
  return names;
}

}  // namespace ovxid::cli
