#include "board.h"

#include <unistd.h>

#include <csignal>
#include <stdexcept>
#include <string_view>

#include "diagnostics.h"
#include "output.h"
#include "identity/well_known.h"

using log4cpp::Priority;

namespace ovxid::cli {

namespace {

// GCOVR_EXCL_START: gcc does not write its counts when a process aborts
// The library aborts when it is to ask for the address of an interface whose name no kernel takes.
void tellOfAbort(int /*signal*/) {
  constexpr std::string_view line =
      "ovxid: OVX_WAN: the name of the interface has more than 15 bytes\n";
  // Nothing is left to be done when it cannot be written.
  [[maybe_unused]] const ssize_t count = write(STDERR_FILENO, line.data(), line.size());
}
// GCOVR_EXCL_STOP

// While it lives, an abort is explained.
class ExplainedAbort {
 public:
  ExplainedAbort() : mBefore(std::signal(SIGABRT, tellOfAbort)) {}
  ~ExplainedAbort() { std::signal(SIGABRT, mBefore); }
  ExplainedAbort(const ExplainedAbort&) = delete;
  ExplainedAbort& operator=(const ExplainedAbort&) = delete;

 private:
  SignalHandler mBefore;
};

}  // namespace

Board::Board(bool verbose, bool keepMessages)
    : mLog({verbose, keepMessages}), mIdentifier(verbose || keepMessages ? &mLog : nullptr) {}

void Board::identify() {
  try {
    mIdentified = mIdentifier.determineIdentity();
  } catch (const std::out_of_range&) {  // GCOVR_EXCL_BR_LINE: std::bad_alloc goes on to main
    throw Failure(exit_status::no, "/proc/cpuinfo", "the Hardware line ends at its colon");
  }
  mIdentifier.logFullId(mIdentified ? Priority::DEBUG : Priority::ERROR);
}

void Board::collect() {
  const ExplainedAbort explained;
  mIdentifier.parse_params();
}

bool Board::readLine(HardwareIdentity& identity, const std::string& line) {
  const cQlog::Use before = mLog.use({false, false});
  const bool read = mIdentifier.parseIdentityLine(identity, line);
  mLog.use(before);
  return read;
}

// A query would search an unidentified board once more.
std::string Board::name() {
  if (!mIdentified) {
    return unknownName;
  }
  const std::string name = mIdentifier.getHardwareName();
  return name.substr(0, name.find('\0'));
}

std::int32_t Board::number() {
  return mIdentified ? mIdentifier.getHardwareNumber() : unknownNumber;
}

}  // namespace ovxid::cli
