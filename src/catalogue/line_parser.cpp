#include <locale>
#include <sstream>

#include "identity/log.h"

namespace {

std::vector<std::string> splitValues(const std::string& line) {
  std::vector<std::string> values;
  auto begin = line.find_first_not_of(':');
  while (begin != std::string::npos) {
    const auto end = line.find(':', begin);
    values.push_back(line.substr(begin, end - begin));
    begin = line.find_first_not_of(':', end);
  }
  return values;
}

bool readNumber(const std::string& value, std::int32_t& number) {
  std::istringstream text(value);
  text.imbue(std::locale::classic());
  std::int32_t read = 0;
  if (!(text >> read)) {
    return false;
  }
  number = read;
  return true;
}

}  // namespace

bool OvxIdentifier::parseIdentityLine(HardwareIdentity& record, std::string line) {
  const std::vector<std::string> values = splitValues(line);
  if (values.size() < 2) {
    log(Priority::WARN, "The line:'", line,
        "' is not valid known board identification description line"
        " (it must contain at least two colon separated values)");
    return false;
  }
  record.name = values[0];
  if (!readNumber(values[1], record.number)) {
    log(Priority::WARN, "The line:'", line,
        "' is not valid known board identification description line"
        " (the second value needs to be a board number)");
    return false;
  }
  record.aliases.insert(record.aliases.end(), values.begin() + 2, values.end());
  log(Priority::DEBUG, "Found hardware identity: Board number ", values[1], "(", record.name, ")");
  return true;
}
