#include "shell_name.h"

#include "visible.h"

namespace ovxid::cli {

// The names of all parameters begin with OVX_, so none begins with a digit.
bool isShellName(std::string_view name) {
  return name.find_first_not_of(
             "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_") ==
         std::string_view::npos;
}

std::string leftOut(const std::string& name, const std::string& why) {
  return "# " + visible(name) + " is left out: " + why + "\n";
}

}  // namespace ovxid::cli
