#include "replay/processes.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <string>

#include "replay/failure.h"

namespace ovxid::replay {

namespace {

// How many numbers have entries before they are given: more than all processors of the machine can
// make processes until room is made again.
int ahead() {
  constexpr long forEach = 2048;
  constexpr long most = 16384;
  return static_cast<int>(std::min(forEach * sysconf(_SC_NPROCESSORS_ONLN), most));
}

// The kernel's first number for a process when it begins anew.
constexpr int first = 300;

int largestNumber() {
  int number = 0;
  std::ifstream("/proc/sys/kernel/pid_max") >> number;
  return number;
}

// The last word of /proc/loadavg.
int lastNumber() {
  std::ifstream file("/proc/.kept/loadavg");
  std::string word;
  int number = 0;
  while (file >> word) {
    std::from_chars(word.data(), word.data() + word.size(), number);
  }
  return number;
}

std::string entryOf(int number) { return "/proc/" + std::to_string(number); }

// What is there already is right.
void makeEntry(int number) {
  [[maybe_unused]] const int result =
      symlink((".kept/" + std::to_string(number)).c_str(), entryOf(number).c_str());
}

void removeEntryOfNobody(int number) {
  if (access(("/proc/.kept/" + std::to_string(number)).c_str(), F_OK) != 0) {
    unlink(entryOf(number).c_str());
  }
}

}  // namespace

Processes::Processes() : mAhead(ahead()), mLargest(largestNumber()), mNext(lastNumber() + 1) {
  if (mLargest == 0 || mNext == 1) {
    throw Failure("/proc/loadavg", "cannot be read");
  }
  // The rest is made while the program starts.
  constexpr int soon = 256;
  makeRoomFor(soon);
}

void Processes::makeRoom() { makeRoomFor(mAhead); }

void Processes::makeRoomFor(int processes) {
  const int last = lastNumber();
  int room = (mNext - last + mLargest) % mLargest;
  // The numbers below the first one of a new beginning are left out.
  if (room > mAhead + first) {
    // More processes were made elsewhere meanwhile than have entries.
    mNext = last + 1;
    room = 1;
  }
  for (; room < processes; ++room) {
    if (mNext >= mLargest) {
      mNext = first;
    }
    makeEntry(mNext);
    mMade.push_back(mNext++);
  }
  forget();
}

// Of numbers that were given long ago, only those of processes that still run keep their entries.
void Processes::forget() {
  const auto kept = static_cast<std::size_t>(mAhead) * 2;
  for (; mMade.size() > kept; mMade.pop_front()) {
    removeEntryOfNobody(mMade.front());
  }
}

}  // namespace ovxid::replay
