#ifndef OVXID_REPLAY_COMPLAINT_H
#define OVXID_REPLAY_COMPLAINT_H

#include <functional>
#include <string>

namespace ovxid::replay {

// Exit statuses, as those of env(1): the board cannot be replayed, or the program cannot be run or
// was not found.
constexpr int ownFailure = 125;
constexpr int cannotRun = 126;
constexpr int notFound = 127;

// One line on standard error. Nothing in it reaches the terminal as a control character.
void complain(const std::string& what, const std::string& why);

// What the call returns. When it throws, complains and returns the status of a failure.
int statusOf(const std::function<int()>& call);

}  // namespace ovxid::replay

#endif
