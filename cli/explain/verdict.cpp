#include "explain/verdict.h"

#include "visible.h"

namespace ovxid::cli {

namespace {

std::string boardOf(const Evidence& evidence) {
  return "This board is " + shown(evidence.board.name()) + ", number " +
         std::to_string(evidence.board.number()) + ": ";
}

std::string decision(const Evidence& evidence) {
  const CatalogueEntry* const chosen = evidence.catalogue.chosen(evidence.board);
  const std::string place = chosen == nullptr ? "" : placeOf(*chosen, evidence.catalogue);
  switch (*evidence.decidedBy) {
    case Source::deviceTree:
      return "the device tree says so.\n";
    case Source::kernelRelease:
      return "the kernel's release matches an alias in " + place + ".\n";
    case Source::machine:
      return "the machine is x86_64.\n";
    default:
      return "the Hardware line matches " + place + ".\n";
  }
}

// Whether a line of the catalogue can hold this value.
bool fitsIntoCatalogue(const std::optional<std::string>& value) {
  return value && !value->empty() && value->find(':') == std::string::npos &&
         visible(*value) == *value;
}

}  // namespace

std::string explainVerdict(const Evidence& evidence) {
  if (evidence.decidedBy) {
    return boardOf(evidence) + decision(evidence);
  }
  const std::string unidentified = "This board is not identified. ";
  const bool byRelease = fitsIntoCatalogue(evidence.suffix);
  const bool byHardware = fitsIntoCatalogue(evidence.hardware);
  if (!byRelease && !byHardware) {
    return unidentified + "No line in " + cataloguePath +
           " could make it known:\nit takes a boardid in its device tree, or a kernel release that "
           "ends in '-' and an alias.\n";
  }
  return unidentified + (byRelease && byHardware ? "Either" : "This") + " line in " +
         cataloguePath + " would make it known:\n" +
         (byRelease ? "  NAME:NUMBER:" + *evidence.suffix + "\n" : "") +
         (byHardware ? "  " + *evidence.hardware + ":NUMBER\n" : "");
}

}  // namespace ovxid::cli
