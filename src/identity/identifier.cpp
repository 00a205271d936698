#include "identity/log.h"

OvxIdentifier::OvxIdentifier(cQlog* logger)
    : mDetermined(false), mHardwareName("Unknown"), mHardwareNumber(-1), mLogger(logger) {
  log(Priority::DEBUG, "Creating OvxIdentifier...");
  findKnownIdentities();
}

std::string OvxIdentifier::getHardwareName() {
  queryIdentity();
  return mHardwareName;
}

std::int32_t OvxIdentifier::getHardwareNumber() {
  queryIdentity();
  return mHardwareNumber;
}

void OvxIdentifier::loadParams() {
  getHardwareNumber();
  parse_params();
}

void OvxIdentifier::queryIdentity() {
  if (!mDetermined) {
    logFullId(determineIdentity() ? Priority::DEBUG : Priority::ERROR);
  }
}
