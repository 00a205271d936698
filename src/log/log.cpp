#include "log/log.h"

#include <string>
#include <utility>

#include "OvxIdentifier.h"
#include "log/cQlog.h"

using log4cpp::Priority;

namespace ovxid {

namespace {

// The message is the format, as board programs expect: the logger interprets a '%' in it.
void handOver(cQlog& logger, Priority::PriorityLevel level, const char* message) {
  switch (level) {
    case Priority::FATAL:
      logger.fatal(message);
      break;
    case Priority::ERROR:
      logger.error(message);
      break;
    case Priority::WARN:
      logger.warn(message);
      break;
    case Priority::INFO:
      logger.info(message);
      break;
    default:
      logger.debug(message);
      break;
  }
}

}  // namespace

void log(cQlog* logger, Priority::PriorityLevel level,
         std::initializer_list<std::string_view> parts) {
  if (logger == nullptr) {
    return;
  }
  std::string message;
  for (const std::string_view part : parts) {
    message.append(part);
  }
  handOver(*logger, level, message.c_str());
}

}  // namespace ovxid

void OvxIdentifier::tryLog(std::string message, Priority::PriorityLevel level) {
  if (mLogger != nullptr) {
    ovxid::handOver(*mLogger, level, message.c_str());
  }
}

void OvxIdentifier::tryLog(std::string message) { tryLog(std::move(message), Priority::DEBUG); }
