#ifndef OVXID_ENCODING_ASCII_H
#define OVXID_ENCODING_ASCII_H

#include <string>
#include <string_view>

// Of ASCII alone, whatever the locale.
namespace ovxid {

constexpr bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }
constexpr bool isCapital(char byte) { return byte >= 'A' && byte <= 'Z'; }
constexpr bool isSmall(char byte) { return byte >= 'a' && byte <= 'z'; }

constexpr char toSmall(char byte) {
  return isCapital(byte) ? static_cast<char>(byte - 'A' + 'a') : byte;
}

std::string toSmallLetters(std::string_view text);

constexpr bool beginsWith(std::string_view text, std::string_view part) {
  return text.substr(0, part.size()) == part;
}

constexpr bool endsWith(std::string_view text, std::string_view part) {
  return text.size() >= part.size() && text.substr(text.size() - part.size()) == part;
}

// Without the NUL byte that ends a string in the device tree.
constexpr std::string_view withoutLastNul(std::string_view value) {
  return !value.empty() && value.back() == '\0' ? value.substr(0, value.size() - 1) : value;
}

}  // namespace ovxid

#endif
