#include "explain/sources.h"

#include <cstring>

#include "visible.h"

namespace ovxid::cli {

namespace {

std::string count(std::size_t number, const std::string& what) {
  return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

std::string whyUnread(const Exhibit& exhibit) {
  return exhibit.path + ": " + std::strerror(exhibit.error);
}

std::string deviceTree(const Evidence& evidence) {
  if (!evidence.boardid.content) {
    return whyUnread(evidence.boardid);
  }
  const std::string boardid = "boardid " + shown(*evidence.boardid.content);
  if (evidence.description.content) {
    return boardid + ", description " + shown(*evidence.description.content);
  }
  return boardid + ", description: " + std::strerror(evidence.description.error);
}

std::string kernelRelease(const Evidence& evidence) {
  if (evidence.kernelError != 0) {
    return std::string("uname: ") + std::strerror(evidence.kernelError);
  }
  const std::string release = visible(evidence.kernel.release) + ": ";
  if (!evidence.suffix) {
    return release + "no '-' with an alias behind it";
  }
  if (evidence.suffix->empty()) {
    return release + "nothing stands behind its last '-'";
  }
  const std::string suffix = shown(*evidence.suffix);
  if (const CatalogueEntry* const entry = evidence.catalogue.withAlias(*evidence.suffix)) {
    return release + suffix + " is an alias of " + shown(entry->identity.name) + " in " +
           placeOf(*entry, evidence.catalogue);
  }
  return release + suffix + " is no alias of the " +
         count(evidence.catalogue.entries().size(), "board") + " in the catalogue";
}

std::string machine(const Evidence& evidence) {
  if (evidence.kernelError != 0) {
    return std::string("uname: ") + std::strerror(evidence.kernelError);
  }
  const std::string_view machine = evidence.kernel.machine;
  return visible(machine) + (machine == "x86_64" ? ": a PC" : ": not x86_64");
}

std::string cpuinfo(const Evidence& evidence) {
  if (!evidence.cpuinfo.content) {
    return whyUnread(evidence.cpuinfo);
  }
  if (evidence.gaveUp) {
    return evidence.cpuinfo.path + ": the Hardware line ends at its colon, which ends the search";
  }
  if (!evidence.hardware) {
    return evidence.cpuinfo.path + ": no line begins with Hardware";
  }
  const std::string value = "Hardware " + shown(*evidence.hardware);
  if (const CatalogueEntry* const entry = evidence.catalogue.named(*evidence.hardware)) {
    return value + " is the name of the board in " + placeOf(*entry, evidence.catalogue);
  }
  if (const CatalogueEntry* const entry = evidence.catalogue.withAlias(*evidence.hardware)) {
    return value + " is an alias of " + shown(entry->identity.name) + " in " +
           placeOf(*entry, evidence.catalogue);
  }
  return value + ": no name and no alias in the catalogue";
}

std::string catalogue(const Evidence& evidence) {
  const Catalogue& catalogue = evidence.catalogue;
  const std::string boards = count(catalogue.entries().size(), "board");
  if (catalogue.isBuiltin()) {
    return whyUnread(evidence.catalogueFile) + "; the built-in table of " + boards +
           " stands in for it";
  }
  if (!evidence.catalogueFile.content) {
    return whyUnread(evidence.catalogueFile);
  }
  std::string text = evidence.catalogueFile.path + ": " + boards;
  if (catalogue.linesPassedOver() > 0) {
    text += ", " + count(catalogue.linesPassedOver(), "line") +
            " passed over ('ovxid check' tells why)";
  }
  return text;
}

std::string row(std::string head, const std::string& text) {
  head.resize(16, ' ');
  return head + text + "\n";
}

std::string row(const Evidence& evidence, Source source, const char* head,
                const std::string& text) {
  if (evidence.isTried(source)) {
    return row(head, text);
  }
  return row(head, "not tried (" + text + ")");
}

}  // namespace

std::string explainSources(const Evidence& evidence) {
  return row(evidence, Source::deviceTree, "device tree", deviceTree(evidence)) +
         row(evidence, Source::kernelRelease, "kernel release", kernelRelease(evidence)) +
         row(evidence, Source::machine, "machine", machine(evidence)) +
         row(evidence, Source::cpuinfo, "cpuinfo", cpuinfo(evidence)) +
         row("catalogue", catalogue(evidence));
}

}  // namespace ovxid::cli
