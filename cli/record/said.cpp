#include <array>
#include <optional>
#include <string_view>

#include "perform.h"
#include "record/records.h"
#include "record/serial_numbers.h"
#include "recording/files.h"
#include "recording/session.h"
#include "text_file.h"

namespace ovxid::cli {

namespace {

constexpr std::string_view wan = "OVX_WAN=";
constexpr std::string_view wanMac = "OVX_WAN_ID=";
// The message about a line of cpuinfo.
constexpr std::string_view cpuinfoLine = "debug: Cpuinfo line: ";

// GCOVR_EXCL_START: gcc does not write its counts where this process ends
int listVerbosely() {
  std::array<char, 6> program = {"ovxid"};
  std::array<char, 3> verbose = {"-v"};
  std::array<char, 5> list = {"list"};
  std::array<char*, 4> words = {program.data(), verbose.data(), list.data(), nullptr};
  return perform(3, words.data());
}
// GCOVR_EXCL_STOP

// The address in the listing is that of its first WAN interface.
std::string withWrittenMac(std::string listing, Macs& macs) {
  const std::optional<Mac> mac = macOf(wanInterfaceIn(listing));
  if (!mac) {
    return listing;
  }
  const std::string text = listingText(*mac);
  const auto line = listing.find(std::string(wanMac) + text + "\n");
  if (line != std::string::npos) {
    listing.replace(line + wanMac.size(), text.size(), listingText(macs.written(*mac)));
  }
  return listing;
}

}  // namespace

std::string wanInterfaceIn(const std::string& listing) {
  std::string_view rest = listing;
  while (const std::optional<std::string_view> line = takeLine(rest)) {
    if (line->substr(0, wan.size()) == wan) {
      const std::string_view value = line->substr(wan.size());
      return std::string(value.substr(0, value.find('\0')));
    }
  }
  return "";
}

std::string recordWhatIsSaid(Macs& macs, const RecordingDirectory& directory) {
  recording::Outcome outcome = recording::outcomeOf(listVerbosely);
  outcome.out = withWrittenMac(outcome.out, macs);
  outcome.err = withoutSerialNumbers(outcome.err, cpuinfoLine);
  directory.file(recording::file::said, recording::session("ovxid -v list", outcome));
  return outcome.out;
}

}  // namespace ovxid::cli
