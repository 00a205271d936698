#include "log4cpp_logger.h"

#include <string>

cQlog::cQlog(log4cpp::Category& category) : mCategory(category) {}

// The library passes finished texts, in which a '%' is a '%'. So they are passed on as strings:
// log4cpp takes a const char* as a format, and would look for arguments that are not there.
void cQlog::debug(const char* text, ...) { mCategory.debug(std::string(text)); }
void cQlog::info(const char* text, ...) { mCategory.info(std::string(text)); }
void cQlog::warn(const char* text, ...) { mCategory.warn(std::string(text)); }
void cQlog::error(const char* text, ...) { mCategory.error(std::string(text)); }
void cQlog::fatal(const char* text, ...) { mCategory.fatal(std::string(text)); }
