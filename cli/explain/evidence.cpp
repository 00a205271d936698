#include "explain/evidence.h"

#include <sys/stat.h>

#include <cerrno>

#include "host/host.h"
#include "text_file.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

constexpr std::string_view hardwareField = "Hardware";

std::string inNode(const char* property) { return std::string(nodePath) + "/" + property; }

bool isThere(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0;
}

int errorOfUname(utsname& kernel) { return uname(&kernel) == 0 ? 0 : errno; }

std::optional<std::string> suffixOf(std::string_view release) {
  const auto hyphen = release.rfind('-');
  if (hyphen == std::string_view::npos) {
    return std::nullopt;
  }
  return std::string(release.substr(hyphen + 1));
}

std::optional<std::string> hardwareLineOf(const Exhibit& cpuinfo) {
  std::string_view rest = cpuinfo.content ? *cpuinfo.content : std::string_view();
  while (const std::optional<std::string_view> line = takeLine(rest)) {
    if (line->substr(0, hardwareField.size()) == hardwareField) {
      return std::string(*line);
    }
  }
  return std::nullopt;
}

// The value stands two bytes behind the colon. As the library reads it, a line without a colon has
// its second byte there.
std::optional<std::string> valueOf(const std::optional<std::string>& line) {
  if (!line) {
    return std::nullopt;
  }
  const std::size_t value = line->find(':') + 2;
  if (value > line->size()) {
    return std::nullopt;
  }
  return line->substr(value);
}

// The messages tell what the library looked up. It is found here for a source that was not tried.
std::optional<std::string> either(std::optional<std::string> told,
                                  std::optional<std::string> found) {
  return told ? told : found;
}

}  // namespace

Exhibit exhibit(const std::string& path) {
  std::optional<std::string> content = contentOf(path);
  return {path, std::move(content), errno};
}

Evidence::Evidence(Board& identified)
    : board(identified),
      decidedBy(decidingSource(identified)),
      catalogue(identified),
      catalogueFile(exhibit(cataloguePath)),
      hasDeviceTree(isThere("/proc/device-tree")),
      hasNode(isThere(std::string(nodePath))),
      boardid(exhibit(inNode("boardid"))),
      description(exhibit(inNode("description"))),
      cpuinfo(exhibit(pathOf(File::cpuinfo))),
      kernelError(errorOfUname(kernel)),
      suffix(either(suffixLookedUp(identified), suffixOf(kernel.release))),
      hardwareLine(hardwareLineOf(cpuinfo)),
      hardware(either(hardwareLookedUp(identified), valueOf(hardwareLine))) {}

bool Evidence::isTried(Source source) const { return !decidedBy || source <= *decidedBy; }

std::string placeOf(const CatalogueEntry& entry, const Catalogue& catalogue) {
  if (catalogue.isBuiltin()) {
    return "the built-in table";
  }
  return "line " + std::to_string(entry.line);
}

}  // namespace ovxid::cli
