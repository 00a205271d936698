#include <utility>

#include "identity/sources.h"
#include "text/lines.h"
#include "text/number.h"

namespace ovxid {

namespace {

void logUnopened(File file, const Log& log) {
  log(Level::debug, {"Could not open ", pathOf(file), " "});
}

void readBoardid(Search& search, Finding& finding) {
  std::string beginning;
  InputFile boardid = search.host.open(File::boardid);
  if (boardid.isOpen()) {
    if (search.trial != nullptr) {
      boardid.keepBeginning(beginning);
    }
    finding.identified = true;
    finding.number = firstNumber(boardid);
  } else {
    logUnopened(File::boardid, search.log);
  }
  search.haveRead(pathOf(File::boardid), boardid.error(), beginning);
}

void readDescription(Search& search, Finding& finding) {
  std::string beginning;
  InputFile description = search.host.open(File::description);
  if (description.isOpen()) {
    if (search.trial != nullptr) {
      description.keepBeginning(beginning);
    }
    finding.name = firstLine(description).text;
  } else {
    logUnopened(File::description, search.log);
  }
  search.haveRead(pathOf(File::description), description.error(), beginning);
}

}  // namespace

// That "boardid" can be opened is enough to identify the board. So it is not checked whether the
// number and the name can be read: what is missing stays as it was.
Finding identifyByDeviceTree(Search& search) {
  search.log(Level::debug, {"Attempting to find alias by DT"});
  Finding finding;
  readBoardid(search, finding);
  readDescription(search, finding);
  return finding;
}

}  // namespace ovxid
