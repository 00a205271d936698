#ifndef OVXID_IDENTITY_LOG_H
#define OVXID_IDENTITY_LOG_H

#include <utility>

#include "OvxIdentifier.h"

using log4cpp::Priority;

// Composes the message only when there is a logger to read it.
template <typename... Text>
void OvxIdentifier::log(Priority::PriorityLevel level, const Text&... text) {
  if (mLogger == nullptr) {
    return;
  }
  std::string message;
  (message.append(text), ...);
  tryLog(std::move(message), level);
}

#endif
