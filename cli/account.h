#ifndef OVXID_CLI_ACCOUNT_H
#define OVXID_CLI_ACCOUNT_H

#include <optional>
#include <string>

#include "board.h"

// What the library's messages tell about an identification. The board must keep them.
namespace ovxid::cli {

// Where the library looks for an identity, in the order in which it does.
enum class Source { deviceTree, kernelRelease, machine, cpuinfo };

// As programs read it.
const char* nameOf(Source source);

// The source that identified the board.
std::optional<Source> decidingSource(const Board& board);

// Whether the catalogue file was opened.
bool isCatalogueOpened(const Board& board);
// The part of the kernel's release that was looked up as an alias, if a message tells it.
std::optional<std::string> suffixLookedUp(const Board& board);
// The value of the Hardware line that was looked up as a name and as an alias, if a message tells
// it.
std::optional<std::string> hardwareLookedUp(const Board& board);

}  // namespace ovxid::cli

#endif
