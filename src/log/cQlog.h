#ifndef OVXID_LOG_CQLOG_H
#define OVXID_LOG_CQLOG_H

// The header of the board's closed logging library is not available, so this declares the methods
// that the identifier calls. The references are weak, so that a process without a logger can load
// this library.
class cQlog {
 public:
  [[gnu::weak]] void debug(const char* format, ...);
  [[gnu::weak]] void info(const char* format, ...);
  [[gnu::weak]] void warn(const char* format, ...);
  [[gnu::weak]] void error(const char* format, ...);
  [[gnu::weak]] void fatal(const char* format, ...);
};

#endif
