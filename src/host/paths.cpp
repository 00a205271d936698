#include <cstddef>

#include "host/host.h"

namespace ovxid {

namespace {

// The path of a file of the node, put together by the compiler.
template <std::size_t Size>
constexpr std::array<char, nodePath.size() + 1 + Size> inNode(const char (&name)[Size]) {
  std::array<char, nodePath.size() + 1 + Size> path{};
  std::size_t end = 0;
  for (const char byte : nodePath) {
    path[end++] = byte;
  }
  path[end++] = '/';
  for (const char byte : name) {
    path[end++] = byte;
  }
  return path;
}

constexpr auto boardidPath = inNode("boardid");
constexpr auto descriptionPath = inNode("description");

// In the order of the files.
constexpr const char* paths[] = {
    boardidPath.data(),
    descriptionPath.data(),
    "/proc/cpuinfo",
    "/etc/known_ovx_ids",
};

}  // namespace

const char* pathOf(File file) { return paths[static_cast<std::size_t>(file)]; }

}  // namespace ovxid
