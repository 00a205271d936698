#include "explain/evidence.h"

#include <cerrno>

#include "diagnostics.h"
#include "text_file.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

constexpr const char* boardidPath = "/proc/device-tree/orvanix/boardid";
constexpr const char* descriptionPath = "/proc/device-tree/orvanix/description";
constexpr const char* cpuinfoPath = "/proc/cpuinfo";

utsname askKernel() {
  utsname kernel{};
  uname(&kernel);
  return kernel;
}

std::optional<std::string> suffixOf(std::string_view release) {
  const auto hyphen = release.rfind('-');
  return hyphen == std::string_view::npos ? std::nullopt
                                          : std::optional(std::string(release.substr(hyphen + 1)));
}

// The value of the first Hardware line, two bytes behind its colon.
std::optional<std::string> hardwareOf(const Exhibit& cpuinfo) {
  std::string_view rest = cpuinfo.content ? *cpuinfo.content : std::string_view();
  while (const std::optional<std::string_view> line = takeLine(rest)) {
    const std::size_t value = line->find(':') + 2;
    if (line->substr(0, 8) == "Hardware") {
      return value > line->size() ? std::nullopt : std::optional(std::string(line->substr(value)));
    }
  }
  return std::nullopt;
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
      boardid(exhibit(boardidPath)),
      description(exhibit(descriptionPath)),
      cpuinfo(exhibit(cpuinfoPath)),
      kernel(askKernel()),
      suffix(suffixOf(kernel.release)),
      hardware(hardwareOf(cpuinfo)) {}

bool Evidence::isTried(Source source) const { return !decidedBy || source <= *decidedBy; }

std::string placeOf(const CatalogueEntry& entry, const Catalogue& catalogue) {
  return catalogue.isBuiltin() ? "the built-in table" : "line " + std::to_string(entry.line);
}

}  // namespace ovxid::cli
