#include "command.h"

#include <algorithm>

namespace ovxid::cli {

bool Invocation::has(std::string_view name) const {
  return std::any_of(options.begin(), options.end(),
                     [&](const auto& option) { return option.first == name; });
}

const char* Invocation::option(std::string_view name, const char* otherwise) const {
  const auto last = std::find_if(options.rbegin(), options.rend(),
                                 [&](const auto& option) { return option.first == name; });
  return last == options.rend() ? otherwise : last->second;
}

}  // namespace ovxid::cli
