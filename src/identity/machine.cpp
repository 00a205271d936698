#include <string_view>

#include "identity/sources.h"
#include "identity/well_known.h"

namespace ovxid {

Finding identifyByMachine(Search& search) {
  if (const int error = search.askKernel(); error != 0) {
    search.haveRead("uname", error);
    return {};
  }
  const std::string_view machine = search.kernel.machine;
  search.haveRead("uname", 0, machine);
  if (machine != "x86_64") {
    search.note("not x86_64");
    return {};
  }
  search.note("a PC");
  return {true, pcName, pcNumber, nullptr, nullptr};
}

}  // namespace ovxid
