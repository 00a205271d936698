#include <cerrno>
#include <cstring>

#include "explain/remarks.h"

namespace ovxid::cli {

namespace {

// What a board that is identified does not need. Every kernel has a cpuinfo in its /proc.
void remarkOnWhatIsMissing(const Evidence& evidence, Remarks& remarks) {
  const bool hasCpuinfo = evidence.cpuinfo.content || evidence.cpuinfo.error != ENOENT;
  if (!hasCpuinfo && !evidence.hasDeviceTree) {
    remarks.emplace_back(
        "/proc has neither cpuinfo nor a device tree: it is not mounted, or shows processes only.");
  } else if (!hasCpuinfo) {
    remarks.emplace_back("There is no /proc/cpuinfo: a container hides it.");
  } else if (!evidence.hasDeviceTree) {
    remarks.emplace_back(
        "There is no /proc/device-tree: this kernel has no device tree, or a container hides it.");
  }
  if (evidence.hasDeviceTree && !evidence.hasNode) {
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
