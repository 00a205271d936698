// Prints the board's name and number.
//
//   c++ -o identify identify.cpp $(pkg-config --cflags --libs ovxid)
#include <OvxIdentifier.h>

#include <iostream>

int main() {
  OvxIdentifier board(nullptr);  // no logger
  // A name from the device tree has a NUL byte at its end, where c_str() ends.
  std::cout << board.getHardwareName().c_str() << '\n' << board.getHardwareNumber() << '\n';
  return 0;
}
