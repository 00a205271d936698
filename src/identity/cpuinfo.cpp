#include <fstream>

#include "identity/aliases.h"
#include "identity/log.h"

bool OvxIdentifier::identifyByCpuinfo() {
  log(Priority::DEBUG,
      "Finding the hardware idenitity with uname failed,"
      " attempting to find hardware identity with cpuinfo");
  std::ifstream cpuinfo("/proc/cpuinfo");
  if (!cpuinfo) {
    log(Priority::ERROR, "Could not open the /proc/cpuinfo file, is the proc filesystem mounted");
    return false;
  }
  std::string line;
  while (std::getline(cpuinfo, line)) {
    log(Priority::DEBUG, "Cpuinfo line: ", line);
    if (line.rfind("Hardware", 0) == 0) {
      return identifyByHardwareLine(line);
    }
  }
  return false;
}

bool OvxIdentifier::identifyByHardwareLine(const std::string& line) {
  log(Priority::DEBUG, "Found Hardware field...");
  // Without a colon, npos + 2 wraps around to 1; with nothing behind it, substr throws.
  const std::string value = line.substr(line.find(':') + 2);
  log(Priority::DEBUG, "Found possisble alias: '", value, "'");
  log(Priority::DEBUG, "Searching known real names...");
  for (const HardwareIdentity& identity : mKnownIdentities) {
    if (identity.name == value) {
      adopt(identity);
      return true;
    }
  }
  log(Priority::DEBUG, "Searching known aliases...");
  for (const HardwareIdentity& identity : mKnownIdentities) {
    if (hasAlias(identity, value)) {
      adopt(identity);
      return true;
    }
  }
  log(Priority::ERROR, "The possible alias is not a real name or alias of any identity");
  return false;
}
