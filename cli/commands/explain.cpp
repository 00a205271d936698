#include "board/board_file.h"
#include "command_line/command.h"
#include "explain/report.h"
#include "output/exit_status.h"
#include "output/output.h"

namespace ovxid::cli::command {

namespace {

std::string paragraph(const Remarks& remarks) {
  std::string text;
  for (const std::string& remark : remarks) {
    text += "- " + remark + "\n";
  }
  return text;
}

}  // namespace

int explain(const Invocation& invocation) {
  Board board(hostOf(invocation), invocation.verbose);
  const Diagnosis diagnosis(board);
  std::string remarks;
  for (auto* const remarksOn : {remarksOnSystem, remarksOnNode, remarksOnSpelling,
                                remarksOnNearMisses, remarksOnHidden, remarksOnParameters}) {
    remarks += paragraph(remarksOn(diagnosis));
  }
  if (!remarks.empty()) {
    remarks.insert(0, "\n");
  }
  print(explainSources(diagnosis) + "\n" + explainConclusion(diagnosis) + remarks);
  return (board.isIdentified() ? exit_status::done : exit_status::no).value;
}

}  // namespace ovxid::cli::command
