#include <array>

#include "identity/sources.h"
#include "log/log.h"
#include "platform.h"
#include "text/lines.h"
#include "text/number.h"

using log4cpp::Priority;

namespace ovxid {

namespace {

// The path of a file of the node, put together by the compiler.
template <std::size_t Size>
constexpr std::array<char, nodePath.size() + 1 + Size> inNode(const char (&name)[Size]) {
  std::array<char, nodePath.size() + 1 + Size> path{};
  std::size_t end = 0;
  for (const char byte : nodePath) {
    path[end++] = byte;
  }
  path[end++] = '/';
  for (const char byte : name) {
    path[end++] = byte;
  }
  return path;
}

constexpr auto boardidPath = inNode("boardid");
constexpr auto descriptionPath = inNode("description");

void logUnopened(const char* path, cQlog* logger) {
  log(logger, Priority::DEBUG, {"Could not open ", path, " "});
}

}  // namespace

// That "boardid" can be opened is enough to identify the board. So it is not checked whether the
// number and the name can be read: what is missing stays as it was.
Finding identifyByDeviceTree(Search& search) {
  log(search.logger, Priority::DEBUG, {"Attempting to find alias by DT"});
  Finding finding;
  if (const InputFile boardid(boardidPath.data()); boardid.isOpen()) {
    finding.identified = true;
    finding.number = firstNumber(boardid);
  } else {
    logUnopened(boardidPath.data(), search.logger);
  }
  if (const InputFile description(descriptionPath.data()); description.isOpen()) {
    finding.name = firstLine(description);
  } else {
    logUnopened(descriptionPath.data(), search.logger);
  }
  return finding;
}

}  // namespace ovxid
