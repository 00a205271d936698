#include "recording/mac.h"

#include "encoding/hexadecimal.h"

namespace ovxid::recording {

namespace {

constexpr char separator = ':';
constexpr std::size_t digits = 2;

}  // namespace

std::string textOf(const MacAddress& mac) {
  std::string text;
  for (const std::uint8_t byte : mac) {
    const auto part = static_cast<char>(byte);
    if (!text.empty()) {
      text += separator;
    }
    text += hexadecimal({&part, 1});
  }
  return text;
}

std::optional<MacAddress> macOf(std::string_view text) {
  MacAddress mac{};
  if (text.size() != mac.size() * (digits + 1) - 1) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < mac.size(); ++i) {
    const std::size_t at = i * (digits + 1);
    const std::optional<std::string> byte = bytesOfHexadecimal(text.substr(at, digits));
    if (!byte || (i > 0 && text[at - 1] != separator)) {
      return std::nullopt;
    }
    mac[i] = static_cast<std::uint8_t>(byte->front());
  }
  return mac;
}

}  // namespace ovxid::recording
