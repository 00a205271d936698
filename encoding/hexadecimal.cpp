#include "encoding/hexadecimal.h"

namespace ovxid {

namespace {

constexpr std::string_view digits = "0123456789abcdef";

}  // namespace

std::string hexadecimal(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text += {digits[value / 16], digits[value % 16]};
  }
  return text;
}

std::optional<std::string> bytesOfHexadecimal(std::string_view text) {
  std::string bytes;
  if (text.size() % 2 != 0) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const auto high = digits.find(text[i]);
    const auto low = digits.find(text[i + 1]);
    if (high == std::string_view::npos || low == std::string_view::npos) {
      return std::nullopt;
    }
    bytes += static_cast<char>(high * 16 + low);
  }
  return bytes;
}

}  // namespace ovxid
