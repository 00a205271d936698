#include <algorithm>

#include "ascii.h"
#include "explain/remarks.h"
#include "utf8.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

// A way in which texts may differ that look the same, and the text without it.
struct Difference {
  const char* what;
  std::string (*leaveOut)(std::string_view text);
};

std::string toSmallLetters(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), toSmall);
  return result;
}

std::string without(std::string_view text, std::string_view part) {
  std::string result(text);
  for (auto at = result.find(part); at != std::string::npos; at = result.find(part, at)) {
    result.erase(at, part.size());
  }
  return result;
}

std::string withoutBlanks(std::string_view text) {
  return without(without(without(text, " "), "\t"), noBreakSpace);
}

// A kernel that is built from changed sources may have one at its end.
std::string withoutPluses(std::string_view text) { return without(text, "+"); }
std::string withoutReturns(std::string_view text) { return without(text, "\r"); }
std::string withoutNuls(std::string_view text) { return without(text, std::string_view("\0", 1)); }

constexpr Difference differences[] = {
    {"case", toSmallLetters},    {"blanks", withoutBlanks},
    {"a '+'", withoutPluses},    {"a carriage return", withoutReturns},
    {"a NUL byte", withoutNuls},
};

std::string withoutAllBut(const Difference* kept, std::string_view text) {
  std::string result(text);
  for (const Difference& difference : differences) {
    result = &difference == kept ? result : difference.leaveOut(result);
  }
  return result;
}

// What alone makes the two texts differ. Empty if they are equal or differ in more.
std::string onlyDifferences(std::string_view one, std::string_view other) {
  std::string names;
  if (withoutAllBut(nullptr, one) == withoutAllBut(nullptr, other)) {
    for (const Difference& difference : differences) {
      if (withoutAllBut(&difference, one) != withoutAllBut(&difference, other)) {
        names += (names.empty() ? "" : " and ") + std::string(difference.what);
      }
    }
  }
  return names;
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
    const std::string difference = onlyDifferences(mValue, text);
    if (!difference.empty()) {
      add(shown(mValue) + " differs from " + what + " " + placeOf(entry, mEvidence.catalogue) +
          " only in " + difference + ".");
    }
  }

  // An alias may stand in a line twice.
  void add(const std::string& remark) {
    if (std::find(mRemarks.begin(), mRemarks.end(), remark) == mRemarks.end()) {
      mRemarks.push_back(remark);
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
