// set_clock SECONDS: sets the clock of the board, also to a time that the programs of a 32-bit
// system cannot name.
#include <cstdio>
#include <cstdlib>
#include <ctime>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: set_clock SECONDS\n", stderr);
    return 2;
  }
  timespec time{};
  time.tv_sec = std::strtoll(argv[1], nullptr, 10);
  if (clock_settime(CLOCK_REALTIME, &time) != 0) {
    std::perror("set_clock");
    return 1;
  }
  return 0;
}
