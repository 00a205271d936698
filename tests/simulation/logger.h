#ifndef OVXID_TESTS_SIMULATION_LOGGER_H
#define OVXID_TESTS_SIMULATION_LOGGER_H

#include <ostream>
#include <string>
#include <vector>

struct Message {
  std::string level;
  std::string text;
};

using Messages = std::vector<Message>;

bool operator==(const Message& left, const Message& right);
Messages operator+(Messages messages, const Message& next);
Messages operator+(Messages left, const Messages& right);
void PrintTo(const Message& message, std::ostream* out);

Message debug(const std::string& text);
Message info(const std::string& text);
Message warn(const std::string& text);
Message error(const std::string& text);
Message fatal(const std::string& text);

// The logger of the tests. It keeps each message as the library passed it, and gives a '%' no
// meaning.
class cQlog {
 public:
  void debug(const char* format, ...);
  void info(const char* format, ...);
  void warn(const char* format, ...);
  void error(const char* format, ...);
  void fatal(const char* format, ...);

  Messages messages;
};

#endif
