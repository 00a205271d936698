#include "command.h"
#include "diagnostics.h"
#include "explain/remarks.h"
#include "explain/sources.h"
#include "explain/verdict.h"
#include "output.h"

namespace ovxid::cli::command {

namespace {

// Whether the library gave up instead of coming to a result, which the report tells as well.
bool givesUp(Board& board) {
  try {
    board.identify();
    return false;
  } catch (const Failure&) {  // GCOVR_EXCL_BR_LINE: std::bad_alloc goes on to main
    return true;
  }
}

std::string paragraph(const Remarks& remarks) {
  std::string text;
  for (const std::string& remark : remarks) {
    text += "- " + remark + "\n";
  }
  return text;
}

}  // namespace

int explain(const Invocation& invocation) {
  Board board(invocation.verbose, true);
  const bool gaveUp = givesUp(board);
  Evidence evidence(board);
  evidence.gaveUp = gaveUp;
  std::string remarks;
  for (auto* const remarksOn : {remarksOnSystem, remarksOnNode, remarksOnSpelling,
                                remarksOnNearMisses, remarksOnHidden, remarksOnParameters}) {
    remarks += paragraph(remarksOn(evidence));
  }
  if (!remarks.empty()) {
    remarks.insert(0, "\n");
  }
  print(explainSources(evidence) + "\n" + explainVerdict(evidence) + remarks);
  return board.isIdentified() ? exit_status::done.value : exit_status::no.value;
}

}  // namespace ovxid::cli::command
