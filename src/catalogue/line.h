#ifndef OVXID_CATALOGUE_LINE_H
#define OVXID_CATALOGUE_LINE_H

#include <ovxid/records.h>

#include <algorithm>
#include <string_view>

#include "log/log.h"

namespace ovxid {

// Between the values of a line.
constexpr char separator = ':';

// Reads a line of the catalogue into the record, as OvxIdentifier::parseIdentityLine() documents.
// Returns null, or why the line is passed over.
const char* parseLine(HardwareIdentity& record, std::string_view line, const Log& log);

// Removes the first value from a line, or from what is left of one, and returns it. Values are
// never empty, since several separators in a row count as one: an empty result means that none is
// left. Inline, because a call for each value costs 5 % of the loading.
inline std::string_view takeValue(std::string_view& line) {
  std::string_view value;
  while (value.empty() && !line.empty()) {
    // GCOVR_EXCL_BR_LINE: gcov also counts a copy that never runs
    value = line.substr(0, line.find(separator));  // GCOVR_EXCL_BR_LINE
    line.remove_prefix(std::min(value.size() + 1, line.size()));
  }
  return value;
}

}  // namespace ovxid

#endif
