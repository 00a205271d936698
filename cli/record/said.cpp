#include "record/said.h"

#include <utility>

#include "board.h"
#include "diagnostics.h"
#include "format.h"
#include "output.h"
#include "record/serial_numbers.h"

namespace ovxid::cli {

namespace {

// The message about a line of cpuinfo.
constexpr std::string_view cpuinfoLine = "debug: Cpuinfo line: ";

}  // namespace

WhatIsSaid sayListing(std::shared_ptr<const Host> host) {
  WhatIsSaid result;
  const KeptErrors kept(result.said.err);
  Board board(std::move(host), true);
  try {
    board.identify();
    board.collect();
    result.said.out = formatNamed(defaultFormat).write(board);
  } catch (const Failure& failure) {  // GCOVR_EXCL_BR_LINE: std::bad_alloc goes on to main
    complain(failure.subject(), failure.what());
    result.said.status = failure.status();
  }
  result.said.err = withoutSerialNumbers(result.said.err, cpuinfoLine);
  result.parameters = board.parameters();
  return result;
}

}  // namespace ovxid::cli
