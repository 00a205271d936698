#ifndef OVXID_CLI_ARGUMENTS_H
#define OVXID_CLI_ARGUMENTS_H

#include <stdexcept>
#include <string>

enum class Command { list, name, number, run, shell };

struct Arguments {
  // The text to print instead, when help or the version was asked for.
  std::string help;
  Command command = Command::list;
  bool verbose = false;
  // The words that belong to what `run` or `shell` launches, ended by a null pointer.
  int launchedCount = 0;
  char** launched = nullptr;
};

struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Throws UsageError.
Arguments readArguments(int argc, char** argv);

#endif
