#ifndef OVXID_CATALOGUE_BUILTIN_H
#define OVXID_CATALOGUE_BUILTIN_H

#include <string_view>

namespace ovxid {

// A board of the built-in table: its line, written as in the catalogue file, and the message that
// reports it.
struct BuiltinIdentity {
  std::string_view line;
  std::string_view message;
};

constexpr BuiltinIdentity builtinIdentities[] = {
    {"Tessaryn TQBLITE:1:tqblite", "Known Hardware description: Tessaryn TQBLITE = 1"},
    {"Tessaryn TQB:2:tqb", "Known Hardware description: Tessaryn TQB = 2"},
    {"Orvanix Starter Kit:3:ostart:Tessaryn Orvanix Starter Kit",
     "Known Hardware description: Orvanix Starter Kit = 3"},
};

}  // namespace ovxid

#endif
