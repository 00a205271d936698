#ifndef OVXID_CLI_SUGGESTION_H
#define OVXID_CLI_SUGGESTION_H

#include <string>
#include <string_view>
#include <vector>

namespace ovxid::cli {

// ", did you mean 'WORD'?" with the nearest of the known words; empty if none is near.
std::string suggestion(std::string_view mistyped, const std::vector<std::string>& known);

}  // namespace ovxid::cli

#endif
