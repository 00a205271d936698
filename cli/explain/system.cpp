#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "explain/remarks.h"
#include "platform.h"

namespace ovxid::cli {

namespace {

bool isThere(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0;
}

// What a board that is identified does not need. Every kernel has a cpuinfo in its /proc.
void remarkOnWhatIsMissing(const Evidence& evidence, Remarks& remarks) {
  if (!evidence.cpuinfo.content && evidence.cpuinfo.error == ENOENT) {
    remarks.emplace_back("/proc is not mounted: neither the device tree nor cpuinfo can be read.");
  } else if (!isThere("/proc/device-tree")) {
    remarks.emplace_back(
        "There is no /proc/device-tree: this kernel has no device tree, or a container hides it.");
  } else if (!isThere(std::string(nodePath))) {
    remarks.emplace_back("The device tree has no node /orvanix.");
  }
  if (evidence.hardwareLine && evidence.hardwareLine->find(':') == std::string::npos) {
    remarks.emplace_back(
        "The Hardware line has no colon: all but its first letter is taken for its value.");
  }
}

void remarkUnreadable(const Exhibit& exhibit, Remarks& remarks) {
  if (!exhibit.content && exhibit.error != ENOENT) {
    remarks.push_back(exhibit.path + " cannot be read: " + std::strerror(exhibit.error) + ".");
  }
}

}  // namespace

Remarks remarksOnSystem(const Evidence& evidence) {
  Remarks remarks;
  if (!evidence.decidedBy) {
    remarkOnWhatIsMissing(evidence, remarks);
  }
  for (const Exhibit* exhibit :
       {&evidence.boardid, &evidence.description, &evidence.cpuinfo, &evidence.catalogueFile}) {
    remarkUnreadable(*exhibit, remarks);
  }
  return remarks;
}

}  // namespace ovxid::cli
