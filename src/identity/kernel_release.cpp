#include "identity/lookup.h"

namespace ovxid {

namespace {

Finding identifyBySuffix(std::string_view suffix, Search& search) {
  search.lookUp("The end of the release", nullptr, suffix, false);
  if (suffix.empty()) {
    search.note("nothing stands behind its last '-'");
  }
  search.log(Level::debug, {"therefore possible alias of machine = '", suffix, "'"});
  for (const HardwareIdentity& identity : search.catalogue) {
    search.log(Level::debug, {"Searching known aliases of ", identity.name, "..."});
    if (hasAlias(identity, suffix)) {
      search.log(Level::debug, {"Alias: ", suffix, " is an alias of identity: ", identity.name});
      return adopt(identity);
    }
  }
  return {};
}

}  // namespace

Finding identifyByKernelRelease(Search& search) {
  search.log(Level::debug, {"Attempting to find alias by uname"});
  if (const int error = search.askKernel(); error != 0) {
    search.haveRead("uname", error);
    search.log(Level::warn, {"There was a problem with uname, continuing"});
    return {};
  }
  search.log(Level::debug, {"No problems with uname"});
  const std::string_view release = search.kernel.release;
  search.haveRead("uname", 0, release);
  search.log(Level::debug, {"uts.release= ", release});
  const auto hyphen = release.rfind('-');
  if (hyphen == std::string_view::npos) {
    search.note("no '-' with an alias behind it");
    return {};
  }
  return identifyBySuffix(release.substr(hyphen + 1), search);
}

}  // namespace ovxid
