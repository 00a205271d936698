#include "explain/diagnosis.h"

#include <optional>
#include <string_view>
#include <utility>

namespace ovxid::cli {

Diagnosis::Diagnosis(Board& identified) : board(identified) {
  identified.identify(trials);
  parameters = collectParameters(board.host(), board.number(), board.wholeName(), nullptr);
  hasDeviceTree = parameters.hasNode;
  if (!parameters.hasNode) {
    std::optional<std::vector<std::string>> names = board.host().nodesOfTree();
    hasDeviceTree = names.has_value();
    nodes = std::move(names).value_or(std::vector<std::string>());
  }
}

bool Diagnosis::isTried(const Trial& trial) const {
  return !board.isIdentified() || &trial <= &trialOf(board.decidedBy()->identify);
}

bool Diagnosis::decides(const Trial& trial) const {
  return board.isIdentified() && &trial == &trialOf(board.decidedBy()->identify);
}

const Trial& Diagnosis::trialOf(Identify* identify) const {
  std::size_t position = 0;
  while (sources[position].identify != identify) {
    ++position;
  }
  return trials[position];
}

const Reading* Diagnosis::readingOf(File file) const {
  for (const Trial& trial : trials) {  // GCOVR_EXCL_BR_LINE: see below
    for (const Reading& reading : trial.readings) {
      if (std::string_view(reading.from) == pathOf(file)) {
        return &reading;
      }
    }
  }
  return nullptr;  // GCOVR_EXCL_LINE: for a file that a source will not read any more
}

// Of the lines before it, those are counted that are no identity.
std::string placeOf(const HardwareIdentity& identity, const Board& board) {
  const CatalogueFile& file = board.catalogueFile();
  if (file.isReplaced) {
    return "the built-in table";
  }
  std::size_t line = static_cast<std::size_t>(&identity - board.catalogue().data()) + 1;
  for (const std::size_t passedOver : file.passedOver) {
    if (passedOver > line) {
      break;
    }
    ++line;
  }
  return "line " + std::to_string(line);
}

}  // namespace ovxid::cli
