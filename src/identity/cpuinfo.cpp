#include "identity/match.h"
#include "log/log.h"
#include "platform.h"
#include "text/lines.h"

using log4cpp::Priority;

namespace ovxid {

namespace {

constexpr std::string_view hardwareField = "Hardware";

// Later lines are neither logged nor compared.
std::optional<std::string> hardwareLine(const InputFile& cpuinfo, cQlog* logger) {
  LineReader lines(cpuinfo);
  while (const std::optional<std::string_view> line = lines.next()) {
    log(logger, Priority::DEBUG, {"Cpuinfo line: ", *line});
    if (line->substr(0, hardwareField.size()) == hardwareField) {
      return std::string(*line);
    }
  }
  return std::nullopt;
}

Finding identifyByValue(const std::string& value, const Search& search) {
  log(search.logger, Priority::DEBUG, {"Searching known real names..."});
  for (const HardwareIdentity& identity : search.catalogue) {
    if (identity.name == value) {
      return found(identity);
    }
  }
  log(search.logger, Priority::DEBUG, {"Searching known aliases..."});
  for (const HardwareIdentity& identity : search.catalogue) {
    if (hasAlias(identity, value)) {
      return found(identity);
    }
  }
  log(search.logger, Priority::ERROR,
      {"The possible alias is not a real name or alias of any identity"});
  return {};
}

}  // namespace

Finding identifyByCpuinfo(Search& search) {
  log(search.logger, Priority::DEBUG,
      {"Finding the hardware idenitity with uname failed,"
       " attempting to find hardware identity with cpuinfo"});
  const InputFile cpuinfo(cpuinfoPath);
  if (!cpuinfo.isOpen()) {
    log(search.logger, Priority::ERROR,
        {"Could not open the ", cpuinfoPath, " file, is the proc filesystem mounted"});
    return {};
  }
  const std::optional<std::string> line = hardwareLine(cpuinfo, search.logger);
  if (!line) {
    return {};
  }
  log(search.logger, Priority::DEBUG, {"Found Hardware field..."});
  // Without a colon, npos + 2 wraps around to 1. When the colon is the last character, substr
  // throws the std::out_of_range that the header documents.
  const std::string value = line->substr(line->find(':') + 2);
  log(search.logger, Priority::DEBUG, {"Found possisble alias: '", value, "'"});
  return identifyByValue(value, search);
}

}  // namespace ovxid
