#ifndef OVXID_CATALOGUE_LOADING_H
#define OVXID_CATALOGUE_LOADING_H

#include <ovxid/records.h>

#include <cstddef>
#include <vector>

#include "host/host.h"
#include "log/log.h"

namespace ovxid {

using Catalogue = std::vector<HardwareIdentity>;

// What became of the catalogue file.
struct CatalogueFile {
  // Whether the built-in table stands in for it, since it could not be opened.
  bool isReplaced = false;
  // Why it could not be opened, or read to its end, as in errno; else 0.
  int error = 0;
  // The lines that are no identity, from 1.
  std::vector<std::size_t> passedOver;
};

// Appends what the host's catalogue file has, or the built-in table.
CatalogueFile loadCatalogue(const Host& host, Catalogue& catalogue, const Log& log);

}  // namespace ovxid

#endif
