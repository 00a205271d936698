#include <string_view>

#include "identity/sources.h"
#include "platform.h"

namespace ovxid {

Finding identifyByMachine(Search& search) {
  if (!search.kernel || std::string_view(search.kernel->machine) != "x86_64") {
    return {};
  }
  return {true, "x86_64 PC", std::nullopt, pcNumber};
}

}  // namespace ovxid
