#include <OvxIdentifier.h>

#include "qlog.h"

// A program that does not link the board's logging library: libovxid.so.1 loads it.
int main() {
  cQlog log;
  OvxIdentifier identifier(&log);
  return 0;
}
