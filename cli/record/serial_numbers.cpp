#include "record/serial_numbers.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace ovxid::cli {

namespace {

// What stands before the number: in lines of ARM's kernels, and in those of mainframes.
constexpr std::string_view fields[] = {"Serial", "identification ="};

void zeroBehind(std::string_view field, std::string& text) {
  for (auto at = text.find(field); at != std::string::npos; at = text.find(field, at + 1)) {
    const auto begin = text.begin() + static_cast<std::ptrdiff_t>(at + field.size());
    const auto end =
        std::find_if(begin, text.end(), [](char byte) { return byte == '\n' || byte == ','; });
    std::replace_if(
        begin, end, [](unsigned char byte) { return std::isxdigit(byte) != 0; }, '0');
  }
}

}  // namespace

std::string withoutSerialNumbers(std::string text) {
  for (const std::string_view field : fields) {
    zeroBehind(field, text);
  }
  return text;
}

}  // namespace ovxid::cli
