#ifndef OVXID_CLI_CATALOGUE_H
#define OVXID_CLI_CATALOGUE_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "board.h"

namespace ovxid::cli {

constexpr const char* cataloguePath = "/etc/known_ovx_ids";

// A board of the catalogue.
struct CatalogueEntry {
  HardwareIdentity identity;
  // Of the file, from 1.
  std::size_t line;
};

bool hasAlias(const HardwareIdentity& identity, std::string_view alias);

// The catalogue as the library loaded it. The board must keep its messages.
class Catalogue {
 public:
  explicit Catalogue(Board& board);

  // Whether this is the built-in table, since there was no file.
  bool isBuiltin() const { return mBuiltin; }
  const std::vector<CatalogueEntry>& entries() const { return mEntries; }
  // How many lines of the file the library passed over.
  std::size_t linesPassedOver() const { return mPassedOver; }

  // The first board of this name, or of this alias. Null if there is none.
  const CatalogueEntry* named(std::string_view name) const;
  const CatalogueEntry* withAlias(std::string_view alias) const;
  // The board that identified this one, if one did.
  const CatalogueEntry* chosen(Board& board) const;

 private:
  void readLines(Board& board, std::string_view content);

  bool mBuiltin = false;
  std::size_t mPassedOver = 0;
  std::vector<CatalogueEntry> mEntries;
};

}  // namespace ovxid::cli

#endif
