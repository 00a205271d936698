#include "identity/identification.h"

#include <utility>

#include "identity/well_known.h"

namespace ovxid {

namespace {

template <typename Field>
void replaceByFound(std::optional<Field>& field, std::optional<Field>& found) {
  if (found) {
    field = std::move(found);
  }
}

void add(Identification& all, const Source& source, Finding&& found) {
  replaceByFound(all.name, found.name);
  replaceByFound(all.number, found.number);
  all.match = found.match;
  all.thrown = std::move(found.thrown);
  all.decidedBy = found.identified ? &source : nullptr;
}

bool isOver(const Identification& result) {
  return result.decidedBy != nullptr || result.thrown != nullptr;
}

}  // namespace

Identification identify(const Host& host, const Catalogue& catalogue, const Log& log,
                        Trials* trials) {
  Identification result;
  Search search(host, catalogue, log);
  for (std::size_t i = 0; i < sources.size() && (trials != nullptr || !isOver(result)); ++i) {
    search.trial = trials == nullptr ? nullptr : &(*trials)[i];
    search.log = isOver(result) ? Log() : log;
    Finding found = sources[i].identify(search);
    if (trials != nullptr) {
      (*trials)[i].match = found.match;
    }
    if (!isOver(result)) {
      add(result, sources[i], std::move(found));
    }
  }
  if (!isOver(result)) {
    log(Level::error,
        {"Could not find hardware identity with uname or through ", pathOf(File::cpuinfo)});
    result.name = unknownName;
    result.number = unknownNumber;
  }
  return result;
}

}  // namespace ovxid
