#ifndef OVXID_CLI_FORMATS_FORMAT_H
#define OVXID_CLI_FORMATS_FORMAT_H

#include <string>
#include <string_view>

#include "board/board.h"

namespace ovxid::cli {

// A format of a listing: its row in the table.
struct Format {
  const char* name;
  const char* summary;
  // The text of a board whose parameters are collected.
  std::string (*write)(const Board& board);
};

constexpr const char* defaultFormat = "plain";

// The formats in the order in which the help shows them.
struct FormatTable {
  const Format* begin() const;
  const Format* end() const;
};

constexpr FormatTable formatTable;

// The format of this name. Throws Failure if there is none.
const Format& formatNamed(std::string_view name);

// Whether a shell can have a variable of this name.
bool isShellName(std::string_view name);

// A line of comment that tells why a listing leaves out a variable. The name does not end it: a
// backslash there would make systemd take the next line for a part of the comment.
std::string leftOut(const std::string& name, const std::string& why);

}  // namespace ovxid::cli

#endif
