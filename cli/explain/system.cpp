#include <cerrno>
#include <cstring>

#include "explain/report.h"
#include "identity/sources.h"

namespace ovxid::cli {

namespace {

// What a board that is identified does not need. Every kernel has a cpuinfo in its /proc.
void remarkOnWhatIsMissing(const Diagnosis& diagnosis, Remarks& remarks) {
  const Reading& cpuinfo = *diagnosis.readingOf(File::cpuinfo);
  const bool hasCpuinfo = cpuinfo.error != ENOENT;
  if (!hasCpuinfo && !diagnosis.hasDeviceTree) {
    remarks.emplace_back(
        "/proc has neither cpuinfo nor a device tree: it is not mounted, or shows processes only.");
  } else if (!hasCpuinfo) {
    remarks.emplace_back("There is no /proc/cpuinfo: a container hides it.");
  } else if (!diagnosis.hasDeviceTree) {
    remarks.emplace_back(
        "There is no /proc/device-tree: this kernel has no device tree, or a container hides it.");
  }
  if (diagnosis.hasDeviceTree && !diagnosis.parameters.hasNode) {
    remarks.emplace_back("The device tree has no node /orvanix.");
  }
  if (!cpuinfo.bytes.empty() && cpuinfo.bytes.find(':') == std::string::npos) {
    remarks.emplace_back(
        "The Hardware line has no colon: all but its first letter is taken for its value.");
  }
}

void remarkUnreadable(const char* from, int error, Remarks& remarks) {
  if (*from == '/' && error != 0 && error != ENOENT) {
    remarks.push_back(std::string(from) + " cannot be read: " + std::strerror(error) + ".");
  }
}

}  // namespace

Remarks remarksOnSystem(const Diagnosis& diagnosis) {
  Remarks remarks;
  if (!diagnosis.board.isIdentified()) {
    remarkOnWhatIsMissing(diagnosis, remarks);
  }
  for (const Trial& trial : diagnosis.trials) {
    for (const Reading& reading : trial.readings) {
      remarkUnreadable(reading.from, reading.error, remarks);
    }
  }
  remarkUnreadable(pathOf(File::catalogue), diagnosis.board.catalogueFile().error, remarks);
  return remarks;
}

}  // namespace ovxid::cli
