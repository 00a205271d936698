#include "left_out.h"

#include "visible.h"

namespace ovxid::cli {

std::string leftOut(const std::string& name, const std::string& why) {
  return "# " + visible(name) + " is left out: " + why + "\n";
}

}  // namespace ovxid::cli
