// The input is /proc/cpuinfo, on a board that only this file can identify.

#include <cstddef>
#include <cstdint>

#include "fuzz/board.h"
#include "reference/catalogue.h"

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  // Values that are found soon by chance, and one that is a name and another's alias.
  board().catalogue("Field Node:3:fn1:a\nBench Unit:9:Field Node:b\n :-1:\t\nH:7:ar\n");
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const reference::Catalogue catalogue = reference::loadCatalogue();
  static const OvxIdentifier identifier(board().logger());
  beginInput(size);
  write(cpuinfoPath, {data, data + size});
  expectSameDetermination(identifier, catalogue.identities);
  expectFrontEndToAgree();
  return 0;
}
