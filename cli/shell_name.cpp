#include "shell_name.h"

#include <algorithm>

#include "ascii.h"

namespace ovxid::cli {

namespace {

bool isNameByte(char byte) {
  return isDigit(byte) || isSmall(byte) || isCapital(byte) || byte == '_';
}

}  // namespace

bool isShellName(std::string_view name) {
  return !name.empty() && !isDigit(name.front()) &&
         std::all_of(name.begin(), name.end(), isNameByte);
}

}  // namespace ovxid::cli
