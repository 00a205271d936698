#include "diagnostics.h"

#include <iostream>

#include "visible.h"

namespace ovxid::cli {

void complain(const std::string& what, const std::string& why) {
  // A newline would make one line two.
  std::cerr << harmless("ovxid: " + (what.empty() ? "''" : what) + ": " + why) + "\n";
}

}  // namespace ovxid::cli
