#include <algorithm>
#include <cstring>

#include "encoding/visible.h"
#include "explain/report.h"

namespace ovxid::cli {

namespace {

std::string count(std::size_t number, const std::string& what) {
  return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

std::string why(const char* from, int error) {
  return std::string(from) + ": " + std::strerror(error);
}

bool isPath(const char* from) { return *from == '/'; }

// What a call answers is told by the answer, a file by its path.
std::string subject(const Reading& reading) {
  if (isPath(reading.from)) {
    return reading.from;
  }
  return visible(reading.bytes);
}

std::string fileOfNode(const Reading& reading) {
  const std::string name(belowNode(reading.from));
  if (reading.error != 0) {
    return why(name.c_str(), reading.error);
  }
  return name + " " + shown(reading.bytes);
}

std::string lookUp(const LookUp& lookUp, const HardwareIdentity* match, const Board& board) {
  const std::string value = shown(lookUp.value);
  if (match == nullptr && lookUp.amongNames) {
    return value + ": no name and no alias in the catalogue";
  }
  if (match == nullptr) {
    return value + " is no alias of the " + count(board.catalogue().size(), "board") +
           " in the catalogue";
  }
  if (lookUp.amongNames && match->name == lookUp.value) {
    return value + " is the name of the board in " + placeOf(*match, board);
  }
  return value + " is an alias of " + shown(match->name) + " in " + placeOf(*match, board);
}

std::string textOf(const Trial& trial, const Board& board) {
  const Reading& first = trial.readings.front();
  if (first.error != 0) {
    return why(first.from, first.error);
  }
  if (trial.note != nullptr) {
    return subject(first) + ": " + trial.note;
  }
  if (trial.lookUp && trial.lookUp->field != nullptr) {
    return std::string(trial.lookUp->field) + " " + lookUp(*trial.lookUp, trial.match, board);
  }
  if (trial.lookUp) {
    return subject(first) + ": " + lookUp(*trial.lookUp, trial.match, board);
  }
  std::string text;
  for (const Reading& reading : trial.readings) {
    text += (text.empty() ? "" : ", ") + fileOfNode(reading);
  }
  return text;
}

std::string catalogue(const Board& board) {
  const char* const path = pathOf(File::catalogue);
  const CatalogueFile& file = board.catalogueFile();
  const std::string boards = count(board.catalogue().size(), "board");
  if (file.isReplaced) {
    return why(path, file.error) + "; the built-in table of " + boards + " stands in for it";
  }
  if (file.error != 0) {
    return why(path, file.error);
  }
  std::string text = std::string(path) + ": " + boards;
  if (!file.passedOver.empty()) {
    text += ", " + count(file.passedOver.size(), "line") + " passed over ('ovxid check' tells why)";
  }
  return text;
}

std::string row(std::string head, const std::string& text) {
  // A longer one is not cut.
  head.resize(std::max<std::size_t>(16, head.size() + 1), ' ');
  return head + text + "\n";
}

}  // namespace

std::string explainSources(const Diagnosis& diagnosis) {
  std::string rows;
  for (std::size_t i = 0; i < sources.size(); ++i) {
    const Trial& trial = diagnosis.trials[i];
    std::string text = textOf(trial, diagnosis.board);
    if (!diagnosis.isTried(trial)) {
      text.insert(0, "not tried (").append(")");
    }
    rows += row(sources[i].title, text);
  }
  return rows + row("catalogue", catalogue(diagnosis.board));
}

}  // namespace ovxid::cli
