#ifndef OVXID_CLI_VISIBLE_H
#define OVXID_CLI_VISIBLE_H

#include <string>
#include <string_view>

// What is done about bytes that do not show as they are.
namespace ovxid::cli {

// The text with a question mark for each control character and each byte that is no UTF-8: a
// terminal would obey them.
std::string harmless(std::string_view text);

// The text with an escape for each byte of these and of other characters that do not show, as the
// no-break space: \0, \t, \n, \r or \xHH. A backslash is doubled.
std::string visible(std::string_view text);

// The visible text between single quotes.
std::string shown(std::string_view text);

}  // namespace ovxid::cli

#endif
