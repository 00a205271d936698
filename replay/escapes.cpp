#include "replay/escapes.h"

#include <charconv>

namespace ovxid::replay {

namespace {

// Takes two hexadecimal digits off the text.
std::optional<char> takeByte(std::string_view& text) {
  constexpr std::size_t digits = 2;
  const std::string_view number = text.substr(0, digits);
  const char* const end = number.data() + number.size();
  unsigned char value = 0;
  if (number.size() < digits || std::from_chars(number.data(), end, value, 16).ptr != end) {
    return std::nullopt;
  }
  text.remove_prefix(digits);
  return static_cast<char>(value);
}

// Takes what follows a backslash.
std::optional<char> takeEscape(std::string_view& text) {
  const char kind = text.empty() ? '\0' : text.front();
  text.remove_prefix(text.empty() ? 0 : 1);
  switch (kind) {
    case '\\':
      return '\\';
    case 't':
      return '\t';
    case 'x':
      return takeByte(text);
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<std::string> unescaped(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    std::optional<char> byte = text.front();
    text.remove_prefix(1);
    if (byte == '\\') {
      byte = takeEscape(text);
    }
    if (!byte) {
      return std::nullopt;
    }
    result += *byte;
  }
  return result;
}

}  // namespace ovxid::replay
