#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "OvxIdentifier.h"

namespace ovxid {

namespace {

// What setenv refuses is passed over: a property of the device tree may have any name.
void exportParams(const std::vector<ovx_param>& params) {
  for (const ovx_param& param : params) {
    setenv(param.name.c_str(), param.value.c_str(), 1);
  }
}

int executeShell(int argc, char** argv) {
  char defaultShell[] = "/bin/bash";
  char* shell = std::getenv("SHELL");
  if (shell == nullptr) {
    shell = defaultShell;
  }
  std::vector<char*> arguments{shell};
  arguments.insert(arguments.end(), argv, argv + argc + 1);
  return execvp(shell, arguments.data());
}

}  // namespace

}  // namespace ovxid

int OvxIdentifier::execute(int argc, char** argv, bool useShell) {
  if (useShell && argc < 0) {
    errno = EINVAL;
    return -1;
  }
  ovxid::exportParams(mParams);
  return useShell ? ovxid::executeShell(argc, argv) : execvp(argv[0], argv);
}
