// Identifying a PC that has no catalogue file.
#include <OvxIdentifier.h>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/utsname.h>

#include "simulation/replaced_directory.h"

namespace {

void identify(benchmark::State& state) {
  const ReplacedDirectory etc("/etc");
  while (state.KeepRunning()) {
    OvxIdentifier identifier(nullptr);
    if (identifier.getHardwareNumber() != 64) {
      state.SkipWithError("this machine is no PC");
    }
  }
}

// The questions to the kernel alone: three files that are not there, and its name.
void identifyFloor(benchmark::State& state) {
  const ReplacedDirectory etc("/etc");
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(open("/etc/known_ovx_ids", O_RDONLY));
    benchmark::DoNotOptimize(open("/proc/device-tree/orvanix/boardid", O_RDONLY));
    benchmark::DoNotOptimize(open("/proc/device-tree/orvanix/description", O_RDONLY));
    utsname kernel;
    benchmark::DoNotOptimize(uname(&kernel));
  }
}

BENCHMARK(identify)->Name("identification");
BENCHMARK(identifyFloor)->Name("floor/identification");

}  // namespace
