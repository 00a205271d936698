#include "exhaustion/scenarios.h"

namespace {

void findAgain(Subject& subject) {
  subject.identifier->findKnownIdentities();
  subject.answer = "found";
}

void constructAndAnswer(Subject& subject) {
  construct(subject);
  subject.answer = "constructed";
}

void nothing(Subject& /*subject*/) {}
void noFile(Board& /*board*/) {}

void identifierAndRecord(Subject& subject) {
  construct(subject);
  subject.record = {"a name that stood in the record before", {"an alias from before the line"}, 5};
}

// The line is made before the call.
std::function<void(Subject&)> parsing(const std::string& line) {
  return [line](Subject& subject) {
    subject.answer =
        subject.identifier->parseIdentityLine(subject.record, line) ? "accepted" : "rejected";
  };
}

}  // namespace

void knowBoards(Board& board) {
  const std::string longerThanABuffer(70000, 'a');
  board.catalogue(
      "Orvanix Field Node of the Second Series:3:fn1:field_node_of_the_second_series\n"
      "a line that has a name and nothing else, and is rejected\n"
      "Bench Unit with a Name of Some Length:9:bench:Orvanix Field Node of the Second Series\n"
      "a line whose number is none:x7:an alias that no one gets\n" +
      ("Harbor Bridge:-7:" + longerThanABuffer + ":hbm2:Harbor Bridge, the second of its mark\n") +
      "Last Board, without a newline at its end:12:last_board_of_the_catalogue");
}

void construct(Subject& subject) { subject.identifier.emplace(subject.log); }

std::vector<Scenario> catalogueScenarios() {
  return {
      {"catalogue_file", "constructed", knowBoards, nothing, constructAndAnswer},
      {"catalogue_builtin", "constructed", noFile, nothing, constructAndAnswer},
      {"catalogue_file_again", "found", knowBoards, construct, findAgain},
      {"catalogue_builtin_again", "found", noFile, construct, findAgain},
      {"line_accepted", "accepted", noFile, identifierAndRecord,
       parsing(
           "Orvanix Field Node of the Second Series, as the line has it:7:first alias of the line:"
           "second alias of the line:3rd:4th:5th alias of the line")},
      {"line_without_number", "rejected", noFile, identifierAndRecord,
       parsing("Orvanix Field Node of the Second Series, as the line has it")},
      {"line_with_bad_number", "rejected", noFile, identifierAndRecord,
       parsing("Orvanix Field Node of the Second Series, as the line has it:x7:alias of the line")},
  };
}
