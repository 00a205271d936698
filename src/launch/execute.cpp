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
  const char* const chosen = std::getenv("SHELL");
  std::string shell = chosen == nullptr ? ovxDefaultShell : chosen;
  std::vector<char*> arguments{shell.data()};
  arguments.insert(arguments.end(), argv, argv + argc + 1);
  return execvp(shell.c_str(), arguments.data());
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
