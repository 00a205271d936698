#include <OvxIdentifier.h>

#include <iostream>

// Prints the board's name and number and then its parameters, one a line.
int main() {
  OvxIdentifier board(nullptr);
  std::cout << board.getHardwareName() << '\n';
  std::cout << board.getHardwareNumber() << '\n';
  board.loadParams();
  if (!board.listParams(std::cout)) {
    return 1;
  }
  return 0;
}
