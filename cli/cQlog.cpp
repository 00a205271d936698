#include "cQlog.h"

#include <unistd.h>

#include <iostream>

#include "visible.h"

cQlog::cQlog(Use use) : mUse(use), mToTerminal(use.print && isatty(STDERR_FILENO) != 0) {}

void cQlog::debug(const char* message, ...) { take("debug", message); }
// GCOVR_EXCL_START: the library has no messages of these levels
void cQlog::info(const char* message, ...) { take("info", message); }
void cQlog::fatal(const char* message, ...) { take("fatal", message); }
// GCOVR_EXCL_STOP
void cQlog::warn(const char* message, ...) { take("warn", message); }
void cQlog::error(const char* message, ...) { take("error", message); }

void cQlog::take(const std::string& level, const std::string& message) {
  if (mUse.keep) {
    mMessages.push_back(message);
  }
  if (mUse.print) {
    // Written in one call, so that the lines of several processes do not mix.
    const std::string line = level + ": " + message;
    std::cerr << (mToTerminal ? ovxid::cli::harmless(line) : line) + "\n";
  }
}
