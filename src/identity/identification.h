#ifndef OVXID_IDENTITY_IDENTIFICATION_H
#define OVXID_IDENTITY_IDENTIFICATION_H

#include "identity/sources.h"

namespace ovxid {

// What an identification found: where there is no name or no number, the board keeps that which it
// had before.
struct Identification {
  // None if no source identified the board.
  const Source* decidedBy = nullptr;
  std::optional<std::string> name;
  std::optional<std::int32_t> number;
  // The identity in the catalogue, if it was found there.
  const HardwareIdentity* match = nullptr;
  // What ended the search before it came to a result.
  std::exception_ptr thrown;
};

// What each source did, in their order.
using Trials = std::array<Trial, sources.size()>;

// Where somebody asks for the trials, those sources are tried as well, in silence, that stand
// behind the one that decides.
Identification identify(const Host& host, const Catalogue& catalogue, const Log& log,
                        Trials* trials = nullptr);

}  // namespace ovxid

#endif
