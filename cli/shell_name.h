#ifndef OVXID_CLI_SHELL_NAME_H
#define OVXID_CLI_SHELL_NAME_H

#include <string>
#include <string_view>

namespace ovxid::cli {

// Whether a shell can have a variable of this name.
bool isShellName(std::string_view name);

// A line of comment that tells why a listing leaves out a variable. The name does not end it: a
// backslash there would make systemd take the next line for a part of the comment.
std::string leftOut(const std::string& name, const std::string& why);

}  // namespace ovxid::cli

#endif
