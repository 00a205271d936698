#ifndef OVXID_CLI_ASCII_H
#define OVXID_CLI_ASCII_H

// Of ASCII alone, whatever the locale.
namespace ovxid::cli {

constexpr bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }
constexpr bool isCapital(char byte) { return byte >= 'A' && byte <= 'Z'; }
constexpr bool isSmall(char byte) { return byte >= 'a' && byte <= 'z'; }

constexpr char toSmall(char byte) {
  return isCapital(byte) ? static_cast<char>(byte - 'A' + 'a') : byte;
}

}  // namespace ovxid::cli

#endif
