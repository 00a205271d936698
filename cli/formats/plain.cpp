#include <sstream>

#include "format.h"

namespace ovxid::cli::format {

// The library's own listing.
std::string plain(Board& board) {
  std::ostringstream listing;
  listing.exceptions(std::ios_base::badbit);
  board.identifier().listParams(listing);
  return listing.str();
}

}  // namespace ovxid::cli::format
