#ifndef OVXID_TESTS_CONSUMERS_LOGGER_QLOG_H
#define OVXID_TESTS_CONSUMERS_LOGGER_QLOG_H

class cQlog {
 public:
  void debug(const char* format, ...);
  void info(const char* format, ...);
  void warn(const char* format, ...);
  void error(const char* format, ...);
  void fatal(const char* format, ...);
};

#endif
