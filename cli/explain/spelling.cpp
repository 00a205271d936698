#include <algorithm>
#include <cerrno>

#include "command_line/suggestion.h"
#include "encoding/visible.h"
#include "explain/report.h"

namespace ovxid::cli {

namespace {

void remarkOnNameLike(const std::string& wanted, std::vector<std::string> names,
                      const std::string& what, Remarks& remarks) {
  std::sort(names.begin(), names.end());
  const std::string similar = nearest(wanted, names);
  if (!similar.empty()) {
    remarks.push_back(what + " " + shown(similar) + ", but " + shown(wanted) + " is looked for.");
  }
}

// Not those of nodes below it.
std::vector<std::string> propertiesOfNode(const std::vector<Property>& properties) {
  std::vector<std::string> names;
  for (const Property& property : properties) {
    if (property.path.find('/') == std::string::npos) {
      names.push_back(property.path);
    }
  }
  return names;
}

}  // namespace

Remarks remarksOnSpelling(const Diagnosis& diagnosis) {
  Remarks remarks;
  if (!diagnosis.parameters.hasNode) {
    remarkOnNameLike(std::string(nodeName), diagnosis.nodes, "The device tree has a node", remarks);
    return remarks;
  }
  for (const File file : {File::boardid, File::description}) {
    if (diagnosis.readingOf(file)->error == ENOENT) {
      remarkOnNameLike(belowNode(pathOf(file)), propertiesOfNode(diagnosis.parameters.properties),
                       "The node has a property", remarks);
    }
  }
  return remarks;
}

}  // namespace ovxid::cli
