#ifndef OVXID_TESTS_REFERENCE_CATALOGUE_H
#define OVXID_TESTS_REFERENCE_CATALOGUE_H

#include <OvxIdentifier.h>

#include <string>
#include <vector>

#include "simulation/logger.h"

// What the library is to do, worked out by the streams of the standard library. The library reads
// without streams, so a mistake in one of the two shows as a difference.
namespace reference {

struct LineReading {
  bool accepted;
  HardwareIdentity record;
  Messages messages;
};

// Reads a line of the catalogue into a copy of the record.
LineReading readLine(HardwareIdentity record, const std::string& line);

struct Catalogue {
  std::vector<HardwareIdentity> identities;
  Messages messages;
};

// The catalogue of this machine, or the built-in one.
Catalogue loadCatalogue();

}  // namespace reference

#endif
