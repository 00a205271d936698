#include "identity/log.h"

void OvxIdentifier::logFullId(Priority::PriorityLevel level) {
  if (mLogger == nullptr) {
    return;
  }
  log(level, mDetermined ? "Full identity: " : "Identity is unknown: ");
  log(level, "Real name: ", mHardwareName);
  log(level, "Hardware number: ", std::to_string(mHardwareNumber));
  if (mDetermined) {
    std::string aliases;
    for (const std::string& alias : mHardwareAliases) {
      aliases.append(alias).append(" ");
    }
    log(level, "Aliases: ", aliases);
  }
}
