#include "shell_name.h"

#include <algorithm>

namespace ovxid::cli {

namespace {

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

bool isNameByte(char byte) {
  return isDigit(byte) || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
         byte == '_';
}

}  // namespace

bool isShellName(std::string_view name) {
  return !name.empty() && !isDigit(name.front()) &&
         std::all_of(name.begin(), name.end(), isNameByte);
}

}  // namespace ovxid::cli
