#include "replay/node.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>

#include "host/descriptor.h"
#include "replay/failure.h"
#include "replay/files.h"

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

class NodeMaker {
 public:
  explicit NodeMaker(bool newestFirst) : mNewestFirst(newestFirst) {}

  void make(int parent, const std::string& name, const recording::Entry& node) const {
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
      makeEntry(directory.get(), node.content[mNewestFirst ? count - 1 - i : i]);
    }
  }

 private:
  void makeEntry(int directory, const recording::Entry& entry) const {
    if (entry.isNode) {
      make(directory, entry.name, entry);
    } else {
      makeContent(directory, entry.name, entry.value);
    }
  }

  bool mNewestFirst;
};

}  // namespace

void makeNode(const recording::Entry& node, const std::string& path) {
  NodeMaker(listsNewestFirst(fs::path(path).parent_path())).make(AT_FDCWD, path, node);
}

}  // namespace ovxid::replay
