#include "exhaustion/scenarios.h"
#include "simulation/kernel.h"

namespace {

const std::string description(5000, 'd');

void determine(Subject& subject) {
  subject.answer = subject.identifier->determineIdentity() ? "identified" : "unknown";
}

void askName(Subject& subject) { subject.answer = subject.identifier->getHardwareName(); }

void askNumber(Subject& subject) {
  subject.answer = std::to_string(subject.identifier->getHardwareNumber());
}

void report(Subject& subject) {
  subject.identifier->logFullId(log4cpp::Priority::WARN);
  subject.answer = "reported";
}

void tellLogger(Subject& subject) {
  subject.identifier->tryLog("a message that a program hands over to the logger");
  subject.answer = "told";
}

void constructAndDetermine(Subject& subject) {
  construct(subject);
  subject.identifier->determineIdentity();
}

// The kernel calls the board by another name once it is determined.
std::function<void(Subject&)> determineBeforeRelease(const std::string& release) {
  return [release](Subject& subject) {
    kernel.release = "5.10.0-fn1";
    constructAndDetermine(subject);
    kernel.release = release;
  };
}

void node(Board& board) {
  knowBoards(board);
  board.property("boardid", "7\n").property("description", description + "\nsecond line\n");
}

void descriptionAlone(Board& board) {
  knowBoards(board);
  board.property("description", description);
}

void release(Board& board) {
  knowBoards(board);
  board.kernelRelease("5.10.0-field_node_of_the_second_series");
}

void releaseWithoutMatch(Board& board) {
  knowBoards(board);
  board.kernelRelease("5.10.0-a_suffix_that_nobody_knows");
}

void pc(Board& board) {
  knowBoards(board);
  board.kernelRelease("6.1.0-13-amd64").machine("x86_64");
}

std::function<void(Board&)> cpuinfo(const std::string& lastLine) {
  return [lastLine](Board& board) {
    knowBoards(board);
    board.unameFails().cpuinfo("processor\t: 0\nmodel name\t: ARMv7 Processor rev 5 (v7l)\n\n" +
                               lastLine);
  };
}

Scenario leaving(const std::string& passingName, Scenario scenario) {
  scenario.passingName = passingName;
  return scenario;
}

Scenario throwing(Scenario scenario) {
  scenario.ending = heap::Ending::outOfRange;
  return scenario;
}

}  // namespace

std::vector<Scenario> identityScenarios() {
  const auto byName = cpuinfo("Hardware\t: Bench Unit with a Name of Some Length\nSerial\t: 0\n");
  const auto byAlias = cpuinfo("Hardware\t: Harbor Bridge, the second of its mark");
  const auto withoutMatch = cpuinfo("Hardware\t: a board that nobody has ever heard of\n");
  return {
      {"device_tree", "identified", node, construct, determine},
      leaving(description,
              {"description_alone", "unknown", descriptionAlone, construct, determine}),
      {"release_alias", "identified", release, construct, determine},
      {"release_without_match", "unknown", releaseWithoutMatch, construct, determine},
      {"machine", "identified", pc, construct, determine},
      {"cpuinfo_name", "identified", byName, construct, determine},
      {"cpuinfo_alias", "identified", byAlias, construct, determine},
      {"cpuinfo_without_match", "unknown", withoutMatch, construct, determine},
      {"cpuinfo_without_hardware", "unknown", cpuinfo("Revision\t: 0000\n"), construct, determine},
      throwing({"cpuinfo_ends_at_colon", "", cpuinfo("Hardware:\n"), construct, determine}),
      {"cpuinfo_missing", "unknown", knowBoards, construct, determine},
      {"determined_before", "identified", knowBoards, determineBeforeRelease("5.10.0-bench"),
       determine},
      {"determined_no_more", "unknown", knowBoards, determineBeforeRelease("5.10.0-other"),
       determine},
      {"query_of_name", "Orvanix Field Node of the Second Series", release, construct, askName},
      {"query_of_known_name", "Orvanix Field Node of the Second Series", release,
       constructAndDetermine, askName},
      {"query_of_number", "9", byName, construct, askNumber},
      {"query_of_unknown_board", "-1", withoutMatch, construct, askNumber},
      {"report", "reported", release, constructAndDetermine, report},
      {"report_of_unknown_board", "reported", knowBoards, constructAndDetermine, report},
      {"message", "told", knowBoards, construct, tellLogger},
  };
}
