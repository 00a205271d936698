#ifndef OVXID_CLI_CHECK_EARLIER_BOARDS_H
#define OVXID_CLI_CHECK_EARLIER_BOARDS_H

#include <memory_resource>
#include <string_view>
#include <unordered_map>

#include "check/findings.h"
#include "check/line.h"

namespace ovxid::cli {

// What the lines before one have taken: the first board that fits is found, no later one.
class EarlierBoards {
 public:
  // Makes room for so many lines and texts: to grow takes longer than to begin large.
  EarlierBoards(std::size_t lines, std::size_t texts);

  // Compares a line with those before it, and remembers it for those behind it.
  void checkAndAdd(const Line& line, Findings& findings);

 private:
  // The first lines that have a text as a name and as an alias, 0 if none has.
  struct Takers {
    std::size_t byName = 0;
    std::size_t byAlias = 0;
  };

  void takeNumber(const Line& line, Findings& findings);
  // These return whether the library can find the board by it.
  bool takeName(const Line& line, Findings& findings);
  bool takeAlias(std::string_view alias, const Line& line, Findings& findings);

  // One table for both: a look into a large one costs more than all else that is done for a line.
  std::pmr::monotonic_buffer_resource mMemory;
  std::pmr::unordered_map<std::string_view, Takers> mTexts;
  std::pmr::unordered_map<std::int32_t, std::size_t> mNumbers;
};

}  // namespace ovxid::cli

#endif
