#ifndef OVXID_CLI_EXPLAIN_EVIDENCE_H
#define OVXID_CLI_EXPLAIN_EVIDENCE_H

#include <sys/utsname.h>

#include <optional>
#include <string>
#include <vector>

#include "account.h"
#include "board.h"
#include "catalogue.h"

namespace ovxid::cli {

// A file that the library may have read: its bytes, or the error that kept it from being read.
struct Exhibit {
  std::string path;
  std::optional<std::string> content;
  int error;
};

Exhibit exhibit(const std::string& path);

// What the library said, and what it found on this machine. What its messages do not carry is
// looked up once more.
struct Evidence {
  explicit Evidence(Board& board);

  Board& board;
  std::optional<Source> decidedBy;
  // Whether the Hardware line ended the search with an exception.
  bool gaveUp = false;
  Catalogue catalogue;
  Exhibit catalogueFile;
  Exhibit boardid;
  Exhibit description;
  Exhibit cpuinfo;
  utsname kernel{};
  // What is looked up in the catalogue, whether or not the library came to it, and the line with
  // it.
  std::optional<std::string> suffix;
  std::optional<std::string> hardwareLine;
  std::optional<std::string> hardware;

  bool isTried(Source source) const;
};

// "line 3", or "the built-in table" for a board of that.
std::string placeOf(const CatalogueEntry& entry, const Catalogue& catalogue);

}  // namespace ovxid::cli

#endif
