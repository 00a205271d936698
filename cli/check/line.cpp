#include "check/line.h"

#include <algorithm>

namespace ovxid::cli {

namespace {

// Several colons in a row are one.
std::vector<std::string_view> valuesOf(std::string_view text) {
  std::vector<std::string_view> values;
  while (!text.empty()) {
    const std::string_view value = text.substr(0, text.find(':'));
    text.remove_prefix(std::min(value.size() + 1, text.size()));
    if (!value.empty()) {
      values.push_back(value);
    }
  }
  return values;
}

}  // namespace

Line lineOf(std::size_t number, std::string_view text, std::int32_t boardNumber) {
  return {number, valuesOf(text), boardNumber};
}

}  // namespace ovxid::cli
