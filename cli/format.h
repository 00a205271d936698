#ifndef OVXID_CLI_FORMAT_H
#define OVXID_CLI_FORMAT_H

#include <string>
#include <string_view>

#include "board.h"

namespace ovxid::cli {

// A format of a listing: its row in the table.
struct Format {
  const char* name;
  const char* summary;
  // Whether the text names the source, which only the library's messages tell. Then the board must
  // keep them.
  bool needsMessages;
  // The text of a board whose parameters are collected.
  std::string (*write)(Board& board);
};

// The formats in the order in which the help shows them.
struct FormatTable {
  const Format* begin() const;
  const Format* end() const;
};

constexpr FormatTable formatTable;

// The format of this name. Throws Failure if there is none.
const Format& formatNamed(std::string_view name);

}  // namespace ovxid::cli

#endif
