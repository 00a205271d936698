#include "catalogue/line.h"

#include <optional>

#include "text/number.h"

namespace ovxid {

namespace {

const char* passOver(std::string_view line, const char* why, const Log& log) {
  log(Level::warn, {"The line:'", line,
                    "' is not valid known board identification description line (", why, ")"});
  return why;
}

}  // namespace

const char* parseLine(HardwareIdentity& record, std::string_view line, const Log& log) {
  std::string_view values = line;
  const std::string_view name = takeValue(values);
  const std::string_view number = takeValue(values);
  if (number.empty()) {
    return passOver(line, "it must contain at least two colon separated values", log);
  }
  record.name = name;
  const std::optional<std::int32_t> read = readNumber(number);
  if (!read) {
    return passOver(line, "the second value needs to be a board number", log);
  }
  record.number = *read;
  for (auto alias = takeValue(values); !alias.empty(); alias = takeValue(values)) {
    record.aliases.emplace_back(alias);
  }
  log(Level::debug, {"Found hardware identity: Board number ", number, "(", record.name, ")"});
  return nullptr;
}

}  // namespace ovxid
