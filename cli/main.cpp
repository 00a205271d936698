#include <csignal>
#include <exception>
#include <iostream>
#include <new>

#include "commands.h"

namespace {

int performOrComplain(int argc, char** argv) {
  // Ignore SIGPIPE, so that a closed pipe becomes a write error that we can report.
  const SignalHandler inherited = std::signal(SIGPIPE, SIG_IGN);
  try {
    return perform(readArguments(argc, argv), inherited);
  } catch (const UsageError& error) {
    complain("usage", std::string(error.what()) + " (see 'ovxid --help')");
    return exit_status::usage;
  } catch (const IdentificationError& error) {
    complain("/proc/cpuinfo", error.what());
    return exit_status::notIdentified;
  }
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return performOrComplain(argc, argv);
  } catch (const std::bad_alloc&) {  // GCOVR_EXCL_BR_LINE: see below
    // A text of fixed size, since nothing can be composed without memory.
    std::cerr << "ovxid: memory: Cannot allocate memory\n";
    return exit_status::ownFailure;
    // GCOVR_EXCL_START: no input is known that leads here
  } catch (const std::exception& error) {
    complain("internal error", error.what());
    return exit_status::ownFailure;
    // GCOVR_EXCL_STOP
  }
}
