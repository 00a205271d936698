#include "OvxIdentifier.h"
#include "log/log.h"

using log4cpp::Priority;

namespace ovxid {

namespace {

std::string eachWithABlank(const std::vector<std::string>& aliases) {
  std::string text;
  for (const std::string& alias : aliases) {
    text.append(alias).append(" ");
  }
  return text;
}

}  // namespace

}  // namespace ovxid

void OvxIdentifier::logFullId(Priority::PriorityLevel level) {
  using ovxid::log;
  if (mLogger == nullptr) {
    return;
  }
  log(mLogger, level, {mDetermined ? "Full identity: " : "Identity is unknown: "});
  log(mLogger, level, {"Real name: ", mHardwareName});
  log(mLogger, level, {"Hardware number: ", std::to_string(mHardwareNumber)});
  if (mDetermined) {
    log(mLogger, level, {"Aliases: ", ovxid::eachWithABlank(mHardwareAliases)});
  }
}
