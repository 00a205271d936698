#include "identity/log.h"

bool OvxIdentifier::determineIdentity() {
  if (mDetermined) {
    log(Priority::WARN,
        "Calling lib/program is trying to determine the identity"
        "...but it was already successfully determined");
    mDetermined = false;
  }
  if (identifyByDeviceTree() || identifyByUname() || identifyByCpuinfo()) {
    return true;
  }
  log(Priority::ERROR, "Could not find hardware identity with uname or through /proc/cpuinfo");
  mHardwareNumber = -1;
  mHardwareName = "Unknown";
  mDetermined = false;
  return false;
}

void OvxIdentifier::adopt(const HardwareIdentity& identity) {
  mDetermined = true;
  mHardwareName = identity.name;
  mHardwareAliases = identity.aliases;
  mHardwareNumber = identity.number;
}
