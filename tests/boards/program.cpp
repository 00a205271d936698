// A program on the board. It does what the front end does, but it uses the class directly and has a
// logger of its own.
#include <OvxIdentifier.h>

#include <cstdio>
#include <iostream>

class cQlog {
 public:
  void debug(const char* message, ...);
  void info(const char* message, ...);
  void warn(const char* message, ...);
  void error(const char* message, ...);
  void fatal(const char* message, ...);
};

namespace {

void print(const char* level, const char* message) {
  std::cerr << '[' << level << "] " << message << '\n';
}

int tell() {
  cQlog log;
  OvxIdentifier board(&log);
  std::cout << "name: " << board.getHardwareName() << '\n';
  std::cout << "number: " << board.getHardwareNumber() << '\n';
  board.loadParams();
  return board.listParams(std::cout) ? 0 : 1;
}

int launch(int argc, char** argv, bool useShell) {
  OvxIdentifier board(nullptr);
  board.loadParams();
  board.execute(argc, argv, useShell);
  std::perror("execute");
  return 1;
}

}  // namespace

void cQlog::debug(const char* message, ...) { print("debug", message); }
void cQlog::info(const char* message, ...) { print("info", message); }
void cQlog::warn(const char* message, ...) { print("warn", message); }
void cQlog::error(const char* message, ...) { print("error", message); }
void cQlog::fatal(const char* message, ...) { print("fatal", message); }

int main(int argc, char** argv) {
  if (argc < 3) {
    return tell();
  }
  return launch(argc - 2, argv + 2, std::string(argv[1]) == "shell");
}
