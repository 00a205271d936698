#include "replay/device_tree.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>

#include "host/host.h"
#include "replay/failure.h"
#include "replay/files.h"
#include "text/descriptor.h"

namespace ovxid::replay {

namespace {

namespace fs = std::filesystem;

// Whether a directory in memory lists the newest entry first, as it does on most kernels.
bool listsNewestFirst(const fs::path& directory) {
  const fs::path probe = directory / ".probe";
  fs::create_directories(probe / "first");
  fs::create_directory(probe / "second");
  const bool result = fs::directory_iterator(probe)->path().filename() == "second";
  fs::remove_all(probe);
  return result;
}

void makeNode(int parent, const std::string& name, const recording::Entry& node, bool newestFirst) {
  if (node.value.openError != 0) {
    require(mkdirat(parent, name.c_str(), 0) == 0, name);
    return;
  }
  makeDirectory(parent, name);
  const Descriptor directory(
      openat(parent, name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  require(directory.get() >= 0, name);
  const std::size_t count = node.content.size();
  for (std::size_t i = 0; i < count; ++i) {
    const recording::Entry& entry = node.content[newestFirst ? count - 1 - i : i];
    if (entry.isNode) {
      makeNode(directory.get(), entry.name, entry, newestFirst);
    } else {
      makeContent(directory.get(), entry.name, entry.value);
    }
  }
}

// Each text with a NUL byte behind it.
void makeProperty(const std::string& path, const std::vector<std::string>& texts) {
  std::string bytes;
  for (const std::string& each : texts) {
    bytes += each + '\0';
  }
  if (!bytes.empty()) {
    makeFile(AT_FDCWD, path, bytes);
  }
}

}  // namespace

void makeDeviceTree(const recording::Recording& recording) {
  if (!recording.hasDeviceTree) {
    return;
  }
  const std::string root(treePath);
  makeDirectory(AT_FDCWD, root);
  if (recording.node) {
    makeNode(AT_FDCWD, std::string(nodePath), *recording.node, listsNewestFirst(root));
  }
  if (!recording.model.empty()) {
    makeProperty(root + "/model", {recording.model});
  }
  makeProperty(root + "/compatible", recording.compatible);
}

}  // namespace ovxid::replay
