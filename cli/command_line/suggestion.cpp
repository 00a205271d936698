#include "command_line/suggestion.h"

#include <algorithm>
#include <cstddef>

#include "encoding/ascii.h"

namespace ovxid::cli {

namespace {

bool isSame(char one, char other) { return toSmall(one) == toSmall(other); }

using Row = std::vector<std::size_t>;

// How many letters have to be added, removed or replaced, or pairs of neighbours swapped, to make
// one word of the other.
std::size_t distance(std::string_view from, std::string_view to) {
  std::vector<Row> rows(from.size() + 1, Row(to.size() + 1));
  for (std::size_t i = 0; i <= from.size(); ++i) {
    for (std::size_t j = 0; j <= to.size(); ++j) {
      if (i == 0 || j == 0) {
        rows[i][j] = i + j;
        continue;
      }
      const std::size_t replaced = rows[i - 1][j - 1] + (isSame(from[i - 1], to[j - 1]) ? 0 : 1);
      rows[i][j] = std::min({replaced, rows[i - 1][j] + 1, rows[i][j - 1] + 1});
      if (i > 1 && j > 1 && isSame(from[i - 1], to[j - 2]) && isSame(from[i - 2], to[j - 1])) {
        rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
      }
    }
  }
  return rows[from.size()][to.size()];
}

}  // namespace

std::string nearest(std::string_view word, const std::vector<std::string>& known) {
  // A third of the letters may be wrong, and one of a short word. No word of ours is as long as
  // this.
  constexpr std::size_t longest = 64;
  std::string result;
  std::size_t least = std::max<std::size_t>(std::min(word.size(), longest) / 3 + 1, 2);
  for (const std::string& each : known) {
    const std::size_t letters = distance(word.substr(0, longest), each);
    if (letters < least) {
      least = letters;
      result = each;
    }
  }
  return result;
}

std::string suggestion(std::string_view mistyped, const std::vector<std::string>& known) {
  const std::string meant = nearest(mistyped, known);
  if (meant.empty()) {
    return "";
  }
  return ", did you mean '" + meant + "'?";
}

}  // namespace ovxid::cli
