#ifndef OVXID_HOST_DIRECTORY_LISTING_H
#define OVXID_HOST_DIRECTORY_LISTING_H

#include <optional>
#include <string>
#include <vector>

namespace ovxid {

// What is in a directory, without "." and "..", in the order of the kernel. None if it cannot be
// read.
std::optional<std::vector<std::string>> namesIn(const std::string& directory);

}  // namespace ovxid

#endif
