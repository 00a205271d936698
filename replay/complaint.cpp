#include "replay/complaint.h"

#include <iostream>

#include "encoding/visible.h"
#include "replay/failure.h"

namespace ovxid::replay {

void complain(const std::string& what, const std::string& why) {
  std::cerr << "ovxid-replay: " + visible(what) + ": " + visible(why) + "\n";
}

int statusOf(const std::function<int()>& call) {
  try {
    return call();
  } catch (const Failure& failure) {
    complain(failure.subject(), failure.what());
  } catch (const std::exception& error) {
    complain("the board", error.what());
  }
  return ownFailure;
}

}  // namespace ovxid::replay
