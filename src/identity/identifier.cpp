#include "OvxIdentifier.h"
#include "log/log.h"
#include "platform.h"

using log4cpp::Priority;

OvxIdentifier::OvxIdentifier(cQlog* logger)
    : mDetermined(false),
      mHardwareName(ovxid::unknownName),
      mHardwareNumber(ovxid::unknownNumber),
      mLogger(logger) {
  ovxid::log(mLogger, Priority::DEBUG, {"Creating OvxIdentifier..."});
  findKnownIdentities();
}

std::string OvxIdentifier::getHardwareName() {
  getHardwareNumber();
  return mHardwareName;
}

std::int32_t OvxIdentifier::getHardwareNumber() {
  if (!mDetermined) {
    logFullId(determineIdentity() ? Priority::DEBUG : Priority::ERROR);
  }
  return mHardwareNumber;
}

void OvxIdentifier::loadParams() {
  getHardwareNumber();
  parse_params();
}
