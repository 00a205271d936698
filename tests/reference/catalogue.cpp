#include "reference/catalogue.h"

#include <fstream>
#include <locale>
#include <sstream>
#include <utility>

#include "simulation/board.h"

namespace reference {

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

// A logger sees a message up to its first NUL byte.
Message rejection(const std::string& line, const std::string& why) {
  const std::string text = "The line:'" + line +
                           "' is not valid known board identification description line (" + why +
                           ")";
  return warn(text.c_str());
}

}  // namespace

LineReading readLine(HardwareIdentity record, const std::string& line) {
  LineReading reading{false, std::move(record), {}};
  const std::vector<std::string> values = splitValues(line);
  if (values.size() < 2) {
    reading.messages.push_back(
        rejection(line, "it must contain at least two colon separated values"));
    return reading;
  }
  reading.record.name = values[0];
  if (!readNumber(values[1], reading.record.number)) {
    reading.messages.push_back(rejection(line, "the second value needs to be a board number"));
    return reading;
  }
  reading.accepted = true;
  reading.record.aliases.insert(reading.record.aliases.end(), values.begin() + 2, values.end());
  const std::string found =
      "Found hardware identity: Board number " + values[1] + "(" + values[0] + ")";
  reading.messages.push_back(debug(found.c_str()));
  return reading;
}

Catalogue loadCatalogue() {
  Catalogue catalogue;
  catalogue.messages = {debug("Finding list of known identities...")};
  std::ifstream file(cataloguePath);
  if (!file) {
    catalogue.identities = {{"Tessaryn TQBLITE", {"tqblite"}, 1},
                            {"Tessaryn TQB", {"tqb"}, 2},
                            {"Orvanix Starter Kit", {"ostart", "Tessaryn Orvanix Starter Kit"}, 3}};
    catalogue.messages = catalogue.messages +
                         warn("No /etc/known_ovx_ids, using default known hardware identities") +
                         debug("Known Hardware description: Tessaryn TQBLITE = 1") +
                         debug("Known Hardware description: Tessaryn TQB = 2") +
                         debug("Known Hardware description: Orvanix Starter Kit = 3");
    return catalogue;
  }
  catalogue.messages.push_back(
      debug("Opened file /etc/known_ovx_ids, now reading known hardware identites"));
  for (std::string line; std::getline(file, line);) {
    const LineReading reading = readLine({}, line);
    if (reading.accepted) {
      catalogue.identities.push_back(reading.record);
    }
    catalogue.messages.insert(catalogue.messages.end(), reading.messages.begin(),
                              reading.messages.end());
  }
  return catalogue;
}

}  // namespace reference
