#ifndef OVXID_ENCODING_VISIBLE_H
#define OVXID_ENCODING_VISIBLE_H

#include <string>
#include <string_view>

// What is done about bytes that do not show as they are.
namespace ovxid {

// Whether the text is UTF-8 and has no control character.
bool isPrintable(std::string_view text);

// The text with a question mark for each byte that is no UTF-8 and each character that does not
// show: a terminal would obey it, or hide what is there, as the marks that change the direction of
// letters.
std::string harmless(std::string_view text);

// The text with an escape for each byte of these: \0, \t, \n, \r or \xHH. A backslash is doubled.
std::string visible(std::string_view text);

// What of a value is shown. A line is for people: of a long value, the beginning has to do.
std::string_view beginningOf(std::string_view value);

// The visible beginning of the value between single quotes, and the length of a value that is
// longer.
std::string shown(std::string_view value);

}  // namespace ovxid

#endif
