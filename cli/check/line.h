#ifndef OVXID_CLI_CHECK_LINE_H
#define OVXID_CLI_CHECK_LINE_H

#include <cstdint>
#include <string_view>
#include <vector>

namespace ovxid::cli {

// A line of a catalogue that the library reads as a board. Its values are parts of the file.
struct Line {
  std::size_t number;
  // Name, board number and aliases.
  std::vector<std::string_view> values;
  std::int32_t boardNumber;

  std::string_view name() const { return values[0]; }
  std::string_view numberText() const { return values[1]; }
  // Whether a carriage return ends the line, and so its last value.
  bool hasCarriageReturn() const { return values.back().back() == '\r'; }
};

}  // namespace ovxid::cli

#endif
