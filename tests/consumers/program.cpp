#include <OvxIdentifier.h>

#include <iostream>

// A program for a board without a logging library.
int main() {
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  identifier.addParameter("PROGRAM", "consumer");
  identifier.listParams(std::cout);
  return std::cout ? 0 : 1;
}
