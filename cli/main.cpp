#include <stdexcept>

#include "commands.h"

int main(int argc, char** argv) {
  try {
    return perform(readArguments(argc, argv));
  } catch (const UsageError& error) {
    complain("usage", std::string(error.what()) + " (see 'ovxid --help')");
    return exit_status::usage;
  } catch (const std::out_of_range&) {
    complain("/proc/cpuinfo", "the Hardware line ends at its colon");
    return exit_status::notIdentified;
  }
}
