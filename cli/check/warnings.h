#ifndef OVXID_CLI_CHECK_WARNINGS_H
#define OVXID_CLI_CHECK_WARNINGS_H

#include <stdexcept>
#include <string_view>

namespace ovxid::cli {

// What may be wrong with a line that the library reads all the same.
struct Warning {
  const char* name;
  const char* summary;
};

constexpr Warning warnings[] = {
    {"byte-order-mark", "a byte order mark begins the first name"},
    {"carriage-return", "a carriage return ends the last value"},
    {"nul", "a line has NUL bytes"},
    {"no-newline", "no newline ends the last line"},
    {"empty-catalogue", "the catalogue is empty: it knows no board"},
    {"empty-line", "a line is empty, which the library reports"},
    {"comment", "there is a '#' as before a comment, but there are no comments"},
    {"blanks", "a value has blanks around it, which belong to it"},
    {"quotes", "a value has quotes around it, which belong to it"},
    {"number-text", "text follows the digits of the number"},
    {"reserved-number", "the number is that of unknown boards or PCs, or below 0"},
    {"pc-alias", "the alias x86_64 is no machine, but the end of a release"},
    {"impossible-alias", "an alias can end no release and is like no Hardware value"},
    {"numeric-alias", "an alias of digits matches the releases of many kernels"},
    {"same-name", "an earlier board has the same name"},
    {"same-number", "an earlier board has the same number"},
    {"same-alias", "an earlier board has the same alias"},
    {"alias-is-name", "an alias is the name of an earlier board"},
    {"name-is-alias", "the name is an alias of an earlier board"},
    {"unmatchable", "nothing can match the board"},
};

// The checks name theirs in constants, so that one which is not in the list does not compile.
constexpr const Warning& warningNamed(std::string_view name) {
  for (const Warning& each : warnings) {
    if (each.name == name) {
      return each;
    }
  }
  throw std::out_of_range("no such warning");
}

}  // namespace ovxid::cli

#endif
