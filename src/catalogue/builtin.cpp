#include "catalogue/builtin.h"

std::vector<BuiltinIdentity> builtinIdentities() {
  return {
      {{"Tessaryn TQBLITE", {"tqblite"}, 1}, "Known Hardware description: Tessaryn TQBLITE = 1"},
      {{"Tessaryn TQB", {"tqb"}, 2}, "Known Hardware description: Tessaryn TQB = 2"},
      {{"Orvanix Starter Kit", {"ostart", "Tessaryn Orvanix Starter Kit"}, 3},
       "Known Hardware description: Orvanix Starter Kit = 3"},
  };
}
