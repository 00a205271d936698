#ifndef OVXID_RECORDING_SESSION_H
#define OVXID_RECORDING_SESSION_H

#include <functional>
#include <string>
#include <string_view>

namespace ovxid::recording {

// How a process ended, and what it wrote.
struct Outcome {
  // For a process that a signal ended, 128 and the number of the signal.
  int status;
  std::string out;
  std::string err;
};

// Runs the call in a child process; what it returns is the exit status. Throws std::system_error.
Outcome outcomeOf(const std::function<int()>& call);

// A command and what it did as a session: each line of its output behind a mark, with escapes for
// the bytes that do not show.
std::string session(const std::string& command, const Outcome& outcome);

// The text with the escapes of a session.
std::string escaped(std::string_view text);

}  // namespace ovxid::recording

#endif
