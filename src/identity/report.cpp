#include "identity/report.h"

namespace ovxid {

namespace {

std::string eachWithABlank(const std::vector<std::string>& aliases) {
  std::string text;
  for (const std::string& alias : aliases) {
    text.append(alias).append(" ");
  }
  return text;
}

}  // namespace

void reportCreation(const Log& log) { log(Level::debug, {"Creating OvxIdentifier..."}); }

void report(const Log& log, Level level, const std::string& name, std::int32_t number,
            const std::vector<std::string>* aliases) {
  if (!log.isRead()) {
    return;
  }
  log(level, {aliases != nullptr ? "Full identity: " : "Identity is unknown: "});
  log(level, {"Real name: ", name});
  log(level, {"Hardware number: ", std::to_string(number)});
  if (aliases != nullptr) {
    log(level, {"Aliases: ", eachWithABlank(*aliases)});
  }
}

}  // namespace ovxid
