#include <cxxabi.h>
#include <unistd.h>

#include <cstdlib>
#include <exception>
#include <new>
#include <string_view>
#include <typeinfo>

#include "command_line/command_line.h"
#include "output/diagnostics.h"
#include "output/output.h"

namespace ovxid::cli {

namespace {

// A text of fixed size, since nothing can be composed without memory.
constexpr std::string_view memoryComplaint = "ovxid: memory: Cannot allocate memory\n";

// The destructors of the JSON library take memory. Where there is none, they end the process.
[[noreturn]] void complainAndEnd() {
  const std::type_info* const exception = abi::__cxa_current_exception_type();
  // GCOVR_EXCL_BR_START: no test can make an error that should not happen
  const std::string_view line = exception != nullptr && *exception == typeid(std::bad_alloc)
                                    ? memoryComplaint
                                    : "ovxid: internal error: the process was ended\n";
  // GCOVR_EXCL_BR_STOP
  [[maybe_unused]] const ssize_t count = write(STDERR_FILENO, line.data(), line.size());
  std::_Exit(exit_status::ownFailure.value);
}

int perform(int argc, char** argv) {
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
  std::set_terminate(ovxid::cli::complainAndEnd);
  try {
    return ovxid::cli::perform(argc, argv);
  } catch (const std::bad_alloc&) {  // GCOVR_EXCL_BR_LINE: nothing else is thrown
    ovxid::cli::tell(ovxid::cli::memoryComplaint);
    return ownFailure.value;
    // GCOVR_EXCL_START: no test can make an error that should not happen
  } catch (const std::exception& error) {
    complain("internal error", error.what());
    return ownFailure.value;
  }
  // GCOVR_EXCL_STOP
}
