#ifndef OVXID_CLI_BOARD_BOARD_H
#define OVXID_CLI_BOARD_BOARD_H

#include <memory>
#include <string>
#include <vector>

#include "board/parameters.h"
#include "catalogue/loading.h"
#include "host/host.h"
#include "identity/identification.h"

namespace ovxid::cli {

// A board, and what is found out about it.
class Board {
 public:
  // Loads the catalogue. With `verbose`, each message goes to standard error.
  Board(std::shared_ptr<const Host> host, bool verbose);
  // What was found in the catalogue points into it.
  ~Board() = default;
  Board(const Board&) = delete;
  Board& operator=(const Board&) = delete;

  // Determines and reports the identity, as a query of the library does. Throws Failure if the
  // search ends without a result.
  void identify();
  // The same, with what the sources did, and without Failure.
  void identify(Trials& trials);

  // Collects the parameters. Throws Failure if the name of the WAN interface is too long.
  void collect();

  bool isIdentified() const { return mDecidedBy != nullptr; }
  // None if the board is not identified.
  const Source* decidedBy() const { return mDecidedBy; }
  // Every byte of it.
  const std::string& wholeName() const { return mName; }
  // Up to its first NUL byte, as a launched program sees it.
  std::string name() const { return mName.substr(0, mName.find('\0')); }
  std::int32_t number() const { return mNumber; }
  // Of the identity in the catalogue, if it was found there.
  std::vector<std::string> aliases() const;
  const HardwareIdentity* match() const { return mMatch; }
  const Catalogue& catalogue() const { return mCatalogue; }
  const CatalogueFile& catalogueFile() const { return mCatalogueFile; }
  const Host& host() const { return *mHost; }
  const std::vector<ovx_param>& parameters() const { return mParameters.list; }

 private:
  Identification search(Trials* trials);

  std::shared_ptr<const Host> mHost;
  Log mLog;
  Catalogue mCatalogue;
  CatalogueFile mCatalogueFile;
  const Source* mDecidedBy = nullptr;
  std::string mName;
  std::int32_t mNumber;
  const HardwareIdentity* mMatch = nullptr;
  Parameters mParameters;
};

}  // namespace ovxid::cli

#endif
