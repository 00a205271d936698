#include "explain/verdict.h"

#include <algorithm>

#include "visible.h"

namespace ovxid::cli {

namespace {

std::string boardOf(const Evidence& evidence) {
  return "This board is " + shown(evidence.board.name()) + ", number " +
         std::to_string(evidence.board.number()) + ": ";
}

std::string decision(const Evidence& evidence) {
  const CatalogueEntry* const chosen = evidence.catalogue.chosen(evidence.board);
  std::string place;
  if (chosen != nullptr) {
    place = placeOf(*chosen, evidence.catalogue);
  }
  switch (*evidence.decidedBy) {
    case Source::deviceTree:
      return "the device tree says so.\n";
    case Source::kernelRelease:
      return "the kernel's release matches an alias in " + place + ".\n";
    case Source::machine:
      return "the machine is x86_64.\n";
    default:
      return "the Hardware line matches " + place + ".\n";
  }
}

// Whether a line of the catalogue can hold this value.
bool fitsIntoCatalogue(const std::optional<std::string>& value) {
  return value && !value->empty() && value->find(':') == std::string::npos;
}

bool hasBlankEnd(const std::string& value) { return value.front() == ' ' || value.back() == ' '; }

std::string escapedBlanks(std::size_t count) {
  std::string text;
  while (count-- > 0) {
    text += "\\x20";
  }
  return text;
}

// At the ends of a value, blanks do not show either.
std::string visibleToItsEnds(const std::string& value) {
  const auto begin = std::min(value.find_first_not_of(' '), value.size());
  const auto end = value.find_last_not_of(' ') + 1;
  if (begin > end) {
    return escapedBlanks(value.size());
  }
  return escapedBlanks(begin) + visible(value.substr(begin, end - begin)) +
         escapedBlanks(value.size() - end);
}

// The lines that would make the board known, and the values in them.
struct Lines {
  std::string text;
  int count = 0;
  bool areEscaped = false;
  bool areCut = false;

  void add(const std::string& before, const std::string& value, const std::string& behind) {
    const std::string beginning(beginningOf(value));
    const std::string seen = visibleToItsEnds(beginning);
    const bool isCut = beginning != value;
    text += "  " + before + seen + (isCut ? "..." : "") + behind + "\n";
    ++count;
    if (seen != beginning) {
      areEscaped = true;
    }
    if (isCut) {
      areCut = true;
    }
  }
};

Lines linesFor(const Evidence& evidence) {
  Lines lines;
  if (fitsIntoCatalogue(evidence.suffix)) {
    lines.add("NAME:NUMBER:", *evidence.suffix, "");
  }
  if (fitsIntoCatalogue(evidence.hardware)) {
    // In an alias, blanks do no harm to the name that people read.
    if (hasBlankEnd(*evidence.hardware)) {
      lines.add("NAME:NUMBER:", *evidence.hardware, "");
    } else {
      lines.add("", *evidence.hardware, ":NUMBER");
    }
  }
  return lines;
}

}  // namespace

std::string explainVerdict(const Evidence& evidence) {
  if (evidence.decidedBy) {
    return boardOf(evidence) + decision(evidence);
  }
  const Lines lines = linesFor(evidence);
  if (lines.count == 0) {
    return std::string("This board is not identified. No line in ") + cataloguePath +
           " could make it known:\nit takes a boardid in its device tree, or a kernel release that "
           "ends in '-' and an alias.\n" +
           (evidence.hardware.value_or("").find(':') == std::string::npos
                ? ""
                : "(The Hardware value has a colon, which no value in a catalogue can have.)\n");
  }
  return std::string("This board is not identified. ") + (lines.count == 1 ? "This" : "Either") +
         " line in " + cataloguePath + " would make it known:\n" + lines.text +
         (lines.areEscaped ? "where the escapes stand for the bytes themselves.\n" : "") +
         (lines.areCut ? "where '...' stands for the rest of the long value.\n" : "");
}

}  // namespace ovxid::cli
