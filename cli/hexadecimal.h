#ifndef OVXID_CLI_HEXADECIMAL_H
#define OVXID_CLI_HEXADECIMAL_H

#include <string>
#include <string_view>

namespace ovxid::cli {

// The bytes, two digits each.
std::string hexadecimal(std::string_view bytes);

}  // namespace ovxid::cli

#endif
