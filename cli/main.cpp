#include <exception>
#include <iostream>
#include <new>

#include "command_line.h"
#include "diagnostics.h"
#include "output.h"

namespace ovxid::cli {

namespace {

int performOrComplain(int argc, char** argv) {
  try {
    const Invocation invocation = readCommandLine(argc, argv);
    return invocation.command->perform(invocation);
  } catch (const Failure& failure) {
    complain(failure.subject(), failure.what());
    return failure.status();
  }
}

}  // namespace

}  // namespace ovxid::cli

int main(int argc, char** argv) {
  using ovxid::cli::complain;
  using ovxid::cli::exit_status::ownFailure;
  ovxid::cli::turnSignalsIntoErrors();
  try {
    return ovxid::cli::performOrComplain(argc, argv);
  } catch (const std::bad_alloc&) {  // GCOVR_EXCL_BR_LINE: see below
    // A text of fixed size, since nothing can be composed without memory.
    std::cerr << "ovxid: memory: Cannot allocate memory\n";
    return ownFailure.value;
    // GCOVR_EXCL_START: no input is known that leads here
  } catch (const std::exception& error) {
    complain("internal error", error.what());
    return ownFailure.value;
    // GCOVR_EXCL_STOP
  }
}
