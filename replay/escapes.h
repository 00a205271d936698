#ifndef OVXID_REPLAY_ESCAPES_H
#define OVXID_REPLAY_ESCAPES_H

#include <optional>
#include <string>
#include <string_view>

namespace ovxid::replay {

// The text that an escaped one of a recording stands for. None when a backslash begins no escape.
std::optional<std::string> unescaped(std::string_view text);

}  // namespace ovxid::replay

#endif
