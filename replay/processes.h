#ifndef OVXID_REPLAY_PROCESSES_H
#define OVXID_REPLAY_PROCESSES_H

#include <deque>

namespace ovxid::replay {

// The entries of processes in the replaced /proc. Nothing can make one at the moment when a program
// looks for it, so each number has one before a process gets it: numbers are given one after the
// other.
class Processes {
 public:
  // Throws Failure.
  Processes();

  // Has to be called whenever this time has passed.
  static constexpr int milliseconds = 50;
  void makeRoom();

 private:
  void makeRoomFor(int processes);
  void forget();

  int mAhead;
  int mLargest;
  // The number behind the last one that has an entry.
  int mNext;
  std::deque<int> mMade;
};

}  // namespace ovxid::replay

#endif
