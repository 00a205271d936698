#ifndef OVXID_LOG_LOG_H
#define OVXID_LOG_LOG_H

#include <initializer_list>
#include <log4cpp/Priority.hh>
#include <string_view>

class cQlog;

namespace ovxid {

// Hands the logger a message, which is composed of its parts only when there is a logger.
void log(cQlog* logger, log4cpp::Priority::PriorityLevel level,
         std::initializer_list<std::string_view> parts);

}  // namespace ovxid

#endif
