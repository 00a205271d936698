#ifndef OVXID_TESTS_SIMULATION_CHILD_H
#define OVXID_TESTS_SIMULATION_CHILD_H

#include <functional>
#include <ostream>
#include <string>
#include <vector>

// How a child process ended and what it wrote.
struct Outcome {
  // The exit status, or 128 and the number of the signal that ended it, as the shell counts.
  int status;
  std::string out;
  std::string err;
};

bool operator==(const Outcome& left, const Outcome& right);
void PrintTo(const Outcome& outcome, std::ostream* out);

// Runs the call in a child process, which exits with its result.
Outcome inChild(const std::function<int()>& call);

// The arguments as a program receives them, ended by a null pointer, and valid as long as these.
std::vector<char*> pointers(std::vector<std::string>& arguments);

// What the call writes to standard error.
std::string standardErrorOf(const std::function<void()>& call);

#endif
