// Starting the front end.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

#include <array>

#include "simulation/world.h"

namespace {

void run(benchmark::State& state, std::array<char*, 3> arguments) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", 1 /* O_WRONLY */, 0);
  while (state.KeepRunning()) {
    pid_t child = 0;
    int status = 0;
    if (posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ) != 0 ||
        waitpid(child, &status, 0) < 0 || status != 0) {
      state.SkipWithError("the program does not run");
    }
  }
  posix_spawn_file_actions_destroy(&actions);
}

char frontEnd[] = OVXID_CLI;
char list[] = "list";
char empty[] = OVXID_EMPTY;

void start(benchmark::State& state) { run(state, {frontEnd, list, nullptr}); }
void startFloor(benchmark::State& state) { run(state, {empty, nullptr, nullptr}); }

BENCHMARK(start)->Name("start")->UseRealTime();
BENCHMARK(startFloor)->Name("floor/start")->UseRealTime();

}  // namespace
