#include <sys/utsname.h>

#include "identity/aliases.h"
#include "identity/log.h"
#include "identity/pc.h"

bool OvxIdentifier::identifyByUname() {
  log(Priority::DEBUG, "Attempting to find alias by uname");
  utsname kernel{};
  if (uname(&kernel) < 0) {
    log(Priority::WARN, "There was a problem with uname, continuing");
    return false;
  }
  log(Priority::DEBUG, "No problems with uname");
  if (identifyByRelease(kernel.release)) {
    return true;
  }
  return identifyAsPc(kernel.machine);
}

bool OvxIdentifier::identifyByRelease(const std::string& release) {
  log(Priority::DEBUG, "uts.release= ", release);
  const auto hyphen = release.rfind('-');
  if (hyphen == std::string::npos) {
    return false;
  }
  const std::string suffix = release.substr(hyphen + 1);
  log(Priority::DEBUG, "therefore possible alias of machine = '", suffix, "'");
  for (const HardwareIdentity& identity : mKnownIdentities) {
    log(Priority::DEBUG, "Searching known aliases of ", identity.name, "...");
    if (hasAlias(identity, suffix)) {
      log(Priority::DEBUG, "Alias: ", suffix, " is an alias of identity: ", identity.name);
      adopt(identity);
      return true;
    }
  }
  return false;
}

bool OvxIdentifier::identifyAsPc(const std::string& machine) {
  if (machine != "x86_64") {
    return false;
  }
  mDetermined = true;
  mHardwareNumber = pcNumber;
  mHardwareName = "x86_64 PC";
  return true;
}
