#ifndef OVXID_CLI_COMMAND_LINE_SUGGESTION_H
#define OVXID_CLI_COMMAND_LINE_SUGGESTION_H

#include <string>
#include <string_view>
#include <vector>

namespace ovxid::cli {

// The nearest of the known words; empty if none is near. Case does not count.
std::string nearest(std::string_view word, const std::vector<std::string>& known);

// ", did you mean 'WORD'?" with that one; empty if there is none.
std::string suggestion(std::string_view mistyped, const std::vector<std::string>& known);

}  // namespace ovxid::cli

#endif
