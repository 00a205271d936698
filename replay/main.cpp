#include <fcntl.h>
#include <getopt.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>

#include "replay/comparison.h"
#include "replay/complaint.h"
#include "replay/failure.h"
#include "replay/interfaces.h"
#include "replay/program.h"
#include "replay/recording.h"
#include "replay/signals.h"
#include "replay/surroundings.h"

namespace ovxid::replay {

namespace {

constexpr int usageError = 2;

constexpr const char* usage =
    "Usage: ovxid-replay DIRECTORY [[--] PROGRAM [ARG...]]\n"
    "\n"
    "Runs a program as if it ran on the board that 'ovxid record' has written down.\n"
    "Without a program, compares what ovxid says there with what it said on the board.\n"
    "\n"
    "Options:\n"
    "  -h, --help            Print a help text and exit\n"
    "  -V, --version         Print the version and exit\n"
    "\n"
    "Exit status:\n"
    "  that of the program, or\n"
    "  0                     ovxid says the same\n"
    "  1                     ovxid says something else\n"
    "  2                     the command line is wrong\n"
    "  125                   the board cannot be replayed\n"
    "  126                   the program cannot be run\n"
    "  127                   the program was not found\n";

// So that nothing that is opened takes the place of a stream which is closed. Writing there fails
// as before, and it is closed again when the program is run.
void holdClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) < 0) {
      open("/dev/null", O_RDONLY | O_CLOEXEC);
    }
  }
}

int run(char** words) {
  execvp(words[0], words);
  const int reason = errno;
  complain(*words[0] == '\0' ? "''" : words[0], std::strerror(reason));
  return reason == ENOENT ? notFound : cannotRun;
}

int replay(const char* directory, char** words) {
  Signals signals;
  const Recording recording = readRecording(directory);
  takeOwnMounts(InNamespace::asOneself);
  // In place for as long as a process of the board is left.
  [[maybe_unused]] const Surroundings surroundings(recording);
  const std::vector<int> tunnels = makeInterfaces(recording);
  runOnBoard(recording, tunnels, signals,
             [&] { return *words == nullptr ? compareWithRecording(recording) : run(words); });
}

int print(const char* text) {
  require(static_cast<bool>(std::cout << text << std::flush), "standard output");
  return 0;
}

// The option that getopt_long has just refused.
std::string refusedOption(char** argv) {
  const std::string word = argv[optind - 1];
  const bool isLong = optopt == 0 || word.rfind("--", 0) == 0;
  return isLong ? word : std::string("-") + static_cast<char>(optopt);
}

int readWords(int argc, char** argv) {
  constexpr option options[] = {
      {"help", no_argument, nullptr, 'h'}, {"version", no_argument, nullptr, 'V'}, {}};
  opterr = 0;
  switch (getopt_long(argc, argv, "+hV", options, nullptr)) {
    case 'h':
      return print(usage);
    case 'V':
      return print("ovxid-replay " OVXID_VERSION "\n");
    case -1:
      break;
    default:
      complain(refusedOption(argv), "no such option (see 'ovxid-replay --help')");
      return usageError;
  }
  if (optind == argc) {
    complain("DIRECTORY", "is missing (see 'ovxid-replay --help')");
    return usageError;
  }
  char** words = argv + optind + 1;
  if (*words != nullptr && std::strcmp(*words, "--") == 0) {
    ++words;
  }
  return replay(argv[optind], words);
}

}  // namespace

}  // namespace ovxid::replay

int main(int argc, char** argv) {
  ovxid::replay::holdClosedStreams();
  return ovxid::replay::statusOf([&] { return ovxid::replay::readWords(argc, argv); });
}
