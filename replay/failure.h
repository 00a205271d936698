#ifndef OVXID_REPLAY_FAILURE_H
#define OVXID_REPLAY_FAILURE_H

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>

namespace ovxid::replay {

// What keeps a board from being replayed: what failed, and why.
class Failure : public std::runtime_error {
 public:
  Failure(std::string what, const std::string& why)
      : std::runtime_error(why), mSubject(std::move(what)) {}

  const std::string& subject() const { return mSubject; }

 private:
  std::string mSubject;
};

// What only a document can have, and no machine: where that is in the document, and why not.
class NotReplayable : public std::runtime_error {
 public:
  NotReplayable(const std::string& place, const std::string& why)
      : std::runtime_error(place + ": " + why) {}
};

// Throws with the reason that errno tells, and with what allows it, unless it succeeded.
inline void require(bool success, const std::string& what, const std::string& hint = "") {
  if (!success) {
    throw Failure(what, std::strerror(errno) + (hint.empty() ? "" : " (" + hint + ")"));
  }
}

}  // namespace ovxid::replay

#endif
