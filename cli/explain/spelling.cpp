#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <memory>

#include "explain/remarks.h"
#include "platform.h"
#include "suggestion.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

std::vector<std::string> namesIn(const std::string& directory) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(directory.c_str()), closedir);
  while (const dirent* const entry = stream ? readdir(stream.get()) : nullptr) {
    names.emplace_back(static_cast<const char*>(entry->d_name));
  }
  std::sort(names.begin(), names.end());
  return names;
}

void remarkOnNameLike(const std::string& wanted, const std::string& directory,
                      const std::string& what, Remarks& remarks) {
  const std::string similar = nearest(wanted, namesIn(directory));
  if (!similar.empty()) {
    remarks.push_back(what + " " + shown(similar) + ", but " + shown(wanted) + " is looked for.");
  }
}

}  // namespace

Remarks remarksOnSpelling(const Evidence& evidence) {
  Remarks remarks;
  const std::string node(nodePath);
  if (!evidence.hasNode) {
    const auto slash = node.rfind('/');
    remarkOnNameLike(node.substr(slash + 1), node.substr(0, slash), "The device tree has a node",
                     remarks);
    return remarks;
  }
  for (const Exhibit* property : {&evidence.boardid, &evidence.description}) {
    if (!property->content && property->error == ENOENT) {
      remarkOnNameLike(property->path.substr(node.size() + 1), node, "The node has a property",
                       remarks);
    }
  }
  return remarks;
}

}  // namespace ovxid::cli
