#ifndef OVXID_TESTS_REFERENCE_WALK_H
#define OVXID_TESTS_REFERENCE_WALK_H

#include <string>

namespace reference {

struct Walk {
  int result;
  // The parameters, as an identifier lists them.
  std::string listing;
};

// Walks a directory of directories, regular files and symbolic links.
Walk walk(const std::string& directory);

}  // namespace reference

#endif
