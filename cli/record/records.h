#ifndef OVXID_CLI_RECORD_RECORDS_H
#define OVXID_CLI_RECORD_RECORDS_H

#include <optional>
#include <string>

#include "record/directory.h"
#include "record/macs.h"

// What is written down of a board.
namespace ovxid::cli {

// What the library and the front end say here. Returns the listing.
std::string recordWhatIsSaid(Macs& macs, const RecordingDirectory& directory);

// The first OVX_WAN of a listing; empty if there is none.
std::string wanInterfaceIn(const std::string& listing);

// The kernel's list of addresses, and the WAN interface if it is not there.
void recordInterfaces(const std::string& wan, Macs& macs, const RecordingDirectory& directory);

// None if there is no such interface.
std::optional<Mac> macOf(const std::string& interface);

// The platform's node, cpuinfo, the catalogue, and what the kernel calls itself and the machine.
void recordFiles(const RecordingDirectory& directory);

}  // namespace ovxid::cli

#endif
