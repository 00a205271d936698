#include "account.h"

#include <algorithm>
#include <string_view>

namespace ovxid::cli {

namespace {

// What follows this beginning of a message. None if no message begins so.
std::optional<std::string_view> behind(const Board& board, std::string_view beginning) {
  for (const std::string_view message : board.messages()) {
    if (message.substr(0, beginning.size()) == beginning) {
      return message.substr(beginning.size());
    }
  }
  return std::nullopt;
}

bool isSaid(const Board& board, std::string_view beginning) {
  return behind(board, beginning).has_value();
}

// A value that stands between this beginning and the single quote that ends the message. A NUL byte
// in the value ends the message before that: then the message does not tell it.
std::optional<std::string> quotedBehind(const Board& board, std::string_view beginning) {
  const std::optional<std::string_view> value = behind(board, beginning);
  if (!value || value->empty() || value->back() != '\'') {
    return std::nullopt;
  }
  return std::string(value->substr(0, value->size() - 1));
}

}  // namespace

const char* nameOf(Source source) {
  constexpr const char* names[] = {"device-tree", "kernel-release", "machine", "cpuinfo"};
  return names[static_cast<std::size_t>(source)];
}

// The last source that was tried is the one that decided. The machine has no message of its own: it
// is tried after the kernel's release, which says so when it decides.
std::optional<Source> decidingSource(const Board& board) {
  if (!board.isIdentified()) {
    return std::nullopt;
  }
  if (isSaid(board, "Finding the hardware idenitity with uname failed")) {
    return Source::cpuinfo;
  }
  if (isSaid(board, "Alias: ")) {
    return Source::kernelRelease;
  }
  return isSaid(board, "Attempting to find alias by uname") ? Source::machine : Source::deviceTree;
}

bool isCatalogueOpened(const Board& board) { return isSaid(board, "Opened file "); }

std::optional<std::string> suffixLookedUp(const Board& board) {
  return quotedBehind(board, "therefore possible alias of machine = '");
}

std::optional<std::string> hardwareLookedUp(const Board& board) {
  return quotedBehind(board, "Found possisble alias: '");
}

}  // namespace ovxid::cli
