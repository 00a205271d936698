#include <OvxIdentifier.h>

#include <iostream>

// A program of a board that has no logging library at all.
int main() {
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  identifier.addParameter("PROGRAM", "consumer");
  identifier.listParams(std::cout);
  return std::cout ? 0 : 1;
}
