#ifndef OVXID_CLI_COMMAND_LINE_OPTIONS_H
#define OVXID_CLI_COMMAND_LINE_OPTIONS_H

#include <getopt.h>

#include <string>
#include <vector>

#include "command_line/command.h"

namespace ovxid::cli {

// How far among the words the options may stand.
enum class Reach { beforeOperands, everywhere };

// Reads the options of a command line by getopt_long(3), which leaves its position in optind.
class Options {
 public:
  // `help` is the command line that tells more.
  Options(std::vector<Option> options, Reach reach, std::string help);

  // The next option, or null behind the last one; argument() is its argument. Throws Failure.
  const Option* next(int argc, char** argv);
  const char* argument() const { return mArgument; }

  // Whether a "--" ended the options. Known behind the last one.
  bool wereEndedByDashes(char** argv) const;

  // Throws Failure for the word, which is why.
  [[noreturn]] void refuse(const std::string& word, const std::string& why) const;

 private:
  int code(const Option& option) const;
  const Option* find(int code) const;
  [[noreturn]] void refuseUnknown(const std::string& word) const;

  std::vector<Option> mOptions;
  std::vector<::option> mLong;
  std::string mShort;
  std::string mHelp;
  const char* mArgument = nullptr;
};

// The options before the command, and those behind it.
Options generalOptionReader();
Options optionReader(const Command& command);

}  // namespace ovxid::cli

#endif
