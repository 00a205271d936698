#ifndef OVXID_IDENTITY_SOURCES_H
#define OVXID_IDENTITY_SOURCES_H

#include <sys/utsname.h>

#include <optional>

#include "OvxIdentifier.h"

namespace ovxid {

// What a source searches in.
struct Search {
  const std::vector<HardwareIdentity>& catalogue;
  cQlog* logger;
  // The answer of uname(2): none before a source has asked, and none when uname(2) failed.
  std::optional<utsname> kernel;
};

// What a source found. Where it found nothing, the identifier keeps the value that it has.
struct Finding {
  bool identified = false;
  std::optional<std::string> name;
  std::optional<std::vector<std::string>> aliases;
  std::optional<std::int32_t> number;
};

using Source = Finding(Search&);

Source identifyByDeviceTree;
Source identifyByKernelRelease;
Source identifyByMachine;
Source identifyByCpuinfo;

// The order in which they are tried, until one identifies the board.
constexpr Source* sources[] = {
    identifyByDeviceTree,
    identifyByKernelRelease,
    identifyByMachine,
    identifyByCpuinfo,
};

}  // namespace ovxid

#endif
