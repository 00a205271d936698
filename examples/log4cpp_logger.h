#ifndef LOG4CPP_LOGGER_H
#define LOG4CPP_LOGGER_H

#include <log4cpp/Category.hh>

// A logger for OvxIdentifier that hands every message to a log4cpp category, which must be there as
// long as the logger is.
//
// libovxid.so.1 calls the five methods, and the dynamic linker looks for them when the program
// starts. The library's references are weak, so that programs without a logger do not need the
// methods: one that is not found is a null pointer. There are two ways not to be found, of which no
// compiler or linker warns, and with each the first message crashes the program.
//
// 1. Methods that are defined inside the class are inline, and the compiler leaves out inline
//    methods that the program itself does not call. So they are only declared here.
// 2. In a program that is compiled with -fvisibility=hidden, methods are hidden from the dynamic
//    linker, unless their class is marked as visible. This one is.
class __attribute__((visibility("default"))) cQlog {
 public:
  explicit cQlog(log4cpp::Category& category);

  void debug(const char* text, ...);
  void info(const char* text, ...);
  void warn(const char* text, ...);
  void error(const char* text, ...);
  void fatal(const char* text, ...);

 private:
  log4cpp::Category& mCategory;
};

#endif
