#ifndef OVXID_CLI_TEXT_FILE_H
#define OVXID_CLI_TEXT_FILE_H

#include <optional>
#include <string>
#include <string_view>

namespace ovxid::cli {

// All bytes of a file, or none of them if it cannot be read: then errno tells why. The path "-" is
// that of standard input.
std::optional<std::string> contentOf(const std::string& path);

// Takes the next line off the text, without its newline. None when nothing is left: what follows
// the last newline is a line unless it is empty.
std::optional<std::string_view> takeLine(std::string_view& text);

}  // namespace ovxid::cli

#endif
