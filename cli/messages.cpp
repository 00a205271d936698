#include "messages.h"

#include <unistd.h>

#include <string>

#include "output.h"
#include "visible.h"

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

Log messages(bool verbose) {
  if (!verbose) {
    return {};
  }
  return {isatty(STDERR_FILENO) != 0 ? tellHarmless : tellWhole, nullptr};
}

}  // namespace ovxid::cli
