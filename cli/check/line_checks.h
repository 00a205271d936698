#ifndef OVXID_CLI_CHECK_LINE_CHECKS_H
#define OVXID_CLI_CHECK_LINE_CHECKS_H

#include "check/findings.h"
#include "check/line.h"

// What a line alone shows.
namespace ovxid::cli {

// Of any text of a line, whether or not the library reads it as a board.
void checkText(std::string_view text, std::size_t number, Findings& findings);

// Of a line that the library reads as a board.
void checkValues(const Line& line, Findings& findings);

// Whether this can follow the last '-' of a kernel's release.
bool canEndRelease(std::string_view alias);

// Whether a Hardware line can have this behind its colon.
bool canBeHardware(std::string_view text);

// Whether this looks like what a Hardware line has behind its colon.
bool isLikeHardware(std::string_view text);

}  // namespace ovxid::cli

#endif
