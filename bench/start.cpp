// Starting the front end.
#include "process.h"

namespace {

void start(benchmark::State& state) { runProcess(state, {OVXID_CLI, "name"}); }
void startFloor(benchmark::State& state) { runProcess(state, {OVXID_EMPTY}); }

BENCHMARK(start)->Name("start")->UseRealTime();
BENCHMARK(startFloor)->Name("floor/start")->UseRealTime();

}  // namespace
