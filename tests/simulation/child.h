#ifndef OVXID_TESTS_SIMULATION_CHILD_H
#define OVXID_TESTS_SIMULATION_CHILD_H

#include <functional>
#include <ostream>
#include <string>
#include <vector>

// How a child process ended, and what it wrote.
struct Outcome {
  // The exit status. For a process that a signal ended, 128 plus the number of the signal.
  int status;
  std::string out;
  std::string err;
};

bool operator==(const Outcome& left, const Outcome& right);
void PrintTo(const Outcome& outcome, std::ostream* out);

// Runs the call in a child process. The result of the call is its exit status.
Outcome inChild(const std::function<int()>& call);

// Pointers to the arguments, and a null pointer after the last. They are valid as long as
// `arguments`.
std::vector<char*> pointers(std::vector<std::string>& arguments);

// The text that the call writes to standard error.
std::string standardErrorOf(const std::function<void()>& call);

#endif
