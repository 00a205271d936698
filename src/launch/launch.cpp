#include "launch/launch.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace ovxid {

namespace {

// A parameter that setenv(3) refuses is left out: a device-tree property may have a name that no
// variable can have.
void exportList(const std::vector<ovx_param>& list) {
  for (const ovx_param& param : list) {
    setenv(param.name.c_str(), param.value.c_str(), 1);
  }
}

int launchShell(int argc, char** argv) {
  const char* const chosen = std::getenv("SHELL");
  const char* const shell = chosen == nullptr ? ovxDefaultShell : chosen;
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): execvp(3) does not change the strings
  std::vector<char*> arguments{const_cast<char*>(shell)};
  arguments.insert(arguments.end(), argv, argv + argc + 1);
  return execvp(shell, arguments.data());
}

}  // namespace

int launch(const std::vector<ovx_param>& list, int argc, char** argv, bool useShell) {
  if (useShell && argc < 0) {
    errno = EINVAL;
    return -1;
  }
  exportList(list);
  return useShell ? launchShell(argc, argv) : execvp(argv[0], argv);
}

}  // namespace ovxid
