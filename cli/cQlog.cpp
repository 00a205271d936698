#include "cQlog.h"

#include <iostream>
#include <string>

namespace {

// Written in one call, so that the lines of several processes do not mix.
void printLine(const std::string& level, const char* message) {
  std::cerr << level + ": " + message + "\n";
}

}  // namespace

void cQlog::debug(const char* message, ...) { printLine("debug", message); }
// GCOVR_EXCL_START: the library has no messages of these levels
void cQlog::info(const char* message, ...) { printLine("info", message); }
void cQlog::fatal(const char* message, ...) { printLine("fatal", message); }
// GCOVR_EXCL_STOP
void cQlog::warn(const char* message, ...) { printLine("warn", message); }
void cQlog::error(const char* message, ...) { printLine("error", message); }
