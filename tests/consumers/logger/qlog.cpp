#include "qlog.h"

#include <cstdarg>
#include <cstdio>

void cQlog::debug(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  std::vprintf(format, arguments);
  va_end(arguments);
  std::puts("");
}

void cQlog::info(const char*, ...) {}
void cQlog::warn(const char*, ...) {}
void cQlog::error(const char*, ...) {}
void cQlog::fatal(const char*, ...) {}
