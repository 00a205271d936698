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
  bool hasDeviceTree;
  bool hasNode;
  Exhibit boardid;
  Exhibit description;
  Exhibit cpuinfo;
  utsname kernel{};
  // 0 when uname(2) answered.
  int kernelError = 0;
  // The values that are looked up in the catalogue, also those that the library did not come to.
  // The line is the one that has the Hardware value.
  std::optional<std::string> suffix;
  std::optional<std::string> hardwareLine;
  std::optional<std::string> hardware;

  bool isTried(Source source) const;
};

// "line 3", or "the built-in table" for a board of that.
std::string placeOf(const CatalogueEntry& entry, const Catalogue& catalogue);

}  // namespace ovxid::cli

#endif
