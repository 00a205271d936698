#include "encoding/utf8.h"

#include <utf8.h>

#include <algorithm>

namespace ovxid {

namespace {

// U+FDD0 to U+FDEF, and the last two of each plane.
bool isNoncharacter(utf8::uint32_t code) {
  return (code >= 0xfdd0 && code <= 0xfdef) || (code & 0xfffe) == 0xfffe;
}

}  // namespace

std::size_t characterLength(std::string_view text) {
  const std::size_t most = std::min<std::size_t>(text.size(), 4);
  for (std::size_t length = 1; length <= most; ++length) {
    if (isUtf8(text.substr(0, length))) {
      return length;
    }
  }
  return 0;
}

bool isUtf8(std::string_view text) { return utf8::is_valid(text.begin(), text.end()); }

bool hasNoncharacter(std::string_view text) {
  for (auto at = text.begin(); at != text.end();) {
    if (isNoncharacter(utf8::unchecked::next(at))) {
      return true;
    }
  }
  return false;
}

}  // namespace ovxid
