#include <utility>

#include "OvxIdentifier.h"
#include "log/cQlog.h"

using log4cpp::Priority;

void OvxIdentifier::tryLog(std::string message, Priority::PriorityLevel level) {
  if (mLogger == nullptr) {
    return;
  }
  switch (level) {
    case Priority::FATAL:
      mLogger->fatal(message.c_str());
      break;
    case Priority::ERROR:
      mLogger->error(message.c_str());
      break;
    case Priority::WARN:
      mLogger->warn(message.c_str());
      break;
    case Priority::INFO:
      mLogger->info(message.c_str());
      break;
    default:
      mLogger->debug(message.c_str());
      break;
  }
}

void OvxIdentifier::tryLog(std::string message) { tryLog(std::move(message), Priority::DEBUG); }
