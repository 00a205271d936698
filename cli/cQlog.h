#ifndef OVXID_CLI_CQLOG_H
#define OVXID_CLI_CQLOG_H

// The logger that the front end brings for the library: each message is a line on standard error,
// its level before it. The library passes finished texts, so a '%' in one is a '%'. It finds the
// methods through the dynamic linker, so they must not be hidden.
class __attribute__((visibility("default"))) cQlog {
 public:
  void debug(const char* message, ...);
  void info(const char* message, ...);
  void warn(const char* message, ...);
  void error(const char* message, ...);
  void fatal(const char* message, ...);
};

#endif
