#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

#include "command.h"
#include "diagnostics.h"
#include "output.h"

namespace ovxid::cli::command {

namespace {

// A program of its own, since boards need not carry what it needs.
char program[] = "ovxid-replay";
char endOfOptions[] = "--";

}  // namespace

int replay(const Invocation& invocation) {
  std::vector<char*> words = {program, endOfOptions};
  words.insert(words.end(), invocation.operands, invocation.operands + invocation.operandCount + 1);
  const InheritedHandlers handlers;
  execvp(program, words.data());
  if (errno == ENOENT) {
    throw Failure(exit_status::notFound, program, "not installed (package ovxid-replay)");
  }
  throw Failure(exit_status::cannotRun, program, std::strerror(errno));
}

}  // namespace ovxid::cli::command
