#ifndef OVXID_CATALOGUE_BUILTIN_H
#define OVXID_CATALOGUE_BUILTIN_H

#include <string_view>

namespace ovxid {

// A board that is known without a catalogue file: its line, as a file would hold it, and the
// message that tells of it.
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
