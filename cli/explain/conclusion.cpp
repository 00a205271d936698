#include <algorithm>

#include "catalogue/line.h"
#include "encoding/visible.h"
#include "explain/report.h"

namespace ovxid::cli {

namespace {

std::string decision(const Board& board) {
  std::string text = "This board is " + shown(board.name()) + ", number " +
                     std::to_string(board.number()) + ": " + board.decidedBy()->decision;
  if (board.match() != nullptr) {
    text += placeOf(*board.match(), board);
  }
  return text + ".\n";
}

// Whether a line of the catalogue can hold this value.
bool fitsIntoCatalogue(const std::string& value) {
  return !value.empty() && value.find(separator) == std::string::npos;
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

Lines linesFor(const Trials& trials) {
  Lines lines;
  for (const Trial& trial : trials) {
    if (!trial.lookUp || !fitsIntoCatalogue(trial.lookUp->value)) {
      continue;
    }
    const std::string& value = trial.lookUp->value;
    // In an alias, blanks do no harm to the name that people read.
    if (trial.lookUp->amongNames && !hasBlankEnd(value)) {
      lines.add("", value, ":NUMBER");
    } else {
      lines.add("NAME:NUMBER:", value, "");
    }
  }
  return lines;
}

std::string noLine(const Trials& trials) {
  std::string text = std::string("This board is not identified. No line in ") +
                     pathOf(File::catalogue) +
                     " could make it known:\nit takes a boardid in its device tree, or a kernel "
                     "release that ends in '-' and an alias.\n";
  for (const Trial& trial : trials) {
    if (trial.lookUp && trial.lookUp->value.find(separator) != std::string::npos) {
      text += std::string("(") + trial.lookUp->what +
              " has a colon, which no value in a catalogue can have.)\n";
    }
  }
  return text;
}

}  // namespace

std::string explainConclusion(const Diagnosis& diagnosis) {
  if (diagnosis.board.isIdentified()) {
    return decision(diagnosis.board);
  }
  const Lines lines = linesFor(diagnosis.trials);
  if (lines.count == 0) {
    return noLine(diagnosis.trials);
  }
  return std::string("This board is not identified. ") + (lines.count == 1 ? "This" : "Either") +
         " line in " + pathOf(File::catalogue) + " would make it known:\n" + lines.text +
         (lines.areEscaped ? "where the escapes stand for the bytes themselves.\n" : "") +
         (lines.areCut ? "where '...' stands for the rest of the long value.\n" : "");
}

}  // namespace ovxid::cli
