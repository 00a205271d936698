#include "visible.h"

#include <algorithm>

#include "utf8.h"

namespace ovxid::cli {

namespace {

constexpr char digits[] = "0123456789abcdef";

std::string escaped(char byte) {
  switch (byte) {
    case '\0':
      return "\\0";
    case '\t':
      return "\\t";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    default:
      const auto value = static_cast<unsigned char>(byte);
      return {'\\', 'x', digits[value / 16], digits[value % 16]};
  }
}

// Whether a character is a control character.
bool isControl(std::string_view character) {
  if (character.size() == 1) {
    return (character[0] >= '\0' && character[0] < ' ') || character[0] == '\x7f';
  }
  // U+0080 to U+009F.
  return character.size() == 2 && character[0] == '\xc2' && character[1] < '\xa0';
}

// The text with each part replaced that is a control character or no UTF-8.
template <typename Replace>
std::string replaced(std::string_view text, Replace replace) {
  std::string result;
  while (!text.empty()) {
    const std::size_t length = characterLength(text);
    const std::string_view part = text.substr(0, std::max<std::size_t>(length, 1));
    result += length == 0 || isControl(part) ? replace(part) : std::string(part);
    text.remove_prefix(part.size());
  }
  return result;
}

}  // namespace

std::string harmless(std::string_view text) {
  return replaced(text, [](std::string_view) { return "?"; });
}

std::string visible(std::string_view text) {
  return replaced(text, [](std::string_view part) {
    std::string escapes;
    for (const char byte : part) {
      escapes += escaped(byte);
    }
    return escapes;
  });
}

std::string shown(std::string_view text) { return "'" + visible(text) + "'"; }

}  // namespace ovxid::cli
