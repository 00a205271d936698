// Checking a catalogue in which nothing is wrong. The floor loads it.
#include <OvxIdentifier.h>

#include "catalogue_file.h"
#include "process.h"

namespace {

void check(benchmark::State& state) {
  // Where the library does not read it.
  const CatalogueFile catalogue("/etc/catalogue", state.range(0));
  runProcess(state, {OVXID_CLI, "check", "/etc/catalogue"});
}

void checkFloor(benchmark::State& state) {
  const CatalogueFile catalogue("/etc/known_ovx_ids", state.range(0));
  while (state.KeepRunning()) {
    const OvxIdentifier identifier(nullptr);
  }
}

BENCHMARK(check)->Name("check")->Arg(1000000)->UseRealTime();
BENCHMARK(checkFloor)->Name("floor/check")->Arg(1000000)->UseRealTime();

}  // namespace
