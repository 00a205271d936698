#ifndef OVXID_REPLAY_FAILURE_H
#define OVXID_REPLAY_FAILURE_H

#include <cerrno>
#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>

namespace ovxid::replay {

// Exit statuses, as those of env(1): the board cannot be replayed, or the program cannot be run or
// was not found.
constexpr int ownFailure = 125;
constexpr int cannotRun = 126;
constexpr int notFound = 127;

// What keeps a board from being replayed: what failed, and why.
class Failure : public std::runtime_error {
 public:
  Failure(const std::string& what, const std::string& why)
      : std::runtime_error(what + ": " + why) {}
};

// What only a document can have, and no machine: where that is in the document, and why not.
class NotReplayable : public Failure {
 public:
  using Failure::Failure;
};

// Throws a Failure with the reason that errno tells, and with what allows it, unless it succeeded.
inline void require(bool success, const std::string& what, const std::string& hint = "") {
  if (!success) {
    throw Failure(what, std::strerror(errno) + (hint.empty() ? "" : " (" + hint + ")"));
  }
}

// One line on standard error. Nothing in it reaches the terminal as a control character.
void printError(const std::string& text);

// What the call returns. When it throws, prints the error and returns the status of a failure.
int statusOf(const std::function<int()>& call);

}  // namespace ovxid::replay

#endif
