// The input is the catalogue, /etc/known_ovx_ids.

#include "reference/catalogue.h"

#include <cstddef>
#include <cstdint>

#include "fuzz/board.h"
#include "fuzz/compare.h"

namespace {

// What an identifier knows shows when its board is one of those that it knows.
void askFor(const std::string& value, const OvxIdentifier& identifier,
            const std::vector<HardwareIdentity>& catalogue) {
  write(cpuinfoPath, "Hardware: " + value + "\n");
  expectSameDetermination(identifier, catalogue);
}

void askForNameAndLastAlias(const HardwareIdentity& known, const OvxIdentifier& identifier,
                            const std::vector<HardwareIdentity>& catalogue) {
  askFor(known.name, identifier, catalogue);
  if (!known.aliases.empty()) {
    askFor(known.aliases.back(), identifier, catalogue);
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  board();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  beginInput(size);
  write(cataloguePath, {data, data + size});
  write(cpuinfoPath, "");
  const OvxIdentifier identifier(board().logger());
  const reference::Catalogue reference = reference::loadCatalogue();
  expectSame("messages of the loading", board().messages(),
             Messages{debug("Creating OvxIdentifier...")} + reference.messages);
  // An alias that no identity has makes a determination name all of them.
  board().kernelRelease("5.10.0-none");
  expectSameDetermination(identifier, reference.identities);
  expectFrontEndToAgree();
  board().kernelRelease("5.10.0");
  if (!reference.identities.empty()) {
    askForNameAndLastAlias(reference.identities.front(), identifier, reference.identities);
    askForNameAndLastAlias(reference.identities.back(), identifier, reference.identities);
  }
  return 0;
}
