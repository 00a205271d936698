#ifndef OVXID_IDENTITY_REPORT_H
#define OVXID_IDENTITY_REPORT_H

#include <cstdint>
#include <string>
#include <vector>

#include "log/log.h"

namespace ovxid {

// Before anything is known.
void reportCreation(const Log& log);

// What is reported of a board. Without aliases, it is not identified.
void report(const Log& log, Level level, const std::string& name, std::int32_t number,
            const std::vector<std::string>* aliases);

}  // namespace ovxid

#endif
