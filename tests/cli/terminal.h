#ifndef OVXID_TESTS_CLI_TERMINAL_H
#define OVXID_TESTS_CLI_TERMINAL_H

#include <string>

// A terminal for as long as this lives.
class Terminal {
 public:
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  // What a program opens to write to it.
  std::string path() const { return mPath; }
  // What was written to it since the last call. A terminal puts a carriage return before a newline.
  std::string shown() const;

 private:
  int mMaster;
  std::string mPath;
  // Open for as long as the terminal lives: what nobody has open loses what was written.
  int mSlave;
};

#endif
