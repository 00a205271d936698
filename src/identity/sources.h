#ifndef OVXID_IDENTITY_SOURCES_H
#define OVXID_IDENTITY_SOURCES_H

#include <array>

#include "identity/search.h"

namespace ovxid {

using Identify = Finding(Search&);

// Where an identity may come from.
struct Source {
  Identify* identify;
  // For programs, and for people.
  const char* name;
  const char* title;
  // What people are told when it decides. Where the catalogue was searched, the place in it
  // follows.
  const char* decision;
};

Identify identifyByDeviceTree;
Identify identifyByKernelRelease;
Identify identifyByMachine;
Identify identifyByCpuinfo;

// In the order in which they are tried, until one identifies the board.
inline constexpr std::array sources = {
    Source{identifyByDeviceTree, "device-tree", "device tree", "the device tree says so"},
    Source{identifyByKernelRelease, "kernel-release", "kernel release",
           "the kernel's release matches an alias in "},
    Source{identifyByMachine, "machine", "machine", "the machine is x86_64"},
    Source{identifyByCpuinfo, "cpuinfo", "cpuinfo", "the Hardware line matches "},
};

}  // namespace ovxid

#endif
