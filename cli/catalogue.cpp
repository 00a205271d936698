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

bool hasAlias(const HardwareIdentity& identity, std::string_view alias) {
  return std::find(identity.aliases.begin(), identity.aliases.end(), alias) !=
         identity.aliases.end();
}

const CatalogueEntry* Catalogue::named(std::string_view name) const {
  const auto found =
      std::find_if(mEntries.begin(), mEntries.end(),
                   [&](const CatalogueEntry& each) { return each.identity.name == name; });
  return found == mEntries.end() ? nullptr : &*found;
}

const CatalogueEntry* Catalogue::withAlias(std::string_view alias) const {
  const auto found =
      std::find_if(mEntries.begin(), mEntries.end(),
                   [&](const CatalogueEntry& each) { return hasAlias(each.identity, alias); });
  return found == mEntries.end() ? nullptr : &*found;
}

// Where boards have the same name and number, what was looked up tells them apart.
const CatalogueEntry* Catalogue::chosen(Board& board) const {
  const std::optional<Source> source = decidingSource(board);
  if (source != Source::kernelRelease && source != Source::cpuinfo) {
    return nullptr;
  }
  const std::string name = board.identifier().getHardwareName();
  const std::int32_t number = board.number();
  const auto value = source == Source::cpuinfo ? hardwareLookedUp(board) : suffixLookedUp(board);
  const auto found = std::find_if(mEntries.begin(), mEntries.end(), [&](const auto& entry) {
    return entry.identity.name == name && entry.identity.number == number &&
           (!value || name == *value || hasAlias(entry.identity, *value));
  });
  // GCOVR_EXCL_BR_LINE: none is found only when the file has changed since
  return found == mEntries.end() ? nullptr : &*found;  // GCOVR_EXCL_BR_LINE
}

}  // namespace ovxid::cli
