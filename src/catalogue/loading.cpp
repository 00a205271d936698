#include <optional>
#include <utility>

#include "OvxIdentifier.h"
#include "catalogue/builtin.h"
#include "catalogue/line.h"
#include "log/log.h"
#include "text/lines.h"

using log4cpp::Priority;

namespace ovxid {

namespace {

using Catalogue = std::vector<HardwareIdentity>;

constexpr const char* cataloguePath = "/etc/known_ovx_ids";

void appendLine(Catalogue& catalogue, std::string_view line, cQlog* logger) {
  HardwareIdentity identity{};
  if (parseLine(identity, line, logger)) {
    catalogue.push_back(std::move(identity));
  }
}

void appendFile(Catalogue& catalogue, const InputFile& file, cQlog* logger) {
  LineReader lines(file);
  while (const std::optional<std::string_view> line = lines.next()) {
    appendLine(catalogue, *line, logger);
  }
}

void appendBuiltin(Catalogue& catalogue, cQlog* logger) {
  for (const BuiltinIdentity& known : builtinIdentities) {
    // Without the logger, since the message for a line of the file does not apply here.
    appendLine(catalogue, known.line, nullptr);
    log(logger, Priority::DEBUG, {known.message});
  }
}

}  // namespace

}  // namespace ovxid

void OvxIdentifier::findKnownIdentities() {
  using ovxid::cataloguePath;
  using ovxid::log;
  log(mLogger, Priority::DEBUG, {"Finding list of known identities..."});
  if (const ovxid::InputFile file(cataloguePath); file.isOpen()) {
    log(mLogger, Priority::DEBUG,
        {"Opened file ", cataloguePath, ", now reading known hardware identites"});
    ovxid::appendFile(mKnownIdentities, file, mLogger);
  } else {
    log(mLogger, Priority::WARN,
        {"No ", cataloguePath, ", using default known hardware identities"});
    ovxid::appendBuiltin(mKnownIdentities, mLogger);
  }
}
