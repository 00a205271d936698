#ifndef OVXID_CLI_SHELL_NAME_H
#define OVXID_CLI_SHELL_NAME_H

#include <string_view>

namespace ovxid::cli {

// Whether a shell can have a variable of this name.
bool isShellName(std::string_view name);

}  // namespace ovxid::cli

#endif
