#ifndef OVXID_LOG_CQLOG_H
#define OVXID_LOG_CQLOG_H

// The board's logging library is closed and its header is not to be had, so this declares what the
// identifier calls. The references are weak: a process that brings no logger loads the library all
// the same.
class cQlog {
 public:
  [[gnu::weak]] void debug(const char* format, ...);
  [[gnu::weak]] void info(const char* format, ...);
  [[gnu::weak]] void warn(const char* format, ...);
  [[gnu::weak]] void error(const char* format, ...);
  [[gnu::weak]] void fatal(const char* format, ...);
};

#endif
