#include "encoding/utf8.h"

#include <algorithm>

namespace ovxid {

namespace {

// The first bytes of one length of character, and what its second byte may be: other second bytes
// would encode a surrogate, a number above the last one, or one that fits into fewer bytes.
struct Form {
  unsigned char first;
  unsigned char last;
  unsigned char secondFirst;
  unsigned char secondLast;
  std::size_t length;
};

constexpr Form forms[] = {
    {0x00, 0x7f, 0x00, 0x00, 1}, {0xc2, 0xdf, 0x80, 0xbf, 2}, {0xe0, 0xe0, 0xa0, 0xbf, 3},
    {0xe1, 0xec, 0x80, 0xbf, 3}, {0xed, 0xed, 0x80, 0x9f, 3}, {0xee, 0xef, 0x80, 0xbf, 3},
    {0xf0, 0xf0, 0x90, 0xbf, 4}, {0xf1, 0xf3, 0x80, 0xbf, 4}, {0xf4, 0xf4, 0x80, 0x8f, 4},
};

unsigned char byteAt(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

// U+FDD0 to U+FDEF, and the last two of each plane.
bool isNoncharacter(std::string_view character) {
  const unsigned char first = byteAt(character, 0);
  if (first == 0xef && byteAt(character, 1) == 0xb7) {
    return byteAt(character, 2) >= 0x90 && byteAt(character, 2) <= 0xaf;
  }
  const std::string_view end =
      character.substr(character.size() - std::min<std::size_t>(2, character.size()));
  if (end != "\xbf\xbe" && end != "\xbf\xbf") {
    return false;
  }
  return character.size() == 4 ? (byteAt(character, 1) & 0x0f) == 0x0f : first == 0xef;
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xc0) == 0x80; }

bool begins(std::string_view text, const Form& form) {
  if (text.size() < form.length || byteAt(text, 0) < form.first || byteAt(text, 0) > form.last) {
    return false;
  }
  if (form.length == 1) {
    return true;
  }
  const std::string_view rest = text.substr(2, form.length - 2);
  return byteAt(text, 1) >= form.secondFirst && byteAt(text, 1) <= form.secondLast &&
         std::all_of(rest.begin(), rest.end(), isContinuation);
}

}  // namespace

std::size_t characterLength(std::string_view text) {
  const auto* const form = std::find_if(std::begin(forms), std::end(forms),
                                        [&](const Form& each) { return begins(text, each); });
  return form == std::end(forms) ? 0 : form->length;
}

bool hasNoncharacter(std::string_view text) {
  while (!text.empty()) {
    const std::string_view character = text.substr(0, characterLength(text));
    if (isNoncharacter(character)) {
      return true;
    }
    text.remove_prefix(character.size());
  }
  return false;
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = characterLength(text);
    if (length == 0) {
      return false;
    }
    text.remove_prefix(length);
  }
  return true;
}

}  // namespace ovxid
