#include "process.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

void runProcess(benchmark::State& state, std::vector<const char*> arguments) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", 1 /* O_WRONLY */, 0);
  arguments.push_back(nullptr);
  auto* const words = const_cast<char**>(arguments.data());
  while (state.KeepRunning()) {
    pid_t child = 0;
    int status = 0;
    if (posix_spawn(&child, arguments[0], &actions, nullptr, words, environ) != 0 ||
        waitpid(child, &status, 0) < 0 || status != 0) {
      state.SkipWithError("the program does not run");
    }
  }
  posix_spawn_file_actions_destroy(&actions);
}
