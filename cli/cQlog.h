#ifndef OVXID_CLI_CQLOG_H
#define OVXID_CLI_CQLOG_H

#include <string>
#include <utility>
#include <vector>

// The logger that the front end brings for the library. The library passes finished texts, so a '%'
// in one is a '%'. It finds the methods through the dynamic linker, so they must not be hidden.
class __attribute__((visibility("default"))) cQlog {
 public:
  struct Use {
    // Each message is a line on standard error, its level before it.
    bool print;
    // Each message is kept for messages().
    bool keep;
  };
  explicit cQlog(Use use);

  // Changes what is done with messages, and returns what was done before.
  Use use(Use use) { return std::exchange(mUse, use); }

  void debug(const char* message, ...);
  void info(const char* message, ...);
  void warn(const char* message, ...);
  void error(const char* message, ...);
  void fatal(const char* message, ...);

  const std::vector<std::string>& messages() const { return mMessages; }
  // Those that were kept, which are kept no longer.
  std::vector<std::string> takeMessages() { return std::exchange(mMessages, {}); }

 private:
  void take(const std::string& level, const std::string& message);

  Use mUse;
  bool mToTerminal;
  std::vector<std::string> mMessages;
};

#endif
