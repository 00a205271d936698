#ifndef OVXID_CLI_VISIBLE_H
#define OVXID_CLI_VISIBLE_H

#include <string>
#include <string_view>

// What is done about bytes that a terminal obeys instead of showing them, or that are no UTF-8.
namespace ovxid::cli {

// The text with a question mark for each of them.
std::string harmless(std::string_view text);

// The text with an escape for each of them: \0, \t, \n, \r or \xHH.
std::string visible(std::string_view text);

// The visible text between single quotes.
std::string shown(std::string_view text);

}  // namespace ovxid::cli

#endif
