#include "catalogue.h"

#include <algorithm>

#include "account.h"
#include "catalogue/builtin.h"
#include "text_file.h"

namespace ovxid::cli {

Catalogue::Catalogue(Board& board) : mBuiltin(!isCatalogueOpened(board)) {
  if (mBuiltin) {
    for (const BuiltinIdentity& known : builtinIdentities) {
      readLines(board, known.line);
    }
  } else {
    readLines(board, contentOf(cataloguePath).value_or(""));
  }
}

void Catalogue::readLines(Board& board, std::string_view content) {
  std::size_t number = 0;
  while (const std::optional<std::string_view> line = takeLine(content)) {
    ++number;
    HardwareIdentity identity{};
    if (board.readLine(identity, std::string(*line))) {
      mEntries.push_back({std::move(identity), number});
    } else {
      ++mPassedOver;
    }
  }
}

const CatalogueEntry* Catalogue::named(std::string_view name) const {
  const auto found =
      std::find_if(mEntries.begin(), mEntries.end(),
                   [&](const CatalogueEntry& each) { return each.identity.name == name; });
  return found == mEntries.end() ? nullptr : &*found;
}

const CatalogueEntry* Catalogue::withAlias(std::string_view alias) const {
  const auto found =
      std::find_if(mEntries.begin(), mEntries.end(), [&](const CatalogueEntry& each) {
        const std::vector<std::string>& aliases = each.identity.aliases;
        return std::find(aliases.begin(), aliases.end(), alias) != aliases.end();
      });
  return found == mEntries.end() ? nullptr : &*found;
}

const CatalogueEntry* Catalogue::chosen(const Board& board) const {
  const std::optional<Source> source = decidingSource(board);
  if (source == Source::kernelRelease) {
    return withAlias(suffixLookedUp(board).value_or(""));
  }
  if (source == Source::cpuinfo) {
    const std::string value = hardwareLookedUp(board).value_or("");
    const CatalogueEntry* const byName = named(value);
    return byName == nullptr ? withAlias(value) : byName;
  }
  return nullptr;
}

}  // namespace ovxid::cli
