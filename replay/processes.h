#ifndef OVXID_REPLAY_PROCESSES_H
#define OVXID_REPLAY_PROCESSES_H

#include <deque>

#include "text/descriptor.h"

namespace ovxid::replay {

// The largest number that the kernel gives a process; 0 if it does not tell.
int largestProcess();

// The entries of processes in the replaced /proc, also when a program has mounted something over
// it, or has taken it away. Nothing can make one at the moment when a program looks for it, so each
// number has one before a process gets it: numbers are given one after the other.
class Processes {
 public:
  // Throws Failure.
  Processes();

  // Makes some entries. Has to be called again at once if they are not enough yet, as the result
  // tells, else when this time has passed.
  bool makeEntries();
  static constexpr int milliseconds = 50;

  // The replaced /proc, and the real one in it.
  int directory() const { return mDirectory.get(); }
  int realDirectory() const { return mRealDirectory.get(); }

 private:
  int lastNumber() const;
  int entriesAhead();
  void makeEntry(int number) const;
  void removeEntryOfNobody(int number) const;
  void forget();

  Descriptor mDirectory;
  Descriptor mRealDirectory;
  int mLargest;
  int mAhead;
  // The number behind the last one that has an entry.
  int mNext;
  std::deque<int> mMade;
};

}  // namespace ovxid::replay

#endif
