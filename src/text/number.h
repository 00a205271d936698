#ifndef OVXID_TEXT_NUMBER_H
#define OVXID_TEXT_NUMBER_H

#include <cstdint>
#include <optional>
#include <string_view>

#include "text/input_file.h"

// Decimal numbers as a stream of the classic locale reads them: behind white space, with an
// optional sign, up to the first character that is no digit.
namespace ovxid {

// None when the text begins with no number, or with one outside the range.
std::optional<std::int32_t> readNumber(std::string_view text);

// None when the file is blank or cannot be read. A number outside the range gives the nearest
// limit, and other text gives 0.
std::optional<std::int32_t> firstNumber(InputFile& file);

}  // namespace ovxid

#endif
