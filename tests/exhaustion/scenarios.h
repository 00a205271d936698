#ifndef OVXID_TESTS_EXHAUSTION_SCENARIOS_H
#define OVXID_TESTS_EXHAUSTION_SCENARIOS_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "exhaustion/heap.h"
#include "exhaustion/holdings.h"
#include "simulation/board.h"

// What a scenario is tried on.
struct Subject {
  explicit Subject(bool withLogger) : log(withLogger ? &logger : nullptr) {}

  cQlog logger;
  cQlog* log;
  std::optional<OvxIdentifier> identifier;
  HardwareIdentity record{};
  // What the call came to. Short, so that it takes no memory, but for a name.
  std::string answer;
};

// What may come of a walk for which the C library had no memory, while the call goes on.
struct FailedWalk {
  std::string answer;
  // What is appended next, to a list of which the last walk got this far.
  std::function<Params(const Params&)> appendedNext;
};

// What a program may ask of the library, from the call to its end.
struct Scenario {
  std::string name;
  // What it comes to as long as there is memory.
  std::string answer;
  std::function<void(Board&)> board;
  std::function<void(Subject&)> prepare;
  std::function<void(Subject&)> call;

  heap::Ending ending = heap::Ending::returned;
  // Whether the C library remembers in the process that there was no memory.
  bool inOwnProcess = false;
  // The name that a source may leave behind although it does not identify the board.
  std::string passingName{};
  std::optional<FailedWalk> failedWalk{};
};

std::vector<Scenario> catalogueScenarios();
std::vector<Scenario> identityScenarios();
std::vector<Scenario> parameterScenarios();

// Boards of the catalogue that the scenarios share, which has rejected lines as well.
void knowBoards(Board& board);

void construct(Subject& subject);

#endif
