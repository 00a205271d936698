#include "record/board.h"

#include <net/if.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "board/board.h"
#include "formats/format.h"
#include "host/this_machine.h"
#include "net/wan.h"
#include "output/diagnostics.h"
#include "output/output.h"
#include "params/names.h"
#include "record/macs.h"
#include "record/node.h"
#include "record/serial_numbers.h"
#include "recording/addresses.h"
#include "recording/limits.h"

namespace ovxid::cli {

namespace {

recording::Content contentOfFile(const Host& host, File file) {
  InputFile input = host.open(file);
  return contentOf(input, pathOf(file), "a file", recording::limit::document);
}

void recordKernel(const Host& host, recording::Recording& recording) {
  utsname kernel{};
  recording.unameError = host.uname(kernel);
  recording.release = static_cast<const char*>(kernel.release);
  recording.machine = static_cast<const char*>(kernel.machine);
}

std::optional<MacAddress> macOf(const Host& host, const std::string& interface, Macs& macs) {
  MacAddress mac{};
  if (host.macAddress(interface, mac) != 0) {
    return std::nullopt;
  }
  return macs.written(mac);
}

// The kernel's list of addresses, and the WAN interface if it is not there.
void recordInterfaces(const Host& host, const std::string& wan, Macs& macs,
                      recording::Recording& recording) {
  const auto addresses = recording::listedAddresses();
  if (!addresses) {
    throw Failure(exit_status::notRead, "interfaces", std::strerror(errno));
  }
  bool isListed = false;
  for (const auto& [name, address] : *addresses) {
    recording.interfaces.push_back({name, address, macOf(host, name, macs)});
    isListed = isListed || name == wan;
  }
  if (const auto mac = isListed ? std::nullopt : macOf(host, wan, macs)) {
    recording.interfaces.push_back({wan, std::nullopt, mac});
  }
  recording.interfaceRoom = interfaceListSize / sizeof(ifreq);
}

// None if the list has none of which the kernel could be asked.
std::string wanOf(const std::vector<ovx_param>& parameters) {
  std::string wan = wanIn(parameters).value_or("");
  wan.resize(wan.size() < IFNAMSIZ ? wan.size() : 0);
  return wan;
}

// The address in a listing is that of its first WAN interface.
void hideMac(const Host& host, const std::string& wan, Macs& macs, recording::Said& said) {
  MacAddress mac{};
  if (host.macAddress(wan, mac) != 0) {
    return;
  }
  const std::string beginning = std::string(parameter::wanMac) + "=";
  const std::string line = beginning + macText(mac) + "\n";
  // The kernel may tell another address now. A property may look the same, before the address.
  const auto at = said.out.rfind(line);
  if (at != std::string::npos) {  // GCOVR_EXCL_BR_LINE: in the tests, it tells the same
    said.out.replace(at, line.size(), beginning + macText(macs.written(mac)) + "\n");
  }
}

// What `ovxid -v list` does here, and the parameters that it lists.
struct Listing {
  recording::Said said;
  std::vector<ovx_param> parameters;
};

Listing listHere(std::shared_ptr<const Host> host) {
  constexpr std::string_view messageOfCpuinfo = "debug: Cpuinfo line: ";
  Listing listing;
  const KeptErrors kept(listing.said.err);
  Board board(std::move(host), true);
  try {
    board.identify();
    board.collect();
    listing.said.out = formatNamed(defaultFormat).write(board);
  } catch (const Failure& failure) {
    complain(failure.subject(), failure.what());
    listing.said.status = failure.status();
  }
  listing.said.err = withoutSerialNumbers(listing.said.err, messageOfCpuinfo);
  listing.parameters = board.parameters();
  return listing;
}

}  // namespace

recording::Recording recordBoard(bool madeUpMacs) {
  const auto host = std::make_shared<ThisMachine>();
  Macs macs(madeUpMacs);
  recording::Recording recording;
  recording.version = OVXID_VERSION;
  recordKernel(*host, recording);
  recordTree(recording);
  recording.cpuinfo = contentOfFile(*host, File::cpuinfo);
  recording.cpuinfo.bytes = withoutSerialNumbers(recording.cpuinfo.bytes);
  recording.catalogue = contentOfFile(*host, File::catalogue);
  Listing listing = listHere(host);
  const std::string wan = wanOf(listing.parameters);
  recordInterfaces(*host, wan, macs, recording);
  hideMac(*host, wan, macs, listing.said);
  recording.said = std::move(listing.said);
  return recording;
}

}  // namespace ovxid::cli
