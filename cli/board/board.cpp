#include "board/board.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include "identity/report.h"
#include "identity/well_known.h"
#include "output/diagnostics.h"
#include "output/output.h"

namespace ovxid::cli {

namespace {

// As perror(3) does.
void tellOfFailure(const char* call, int error) {
  tell(std::string(call) + ": " + std::strerror(error) + "\n");
}

}  // namespace

Board::Board(std::shared_ptr<const Host> host, bool verbose)
    : mHost(std::move(host)), mLog(messages(verbose)), mName(unknownName), mNumber(unknownNumber) {
  reportCreation(mLog);
  mCatalogueFile = loadCatalogue(*mHost, mCatalogue, mLog);
}

void Board::identify(Trials& trials) { search(&trials); }

void Board::identify() {
  if (search(nullptr).thrown) {
    throw Failure(exit_status::no, pathOf(File::cpuinfo), "the Hardware line ends at its colon");
  }
}

Identification Board::search(Trials* trials) {
  Identification found = ovxid::identify(*mHost, mCatalogue, mLog, trials);
  mDecidedBy = found.decidedBy;
  mMatch = found.match;
  if (!found.thrown) {
    mName = found.name.value_or(mName);
    mNumber = found.number.value_or(mNumber);
    const std::vector<std::string> known = aliases();
    report(mLog, isIdentified() ? Level::debug : Level::error, mName, mNumber,
           isIdentified() ? &known : nullptr);
  }
  return found;
}

std::vector<std::string> Board::aliases() const {
  return mMatch == nullptr ? std::vector<std::string>() : mMatch->aliases;
}

void Board::collect() {
  mParameters = collectParameters(*mHost, mNumber, mName, tellOfFailure);
  if (mParameters.wanError == ENAMETOOLONG) {
    throw Failure(exit_status::aborted, "OVX_WAN",
                  "the name of the interface has more than 15 bytes");
  }
}

}  // namespace ovxid::cli
