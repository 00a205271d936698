#include <OvxIdentifier.h>

#include "qlog.h"

// A program that leaves it to the library to bring the board's logging library.
int main() {
  cQlog log;
  OvxIdentifier identifier(&log);
  return 0;
}
