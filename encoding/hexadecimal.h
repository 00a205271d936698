#ifndef OVXID_ENCODING_HEXADECIMAL_H
#define OVXID_ENCODING_HEXADECIMAL_H

#include <optional>
#include <string>
#include <string_view>

namespace ovxid {

// Two small digits for each byte.
std::string hexadecimal(std::string_view bytes);

// None if the text is no such digits.
std::optional<std::string> bytesOfHexadecimal(std::string_view text);

}  // namespace ovxid

#endif
