#include "record/serial_numbers.h"

#include <algorithm>
#include <cctype>

namespace ovxid::cli {

namespace {

bool beginsWith(std::string_view text, std::string_view beginning) {
  return text.substr(0, beginning.size()) == beginning;
}

// Such as "Serial : 12ab", where the line has no other field.
std::size_t behindField(std::string_view line, std::string_view field) {
  const auto colon = line.find_first_not_of(" \t", field.size());
  const bool isField =
      beginsWith(line, field) && colon != std::string_view::npos && line[colon] == ':';
  return isField ? colon + 1 : std::string_view::npos;
}

// Such as "processor 0: version = 00, identification = 12AB, machine = 2964".
std::size_t behindFieldOf(std::string_view line, std::string_view beginning,
                          std::string_view field) {
  const auto at = beginsWith(line, beginning) ? line.find(field) : std::string_view::npos;
  return at == std::string_view::npos ? at : at + field.size();
}

// Where the number of the machine begins: in lines of ARM's kernels, and in two of mainframes.
std::size_t numberIn(std::string_view line) {
  return std::min({behindField(line, "Serial"), behindField(line, "identification"),
                   behindFieldOf(line, "processor ", "identification =")});
}

void zero(std::string& text, std::size_t begin, std::size_t end) {
  for (std::size_t at = begin; at < end && text[at] != ','; ++at) {
    if (std::isxdigit(static_cast<unsigned char>(text[at])) != 0) {
      text[at] = '0';
    }
  }
}

}  // namespace

std::string withoutSerialNumbers(std::string text, std::string_view beginning) {
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const auto line = std::string_view(text).substr(begin, end - begin);
    if (beginsWith(line, beginning)) {
      const std::size_t number = numberIn(line.substr(beginning.size()));
      zero(text, number == std::string_view::npos ? end : begin + beginning.size() + number, end);
    }
    begin = end + 1;
  }
  return text;
}

}  // namespace ovxid::cli
