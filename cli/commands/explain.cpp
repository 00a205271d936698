#include "board_file.h"
#include "command.h"
#include "exit_status.h"
#include "explain/conclusion.h"
#include "explain/remarks.h"
#include "explain/sources.h"
#include "output.h"

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
