#include <sys/stat.h>

#include <cerrno>

#include "explain/remarks.h"

namespace ovxid::cli {

namespace {

bool isThere(const char* path) {
  struct stat status {};
  return stat(path, &status) == 0;
}

void remarkUnreadable(const Exhibit& exhibit, Remarks& remarks) {
  if (!exhibit.content && exhibit.error != ENOENT && exhibit.error != ENOTDIR) {
    remarks.push_back(exhibit.path + " is there, but cannot be read by this user or at all.");
  }
}

// What a board that is identified does not need.
void remarkOnWhatIsMissing(Remarks& remarks) {
  // The kernel's first process is in every proc file system.
  if (!isThere("/proc/1")) {
    remarks.emplace_back("/proc is not mounted: neither the device tree nor cpuinfo can be read.");
  } else if (!isThere("/proc/device-tree")) {
    remarks.emplace_back(
        "There is no /proc/device-tree: this kernel has no device tree, or a container hides it.");
  } else if (!isThere("/proc/device-tree/orvanix")) {
    remarks.emplace_back("The device tree has no node /orvanix.");
  }
}

}  // namespace

Remarks remarksOnSystem(const Evidence& evidence) {
  Remarks remarks;
  if (!evidence.decidedBy) {
    remarkOnWhatIsMissing(remarks);
  }
  for (const Exhibit* exhibit :
       {&evidence.boardid, &evidence.description, &evidence.cpuinfo, &evidence.catalogueFile}) {
    remarkUnreadable(*exhibit, remarks);
  }
  return remarks;
}

}  // namespace ovxid::cli
