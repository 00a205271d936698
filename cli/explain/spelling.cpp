#include <algorithm>
#include <cerrno>

#include "directory_listing.h"
#include "explain/remarks.h"
#include "host/host.h"
#include "suggestion.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

void remarkOnNameLike(const std::string& wanted, const std::string& directory,
                      const std::string& what, Remarks& remarks) {
  std::vector<std::string> names = namesIn(directory).value_or(std::vector<std::string>());
  std::sort(names.begin(), names.end());
  const std::string similar = nearest(wanted, names);
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
