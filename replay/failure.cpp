#include "replay/failure.h"

#include <iostream>

#include "encoding/visible.h"

namespace ovxid::replay {

void printError(const std::string& text) { std::cerr << "ovxid-replay: " + visible(text) + "\n"; }

int statusOf(const std::function<int()>& call) {
  try {
    return call();
  } catch (const Failure& failure) {
    printError(failure.what());
  } catch (const std::exception& error) {
    printError(std::string("the board: ") + error.what());
  }
  return ownFailure;
}

}  // namespace ovxid::replay
