#include "catalogue/loading.h"

#include <optional>
#include <utility>

#include "catalogue/builtin.h"
#include "catalogue/line.h"
#include "text/lines.h"

namespace ovxid {

namespace {

bool appendLine(Catalogue& catalogue, std::string_view line, const Log& log) {
  HardwareIdentity identity{};
  if (parseLine(identity, line, log) != nullptr) {
    return false;
  }
  catalogue.push_back(std::move(identity));
  return true;
}

// Returns the numbers of the lines that it passes over.
std::vector<std::size_t> appendFile(Catalogue& catalogue, InputFile& file, const Log& log) {
  std::vector<std::size_t> passedOver;
  LineReader lines(file);
  for (std::size_t number = 1; const std::optional<std::string_view> line = lines.next();
       ++number) {
    if (!appendLine(catalogue, *line, log)) {
      passedOver.push_back(number);
    }
  }
  return passedOver;
}

void appendBuiltin(Catalogue& catalogue, const Log& log) {
  for (const BuiltinIdentity& known : builtinIdentities) {
    // Silently, since the message for a line of the file does not apply here.
    appendLine(catalogue, known.line, Log());
    log(Level::debug, {known.message});
  }
}

}  // namespace

CatalogueFile loadCatalogue(const Host& host, Catalogue& catalogue, const Log& log) {
  const char* const path = pathOf(File::catalogue);
  log(Level::debug, {"Finding list of known identities..."});
  CatalogueFile result;
  InputFile file = host.open(File::catalogue);
  if (file.isOpen()) {
    log(Level::debug, {"Opened file ", path, ", now reading known hardware identites"});
    result.passedOver = appendFile(catalogue, file, log);
  } else {
    log(Level::warn, {"No ", path, ", using default known hardware identities"});
    result.isReplaced = true;
    appendBuiltin(catalogue, log);
  }
  result.error = file.error();
  return result;
}

}  // namespace ovxid
