#include <fstream>
#include <locale>

#include "identity/log.h"

bool OvxIdentifier::identifyByDeviceTree() {
  log(Priority::DEBUG, "Attempting to find alias by DT");
  if (std::ifstream boardid("/proc/device-tree/orvanix/boardid"); boardid) {
    // Whatever the process's locale, a board number has no digit grouping.
    boardid.imbue(std::locale::classic());
    boardid >> mHardwareNumber;
    mDetermined = true;
  } else {
    log(Priority::DEBUG, "Could not open /proc/device-tree/orvanix/boardid ");
  }
  if (std::ifstream description("/proc/device-tree/orvanix/description"); description) {
    std::getline(description, mHardwareName);
  } else {
    log(Priority::DEBUG, "Could not open /proc/device-tree/orvanix/description ");
  }
  return mDetermined;
}
