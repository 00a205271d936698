#ifndef OVXID_TESTS_CLI_FRONT_END_H
#define OVXID_TESTS_CLI_FRONT_END_H

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "simulation/board.h"
#include "simulation/child.h"

using Arguments = std::vector<std::string>;

// The front end as a user starts it, on a board of the test. Its kernel is the real one, which
// calls its machine i686 when a 32-bit process asks. The front end asks as one, so that an x86_64
// machine on which the tests run is not taken for the board.
class FrontEnd : public testing::Test {
 protected:
  Outcome ovxid(Arguments arguments);

  // How the front end is started from now on. What these say adds up.
  void outputTo(const char* path);
  void outputToClosedPipe();
  void outputClosed();
  void messagesToFullDisk();
  void messagesToClosedPipe();
  void pathIs(const char* path);
  void shellIs(const char* shell);
  void bashIsNotExecutable();
  void closedPipeIsIgnored();
  void onAPc();

  Board mBoard;

 private:
  std::vector<std::function<void()>> mPreparations;
};

#endif
