#include "diagnostics.h"

#include "output.h"
#include "visible.h"

namespace ovxid::cli {

void complain(const std::string& what, const std::string& why) {
  std::string subject = what;
  if (subject.empty()) {
    subject = "''";
  }
  // A newline would make one line two.
  tell(harmless("ovxid: " + subject + ": " + why) + "\n");
}

}  // namespace ovxid::cli
