#include <stdexcept>

#include "identity/lookup.h"
#include "text/lines.h"

namespace ovxid {

namespace {

constexpr std::string_view hardwareField = "Hardware";

// Later lines are neither logged nor compared.
std::optional<std::string> hardwareLine(InputFile& cpuinfo, const Log& log) {
  LineReader lines(cpuinfo);
  while (const std::optional<std::string_view> line = lines.next()) {
    log(Level::debug, {"Cpuinfo line: ", *line});
    if (line->substr(0, hardwareField.size()) == hardwareField) {
      return std::string(*line);
    }
  }
  return std::nullopt;
}

Finding identifyByValue(const std::string& value, Search& search) {
  search.lookUp("The Hardware value", "Hardware", value, true);
  search.log(Level::debug, {"Searching known real names..."});
  for (const HardwareIdentity& identity : search.catalogue) {
    if (identity.name == value) {
      return adopt(identity);
    }
  }
  search.log(Level::debug, {"Searching known aliases..."});
  for (const HardwareIdentity& identity : search.catalogue) {
    if (hasAlias(identity, value)) {
      return adopt(identity);
    }
  }
  search.log(Level::error, {"The possible alias is not a real name or alias of any identity"});
  return {};
}

Finding identifyByLine(const std::string& line, Search& search) {
  search.log(Level::debug, {"Found Hardware field..."});
  try {
    // Without a colon, npos + 2 wraps around to 1. When the colon is the last character, substr
    // throws the std::out_of_range that the public header documents.
    const std::string value = line.substr(line.find(':') + 2);
    search.log(Level::debug, {"Found possisble alias: '", value, "'"});
    return identifyByValue(value, search);
  } catch (const std::out_of_range&) {
    search.note("the Hardware line ends at its colon, which ends the search");
    Finding finding;
    finding.thrown = std::current_exception();
    return finding;
  }
}

}  // namespace

Finding identifyByCpuinfo(Search& search) {
  search.log(Level::debug, {"Finding the hardware idenitity with uname failed,"
                            " attempting to find hardware identity with cpuinfo"});
  InputFile cpuinfo = search.host.open(File::cpuinfo);
  if (!cpuinfo.isOpen()) {
    search.haveRead(pathOf(File::cpuinfo), cpuinfo.error());
    search.log(Level::error, {"Could not open the ", pathOf(File::cpuinfo),
                              " file, is the proc filesystem mounted"});
    return {};
  }
  const std::optional<std::string> line = hardwareLine(cpuinfo, search.log);
  if (!line) {
    search.haveRead(pathOf(File::cpuinfo), cpuinfo.error());
    search.note("no line begins with Hardware");
    return {};
  }
  search.haveRead(pathOf(File::cpuinfo), 0, *line);
  return identifyByLine(*line, search);
}

}  // namespace ovxid
