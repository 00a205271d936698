#include "hexadecimal.h"

namespace ovxid::cli {

std::string hexadecimal(std::string_view bytes) {
  constexpr char digits[] = "0123456789abcdef";
  std::string text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text += {digits[value / 16], digits[value % 16]};
  }
  return text;
}

}  // namespace ovxid::cli
