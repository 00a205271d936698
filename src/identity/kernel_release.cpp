#include "identity/match.h"
#include "log/log.h"

using log4cpp::Priority;

namespace ovxid {

namespace {

std::optional<utsname> askKernel(cQlog* logger) {
  log(logger, Priority::DEBUG, {"Attempting to find alias by uname"});
  utsname kernel{};
  if (uname(&kernel) < 0) {
    log(logger, Priority::WARN, {"There was a problem with uname, continuing"});
    return std::nullopt;
  }
  log(logger, Priority::DEBUG, {"No problems with uname"});
  return kernel;
}

Finding identifyBySuffix(std::string_view suffix, const Search& search) {
  log(search.logger, Priority::DEBUG, {"therefore possible alias of machine = '", suffix, "'"});
  for (const HardwareIdentity& identity : search.catalogue) {
    log(search.logger, Priority::DEBUG, {"Searching known aliases of ", identity.name, "..."});
    if (hasAlias(identity, suffix)) {
      log(search.logger, Priority::DEBUG,
          {"Alias: ", suffix, " is an alias of identity: ", identity.name});
      return found(identity);
    }
  }
  return {};
}

}  // namespace

Finding identifyByKernelRelease(Search& search) {
  search.kernel = askKernel(search.logger);
  if (!search.kernel) {
    return {};
  }
  const std::string_view release = search.kernel->release;
  log(search.logger, Priority::DEBUG, {"uts.release= ", release});
  const auto hyphen = release.rfind('-');
  if (hyphen == std::string_view::npos) {
    return {};
  }
  return identifyBySuffix(release.substr(hyphen + 1), search);
}

}  // namespace ovxid
