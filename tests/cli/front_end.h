#ifndef OVXID_TESTS_CLI_FRONT_END_H
#define OVXID_TESTS_CLI_FRONT_END_H

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "simulation/board.h"
#include "simulation/child.h"

using Arguments = std::vector<std::string>;

// The texts that end in NUL bytes, as `env -0` prints variables, in any order.
std::multiset<std::string> entriesOf(const std::string& text);

// Starts the real front end, on the board of the test. Only uname(2) tells it of the real machine.
// Linux tells a 32-bit process that the machine is i686, so the front end is started like one:
// otherwise it would take an x86_64 machine that runs the tests for a PC.
class FrontEnd : public testing::Test {
 protected:
  Outcome ovxid(Arguments arguments);

  // These change how the front end is started. Later calls add to earlier ones.
  void inputFrom(const std::string& path);
  void outputTo(int descriptor);
  void outputTo(const char* path);
  void outputToClosedPipe();
  void outputClosed();
  void messagesTo(const std::string& path);
  void messagesToClosedPipe();
  void pathIs(const char* path);
  void shellIs(const char* shell);
  void bashIsNotExecutable();
  void ignores(int signal);
  void filesAreAtMost(unsigned bytes);
  void isPosixlyCorrect();
  // Also root then reads only what the modes of files allow.
  void obeysModes();
  // What uname(2) tells the front end and what it starts. With an empty machine it fails.
  void kernelIs(const std::string& release, const std::string& machine);
  // Who owns what the front end comes upon, directories aside.
  void filesBelongTo(uid_t owner);
  // The system call fails with EPERM when this is the low half of its second argument.
  void kernelRefuses(long call, unsigned argument);
  // The allocations are counted from 1. Which one was refused is told on standard error.
  void refusesAllocation(int number);

  Board mBoard;

 private:
  std::vector<std::function<void()>> mPreparations;
};

#endif
