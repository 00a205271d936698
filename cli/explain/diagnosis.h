#ifndef OVXID_CLI_EXPLAIN_DIAGNOSIS_H
#define OVXID_CLI_EXPLAIN_DIAGNOSIS_H

#include <string>
#include <vector>

#include "board/board.h"

namespace ovxid::cli {

// What was found out about a board, for those who want to know why.
struct Diagnosis {
  explicit Diagnosis(Board& board);

  const Board& board;
  // What the sources did, also those that stand behind the one that decides.
  Trials trials;
  Parameters parameters;
  // Where there is no node of the platform: whether there is a device tree, and its nodes.
  bool hasDeviceTree;
  std::vector<std::string> nodes;

  bool isTried(const Trial& trial) const;
  // Whether this is what the source did that decided.
  bool decides(const Trial& trial) const;
  // What the function of a source did.
  const Trial& trialOf(Identify* identify) const;
  // What was read of a file. None if no source reads it.
  const Reading* readingOf(File file) const;
};

// "line 3", or "the built-in table" for a board of that.
std::string placeOf(const HardwareIdentity& identity, const Board& board);

}  // namespace ovxid::cli

#endif
