#include "record/serial_numbers.h"

#include <algorithm>
#include <iterator>

#include "encoding/ascii.h"

namespace ovxid::cli {

namespace {

bool isOfSerialNumber(std::string_view field) {
  constexpr std::string_view ends[] = {"serial",   "serial number", "serial no",
                                       "serialno", "serial-number", "serial_number"};
  const std::string name = toSmallLetters(field);
  return name == "identification" ||
         std::any_of(std::begin(ends), std::end(ends),
                     [&](std::string_view end) { return endsWith(name, end); });
}

// Such as "Serial : 12ab" or "system serial number : K-12", where the line has no other field.
std::size_t behindField(std::string_view line) {
  const auto colon = line.find(':');
  if (colon == std::string_view::npos) {
    return std::string_view::npos;
  }
  const std::string_view field = line.substr(0, colon);
  const auto end = field.find_last_not_of(" \t") + 1;
  return isOfSerialNumber(field.substr(0, end)) ? colon + 1 : std::string_view::npos;
}

// Such as "processor 0: version = 00, identification = 12AB, machine = 2964".
std::size_t behindFieldOf(std::string_view line, std::string_view beginning,
                          std::string_view field) {
  const auto at = beginsWith(line, beginning) ? line.find(field) : std::string_view::npos;
  return at == std::string_view::npos ? at : at + field.size();
}

// Where the number of the machine begins.
std::size_t numberIn(std::string_view line) {
  return std::min(behindField(line), behindFieldOf(line, "processor ", "identification ="));
}

void zero(std::string& text, std::size_t begin, std::size_t end) {
  for (std::size_t at = begin; at < end && text[at] != ','; ++at) {
    if (isDigit(text[at]) || isSmall(text[at]) || isCapital(text[at])) {
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
