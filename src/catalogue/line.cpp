#include "catalogue/line.h"

#include <algorithm>
#include <optional>

#include "log/log.h"
#include "text/number.h"

using log4cpp::Priority;

namespace ovxid {

namespace {

constexpr char separator = ':';

// Removes the first value from the line and returns it. An empty result means that no value is
// left: values are never empty, since several separators in a row count as one. Inline, because a
// call for each value costs 5 % of the loading.
inline std::string_view takeValue(std::string_view& line) {
  std::string_view value;
  while (value.empty() && !line.empty()) {
    value = line.substr(0, line.find(separator));
    line.remove_prefix(std::min(value.size() + 1, line.size()));
  }
  return value;
}

bool reject(std::string_view line, std::string_view why, cQlog* logger) {
  log(logger, Priority::WARN,
      {"The line:'", line, "' is not valid known board identification description line (", why,
       ")"});
  return false;
}

}  // namespace

bool parseLine(HardwareIdentity& record, std::string_view line, cQlog* logger) {
  std::string_view values = line;
  const std::string_view name = takeValue(values);
  const std::string_view number = takeValue(values);
  if (number.empty()) {
    return reject(line, "it must contain at least two colon separated values", logger);
  }
  record.name = name;
  const std::optional<std::int32_t> read = readNumber(number);
  if (!read) {
    return reject(line, "the second value needs to be a board number", logger);
  }
  record.number = *read;
  for (auto alias = takeValue(values); !alias.empty(); alias = takeValue(values)) {
    record.aliases.emplace_back(alias);
  }
  log(logger, Priority::DEBUG,
      {"Found hardware identity: Board number ", number, "(", record.name, ")"});
  return true;
}

}  // namespace ovxid

bool OvxIdentifier::parseIdentityLine(HardwareIdentity& record, std::string line) {
  return ovxid::parseLine(record, line, mLogger);
}
