#include "replay/processes.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <string>
#include <string_view>

#include "replay/failure.h"

namespace ovxid::replay {

namespace {

// Few enough for a call that has to be answered meanwhile to wait.
constexpr int atOnce = 256;

// The kernel's first number for a process when it begins anew.
constexpr int first = 300;

// How many numbers have entries before they are given: more than all processors of the machine can
// make processes until the next entries are made, but not so many that a number has been given
// again before its entry is forgotten.
int ahead(int largest) {
  constexpr long forEach = 2048;
  constexpr long most = 16384;
  return static_cast<int>(
      std::min({forEach * sysconf(_SC_NPROCESSORS_ONLN), most, (largest - first) / 4L}));
}

Descriptor openDirectory(const char* path) {
  Descriptor directory(open(path, O_PATH | O_DIRECTORY | O_CLOEXEC));
  require(directory.get() >= 0, path);
  return directory;
}

}  // namespace

int largestProcess() {
  int number = 0;
  std::ifstream("/proc/sys/kernel/pid_max") >> number;
  return number;
}

Processes::Processes()
    : mDirectory(openDirectory("/proc")),
      mRealDirectory(openDirectory("/proc/.kept")),
      mLargest(largestProcess()),
      mAhead(ahead(mLargest)),
      mNext(lastNumber() + 1) {
  if (mLargest == 0 || mNext == 1) {
    throw Failure("/proc/loadavg", "cannot be read");
  }
  // The rest is made while the program runs.
  makeEntries();
}

// The last word of /proc/loadavg.
int Processes::lastNumber() const {
  std::array<char, 128> text{};
  const Descriptor file(openat(realDirectory(), "loadavg", O_RDONLY | O_CLOEXEC));
  const ssize_t size = read(file.get(), text.data(), text.size());
  const std::string_view line(text.data(), size < 0 ? 0 : static_cast<std::size_t>(size));
  const std::string_view word = line.substr(line.rfind(' ') + 1);
  int number = 0;
  std::from_chars(word.data(), word.data() + word.size(), number);
  return number;
}

bool Processes::makeEntries() {
  int count = entriesAhead();
  for (const int enough = std::min(count + atOnce, mAhead); count < enough; ++count) {
    if (mNext >= mLargest) {
      mNext = first;
    }
    makeEntry(mNext);
    mMade.push_back(mNext++);
  }
  forget();
  return count >= mAhead;
}

// How many numbers that come next have entries.
int Processes::entriesAhead() {
  const int last = lastNumber();
  // The numbers below the first one are left out when they begin anew.
  const int count = mNext - last + (mNext > last ? 0 : mLargest - first);
  if (count <= mAhead) {
    return count;
  }
  // More processes were made elsewhere meanwhile than have entries.
  mNext = last + 1;
  return 1;
}

// What is there already is right.
void Processes::makeEntry(int number) const {
  const std::string name = std::to_string(number);
  [[maybe_unused]] const int result =
      symlinkat((".kept/" + name).c_str(), directory(), name.c_str());
}

// Of numbers that were given long ago, only those of processes that still run keep their entries.
void Processes::forget() {
  const auto kept = static_cast<std::size_t>(mAhead) * 2;
  for (; mMade.size() > kept; mMade.pop_front()) {
    removeEntryOfNobody(mMade.front());
  }
}

void Processes::removeEntryOfNobody(int number) const {
  const std::string name = std::to_string(number);
  if (faccessat(realDirectory(), name.c_str(), F_OK, 0) != 0) {
    unlinkat(directory(), name.c_str(), 0);
  }
}

}  // namespace ovxid::replay
