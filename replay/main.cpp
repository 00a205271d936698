#include <fcntl.h>
#include <getopt.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <optional>
#include <string>

#include "recording/file.h"
#include "recording/limits.h"
#include "recording/reader.h"
#include "replay/comparison.h"
#include "replay/failure.h"
#include "replay/interfaces.h"
#include "replay/mounts.h"
#include "replay/namespaces.h"
#include "replay/program.h"
#include "replay/requirements.h"
#include "replay/signals.h"

namespace ovxid::replay {

namespace {

constexpr int wrongUsage = 2;

constexpr const char* usage =
    "Usage: ovxid-replay [OPTIONS] FILE [[--] PROGRAM [ARG...]]\n"
    "\n"
    "Runs a program as if it ran on the board that 'ovxid record' has written down.\n"
    "Without a program, compares what ovxid says there with what it said on the board.\n"
    "\n"
    "Options:\n"
    "      --catalogue FILE  Read this catalogue instead of the board's own\n"
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
void occupyClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) < 0) {
      open("/dev/null", O_RDONLY | O_CLOEXEC);
    }
  }
}

// A name in a message, also an empty one.
std::string named(const std::string& name) { return name.empty() ? "''" : name; }

int run(char** words) {
  execvp(words[0], words);
  const int error = errno;
  printError(named(words[0]) + ": " + std::strerror(error));
  return error == ENOENT ? notFound : cannotRun;
}

struct CommandLine {
  std::string file;
  std::optional<std::string> catalogue;
  // Ended by a null pointer. None to compare with what was said on the board.
  char** program = nullptr;
};

// Standard input is that of the program.
template <typename Read>
auto readFrom(const std::string& file, Read read) {
  if (file == "-") {
    throw Failure(file, "standard input belongs to the program: give a file");
  }
  try {
    return read(file);
  } catch (const recording::Unreadable& error) {
    throw Failure(named(file), error.what());
  }
}

recording::Recording readRecording(const CommandLine& line) {
  recording::Recording recording = readFrom(line.file, recording::readFile);
  if (*line.program == nullptr && !recording.said) {
    throw Failure(line.file, "does not tell what ovxid said there: nothing to compare with");
  }
  if (line.catalogue) {
    recording.catalogue.openError = recording.catalogue.readError = 0;
    recording.catalogue.bytes = readFrom(*line.catalogue, [](const std::string& file) {
      return recording::bytesOfFile(file, recording::limit::document);
    });
  }
  return recording;
}

[[noreturn]] void replay(const CommandLine& line) {
  Signals signals;
  const recording::Recording recording = readRecording(line);
  requireReplayable(recording);
  enterMountNamespace(geteuid(), getegid());
  mountBoard(recording);
  const std::vector<int> tunnels = makeInterfaces(recording.interfaces);
  runOnBoard(recording, tunnels, signals, [&] {
    return *line.program == nullptr ? compareWithBoard(line.file, *recording.said)
                                    : run(line.program);
  });
}

int print(const char* text) {
  require(static_cast<bool>(std::cout << text << std::flush), "standard output");
  return 0;
}

int usageError(const std::string& word, const std::string& why) {
  printError(word + ": " + why + " (see 'ovxid-replay --help')");
  return wrongUsage;
}

// The option that getopt_long does not know.
std::string unknownOption(char** argv) {
  const std::string word = argv[optind - 1];
  const bool isLong = optopt == 0 || word.rfind("--", 0) == 0;
  return isLong ? word : std::string("-") + static_cast<char>(optopt);
}

[[noreturn]] void replayFrom(CommandLine line, char** operands) {
  line.file = operands[0];
  const bool isMarked = operands[1] != nullptr && std::strcmp(operands[1], "--") == 0;
  line.program = operands + (isMarked ? 2 : 1);
  try {
    replay(line);
  } catch (const NotReplayable& error) {
    throw Failure(line.file, error.what());
  }
}

int replayAsTold(int argc, char** argv) {
  constexpr option options[] = {{"catalogue", required_argument, nullptr, 'c'},
                                {"help", no_argument, nullptr, 'h'},
                                {"version", no_argument, nullptr, 'V'},
                                {}};
  opterr = 0;
  CommandLine line;
  for (int letter = 0; (letter = getopt_long(argc, argv, "+:hV", options, nullptr)) != -1;) {
    switch (letter) {
      case 'c':
        line.catalogue = optarg;
        break;
      case 'h':
        return print(usage);
      case 'V':
        return print("ovxid-replay " OVXID_VERSION "\n");
      case ':':
        return usageError(argv[optind - 1], "needs a FILE");
      default:
        return usageError(unknownOption(argv), "no such option");
    }
  }
  if (optind == argc) {
    return usageError("FILE", "is missing");
  }
  replayFrom(std::move(line), argv + optind);
}

}  // namespace

}  // namespace ovxid::replay

int main(int argc, char** argv) {
  ovxid::replay::occupyClosedStreams();
  return ovxid::replay::statusOf([&] { return ovxid::replay::replayAsTold(argc, argv); });
}
