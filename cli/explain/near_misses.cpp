#include <algorithm>

#include "explain/remarks.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

char lower(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

std::string lowered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lower);
  return result;
}

std::string without(std::string_view text, std::string_view bytes) {
  std::string result;
  for (const char byte : text) {
    result += bytes.find(byte) == std::string_view::npos ? std::string(1, byte) : "";
  }
  return result;
}

struct Difference {
  const char* what;
  std::string_view bytes;
};

constexpr Difference differences[] = {
    {"a blank", " \t"},
    {"a carriage return", "\r"},
    {"a NUL byte", std::string_view("\0", 1)},
};

// What alone makes the two texts differ. Empty if they are equal or differ in more.
std::string onlyDifference(std::string_view one, std::string_view other) {
  if (one == other) {
    return "";
  }
  if (lowered(one) == lowered(other)) {
    return "case";
  }
  for (const Difference& difference : differences) {
    if (without(one, difference.bytes) == without(other, difference.bytes)) {
      return difference.what;
    }
  }
  constexpr std::string_view every("\0\r \t", 4);
  return lowered(without(one, every)) == lowered(without(other, every))
             ? "case, blanks and control characters"
             : "";
}

// Compares a value that was looked up with texts of the catalogue.
class Comparison {
 public:
  Comparison(const Evidence& evidence, std::string value, Remarks& remarks)
      : mEvidence(evidence), mValue(std::move(value)), mRemarks(remarks) {}

  void withName(const CatalogueEntry& entry) {
    compare(entry.identity.name, "the name of the board in", entry);
  }

  void withAliases(const CatalogueEntry& entry) {
    for (const std::string& alias : entry.identity.aliases) {
      compare(alias, "the alias " + shown(alias) + " in", entry);
    }
  }

 private:
  void compare(const std::string& text, const std::string& what, const CatalogueEntry& entry) {
    const std::string difference = onlyDifference(mValue, text);
    if (!difference.empty()) {
      mRemarks.push_back(shown(mValue) + " differs from " + what + " " +
                         placeOf(entry, mEvidence.catalogue) + " only in " + difference + ".");
    }
  }

  const Evidence& mEvidence;
  std::string mValue;
  Remarks& mRemarks;
};

void remarkOnSuffix(const Evidence& evidence, Remarks& remarks) {
  Comparison comparison(evidence, *evidence.suffix, remarks);
  for (const CatalogueEntry& entry : evidence.catalogue.entries()) {
    comparison.withAliases(entry);
  }
  if (const CatalogueEntry* const entry = evidence.catalogue.named(*evidence.suffix)) {
    remarks.push_back(shown(*evidence.suffix) + " is the name of the board in " +
                      placeOf(*entry, evidence.catalogue) +
                      ", but a release is compared with aliases only.");
  }
}

void remarkOnHardware(const Evidence& evidence, Remarks& remarks) {
  Comparison comparison(evidence, *evidence.hardware, remarks);
  for (const CatalogueEntry& entry : evidence.catalogue.entries()) {
    comparison.withName(entry);
    comparison.withAliases(entry);
  }
}

}  // namespace

// Where a source decided, near misses of the later ones do not matter.
Remarks remarksOnNearMisses(const Evidence& evidence) {
  Remarks remarks;
  const auto missed = [&](Source source) {
    return evidence.isTried(source) && evidence.decidedBy != source;
  };
  if (missed(Source::kernelRelease) && evidence.suffix) {
    remarkOnSuffix(evidence, remarks);
  }
  if (missed(Source::cpuinfo) && evidence.hardware) {
    remarkOnHardware(evidence, remarks);
  }
  return remarks;
}

}  // namespace ovxid::cli
