#include "replay/transcript.h"

#include <algorithm>
#include <string_view>

#include "encoding/visible.h"

namespace ovxid::replay {

namespace {

// Editors remove a blank at the end of a line, and readers do not see it.
std::string textOf(std::string_view line) {
  const bool endsInBlank = !line.empty() && line.back() == ' ';
  line.remove_suffix(endsInBlank ? 1 : 0);
  return visible(line) + (endsInBlank ? "\\x20" : "");
}

// Each line behind a mark. One that nothing ends has a backslash there.
std::string marked(const std::string& mark, std::string_view lines) {
  std::string text;
  while (!lines.empty()) {
    const std::size_t end = std::min(lines.find('\n'), lines.size());
    const bool isWhole = end < lines.size();
    const std::string line = textOf(lines.substr(0, end)) + (isWhole ? "" : "\\");
    text.append(mark).append(line.empty() ? "" : " ").append(line).append("\n");
    lines.remove_prefix(isWhole ? end + 1 : end);
  }
  return text;
}

}  // namespace

std::string transcript(const recording::Said& said) {
  return marked("out|", said.out) + marked("err|", said.err) + "exit " +
         std::to_string(said.status) + "\n";
}

}  // namespace ovxid::replay
