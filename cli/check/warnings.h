#ifndef OVXID_CLI_CHECK_WARNINGS_H
#define OVXID_CLI_CHECK_WARNINGS_H

namespace ovxid::cli {

// What may be wrong with a line that the library reads all the same.
struct Warning {
  const char* name;
  const char* summary;
};

namespace warning {
constexpr Warning byteOrderMark = {"byte-order-mark", "a byte order mark begins the first name"};
constexpr Warning carriageReturn = {"carriage-return", "a carriage return ends the last value"};
constexpr Warning nul = {"nul", "a line has NUL bytes"};
constexpr Warning noNewline = {"no-newline", "no newline ends the last line"};
constexpr Warning emptyCatalogue = {"empty-catalogue", "the catalogue is empty: it knows no board"};
constexpr Warning emptyLine = {"empty-line", "a line is empty, which the library reports"};
constexpr Warning comment = {"comment",
                             "there is a '#' as before a comment, but there are no comments"};
constexpr Warning blanks = {"blanks", "a value has blanks around it, which belong to it"};
constexpr Warning quotes = {"quotes", "a value has quotes around it, which belong to it"};
constexpr Warning numberText = {"number-text", "text follows the digits of the number"};
constexpr Warning reservedNumber = {"reserved-number",
                                    "the number is that of unknown boards or PCs, or below 0"};
constexpr Warning pcAlias = {"pc-alias",
                             "the alias x86_64 is no machine, but the end of a release"};
constexpr Warning impossibleAlias = {"impossible-alias",
                                     "an alias can end no release and is like no Hardware value"};
constexpr Warning numericAlias = {"numeric-alias",
                                  "an alias of digits matches the releases of many kernels"};
constexpr Warning sameName = {"same-name", "an earlier board has the same name"};
constexpr Warning sameNumber = {"same-number", "an earlier board has the same number"};
constexpr Warning sameAlias = {"same-alias", "an earlier board has the same alias"};
constexpr Warning aliasIsName = {"alias-is-name", "an alias is the name of an earlier board"};
constexpr Warning nameIsAlias = {"name-is-alias", "the name is an alias of an earlier board"};
constexpr Warning unmatchable = {"unmatchable", "nothing can match the board"};
}  // namespace warning

constexpr Warning warnings[] = {
    warning::byteOrderMark,   warning::carriageReturn, warning::nul,
    warning::noNewline,       warning::emptyCatalogue, warning::emptyLine,
    warning::comment,         warning::blanks,         warning::quotes,
    warning::numberText,      warning::reservedNumber, warning::pcAlias,
    warning::impossibleAlias, warning::numericAlias,   warning::sameName,
    warning::sameNumber,      warning::sameAlias,      warning::aliasIsName,
    warning::nameIsAlias,     warning::unmatchable,
};

}  // namespace ovxid::cli

#endif
