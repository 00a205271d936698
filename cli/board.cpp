#include "board.h"

#include <unistd.h>

#include <csignal>
#include <stdexcept>
#include <string_view>

#include "diagnostics.h"

using log4cpp::Priority;

namespace ovxid::cli {

namespace {

// The library aborts when it is to ask for the address of an interface whose name no kernel takes.
void tellOfAbort(int /*signal*/) {
  constexpr std::string_view line =
      "ovxid: OVX_WAN: the name of the interface has more than 15 bytes\n";
  // Nothing is left to be done when it cannot be written.
  [[maybe_unused]] const ssize_t count = write(STDERR_FILENO, line.data(), line.size());
}

}  // namespace

Board::Board(bool verbose, bool keepMessages)
    : mLog({verbose, keepMessages}), mIdentifier(verbose || keepMessages ? &mLog : nullptr) {}

void Board::identify() {
  try {
    mIdentified = mIdentifier.determineIdentity();
  } catch (const std::out_of_range&) {  // GCOVR_EXCL_BR_LINE: only std::bad_alloc passes by
    throw Failure(exit_status::no, "/proc/cpuinfo", "the Hardware line ends at its colon");
  }
  mIdentifier.logFullId(mIdentified ? Priority::DEBUG : Priority::ERROR);
}

void Board::collect() {
  const auto before = std::signal(SIGABRT, tellOfAbort);
  mIdentifier.parse_params();
  std::signal(SIGABRT, before);
}

bool Board::readLine(HardwareIdentity& identity, const std::string& line) {
  const cQlog::Use before = mLog.use({false, false});
  const bool read = mIdentifier.parseIdentityLine(identity, line);
  mLog.use(before);
  return read;
}

// A query would search an unidentified board once more.
std::string Board::name() {
  return mIdentified ? mIdentifier.getHardwareName().c_str() : "Unknown";
}

std::int32_t Board::number() { return mIdentified ? mIdentifier.getHardwareNumber() : -1; }

}  // namespace ovxid::cli
