#include "encoding/visible.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "encoding/hexadecimal.h"
#include "encoding/utf8.h"

namespace ovxid {

namespace {

std::string escaped(char byte) {
  switch (byte) {
    case '\0':
      return "\\0";
    case '\t':
      return "\\t";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\\':
      return "\\\\";
    default:
      return "\\x" + hexadecimal({&byte, 1});
  }
}

// Whether a character is a control character.
bool isControl(std::string_view character) {
  if (character.size() == 1) {
    return character[0] < ' ' || character[0] == '\x7f';
  }
  // U+0080 to U+009F.
  return character.size() == 2 && character[0] == '\xc2' && character[1] < '\xa0';
}

// Characters that take no place, or look like a blank, or change the direction of what follows.
constexpr std::pair<std::string_view, std::string_view> unseen[] = {
    {"\xc2\xa0", "\xc2\xa0"},                  // no-break space
    {"\xc2\xad", "\xc2\xad"},                  // soft hyphen
    {"\xd8\x9c", "\xd8\x9c"},                  // direction
    {"\xe1\xa0\x8e", "\xe1\xa0\x8e"},          // zero width
    {"\xe2\x80\x80", "\xe2\x80\x8f"},          // spaces, zero width, direction
    {"\xe2\x80\xa8", "\xe2\x80\xaf"},          // line separator, direction
    {"\xe2\x81\x9f", "\xe2\x81\xaf"},          // spaces, zero width, direction
    {"\xe3\x80\x80", "\xe3\x80\x80"},          // wide space
    {"\xef\xbb\xbf", "\xef\xbb\xbf"},          // byte order mark
    {"\xef\xbf\xb9", "\xef\xbf\xbb"},          // marks of annotations
    {"\xf3\xa0\x80\x80", "\xf3\xa0\x81\xbf"},  // tags
};

bool isUnseen(std::string_view character) {
  return std::any_of(std::begin(unseen), std::end(unseen), [&](const auto& range) {
    return character.size() == range.first.size() && character >= range.first &&
           character <= range.second;
  });
}

// The text with each part replaced for which this holds, or that is no UTF-8.
template <typename Predicate, typename Replace>
std::string replaced(std::string_view text, Predicate isReplaced, Replace replace) {
  std::string result;
  while (!text.empty()) {
    const std::size_t length = characterLength(text);
    const std::string_view part = text.substr(0, std::max<std::size_t>(length, 1));
    if (length == 0 || isReplaced(part)) {
      result += replace(part);
    } else {
      result += part;
    }
    text.remove_prefix(part.size());
  }
  return result;
}

std::string escapes(std::string_view part) {
  std::string text;
  for (const char byte : part) {
    text += escaped(byte);
  }
  return text;
}

bool isHidden(std::string_view character) { return isControl(character) || isUnseen(character); }

bool isEscaped(std::string_view character) { return isHidden(character) || character == "\\"; }

}  // namespace

bool isPrintable(std::string_view text) {
  return replaced(text, isControl, [](std::string_view) { return ""; }).size() == text.size();
}

std::string harmless(std::string_view text) {
  return replaced(text, isHidden, [](std::string_view) { return "?"; });
}

std::string visible(std::string_view text) { return replaced(text, isEscaped, escapes); }

std::string_view beginningOf(std::string_view value) {
  constexpr std::size_t longest = 200;
  std::size_t end = 0;
  while (end < value.size()) {
    const std::size_t next = end + std::max<std::size_t>(characterLength(value.substr(end)), 1);
    if (next > longest) {
      break;
    }
    end = next;
  }
  return value.substr(0, end);
}

std::string shown(std::string_view value) {
  const std::string_view start = beginningOf(value);
  std::string text = "'" + visible(start) + "'";
  if (start != value) {
    text += "... (" + std::to_string(value.size()) + " bytes)";
  }
  return text;
}

}  // namespace ovxid
