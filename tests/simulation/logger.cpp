#include "simulation/logger.h"

bool operator==(const Message& left, const Message& right) {
  return left.level == right.level && left.text == right.text;
}

Messages operator+(Messages messages, const Message& next) {
  messages.push_back(next);
  return messages;
}

Messages operator+(Messages left, const Messages& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

Message debug(const std::string& text) { return {"debug", text}; }
Message info(const std::string& text) { return {"info", text}; }
Message warn(const std::string& text) { return {"warn", text}; }
Message error(const std::string& text) { return {"error", text}; }
Message fatal(const std::string& text) { return {"fatal", text}; }

void cQlog::debug(const char* format, ...) { messages.push_back(::debug(format)); }
void cQlog::info(const char* format, ...) { messages.push_back(::info(format)); }
void cQlog::warn(const char* format, ...) { messages.push_back(::warn(format)); }
void cQlog::error(const char* format, ...) { messages.push_back(::error(format)); }
void cQlog::fatal(const char* format, ...) { messages.push_back(::fatal(format)); }
