#include "output/diagnostics.h"

#include "encoding/visible.h"
#include "output/output.h"

namespace ovxid::cli {

namespace {

const char* nameOf(Level level) {
  switch (level) {
    case Level::error:
      return "error";
    case Level::warn:
      return "warn";
    default:
      return "debug";
  }
}

void tellWhole(void* /*context*/, Level level, const char* message) {
  tell(std::string(nameOf(level)) + ": " + message + "\n");
}

void tellHarmless(void* /*context*/, Level level, const char* message) {
  tell(std::string(nameOf(level)) + ": " + harmless(message) + "\n");
}

}  // namespace

void complain(const std::string& what, const std::string& why) {
  std::string subject = what;
  if (subject.empty()) {
    subject = "''";
  }
  // A newline would make one line two.
  tell(harmless("ovxid: " + subject + ": " + why) + "\n");
}

Log messages(bool verbose) {
  if (!verbose) {
    return {};
  }
  return {isToldOnTerminal() ? tellHarmless : tellWhole, nullptr};
}

}  // namespace ovxid::cli
