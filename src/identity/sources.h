#ifndef OVXID_IDENTITY_SOURCES_H
#define OVXID_IDENTITY_SOURCES_H

#include <sys/utsname.h>

#include <optional>

#include "OvxIdentifier.h"

namespace ovxid {

// What a source has to go by.
struct Search {
  const std::vector<HardwareIdentity>& catalogue;
  cQlog* logger;
  // What uname(2) said: none before a source asks, and none when it fails.
  std::optional<utsname> kernel;
};

// What a source found. The identifier keeps what it has where there is nothing here.
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
