#ifndef OVXID_ENCODING_UTF8_H
#define OVXID_ENCODING_UTF8_H

#include <cstddef>
#include <string_view>

namespace ovxid {

constexpr std::string_view noBreakSpace = "\xc2\xa0";
constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

// How many bytes the character has with which the text begins: 0 if it is empty or does not begin
// with a character of UTF-8.
std::size_t characterLength(std::string_view text);

bool isUtf8(std::string_view text);

// Whether a text of UTF-8 has a code point that Unicode will never make a character, as U+FFFE.
bool hasNoncharacter(std::string_view text);

}  // namespace ovxid

#endif
