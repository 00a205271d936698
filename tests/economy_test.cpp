#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

#include "bench/allocations.h"
#include "bench/board.h"

namespace {

// How often a file is opened while this lives.
class OpenCounter {
 public:
  explicit OpenCounter(const std::string& path) : mQueue(inotify_init1(IN_NONBLOCK)) {
    // Equal events in a row are merged, so those of closing are asked for to tell them apart.
    if (inotify_add_watch(mQueue, path.c_str(), IN_OPEN | IN_CLOSE) < 0) {
      throw std::system_error(errno, std::generic_category(), "watch " + path);
    }
  }
  ~OpenCounter() { close(mQueue); }
  OpenCounter(const OpenCounter&) = delete;
  OpenCounter& operator=(const OpenCounter&) = delete;

  int count() const {
    int opened = 0;
    inotify_event event{};
    while (read(mQueue, &event, sizeof event) == sizeof event) {
      opened += (event.mask & IN_OPEN) != 0 ? 1 : 0;
    }
    return opened;
  }

 private:
  int mQueue;
};

TEST(Economy, CountsAllocationsInTheLibrary) {
  Board board;
  OvxIdentifier identifier(board.logger());
  EXPECT_GT(allocationsOf([&] { identifier.determineIdentity(); }), 0);
}

TEST(Economy, ComposesNoMessageOfADeterminationWithoutALogger) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-fn2");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(allocationsOf([&] { identifier.determineIdentity(); }), 0);
}

TEST(Economy, ComposesNoReportWithoutALogger) {
  Board board;
  board.property("boardid", "7").property("description", "a name too long for a short string");
  OvxIdentifier identifier(nullptr);
  identifier.determineIdentity();
  EXPECT_EQ(allocationsOf([&] { identifier.logFullId(log4cpp::Priority::ERROR); }), 0);
}

class ReadOnce : public testing::TestWithParam<const char*> {};

TEST_P(ReadOnce, IsOpenedOnceByTheStepThatNeedsIt) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").cpuinfo("Hardware\t: Field Node\n");
  board.property("description", "x");
  const OpenCounter opened(GetParam());
  OvxIdentifier identifier(nullptr);
  identifier.determineIdentity();
  EXPECT_EQ(opened.count(), 1);
}

INSTANTIATE_TEST_SUITE_P(File, ReadOnce,
                         testing::Values("/etc/known_ovx_ids", "/proc/cpuinfo",
                                         "/proc/device-tree/orvanix/description"));

TEST(Economy, OpensBoardidOnce) {
  Board board;
  board.property("boardid", "7");
  OvxIdentifier identifier(nullptr);
  const OpenCounter opened("/proc/device-tree/orvanix/boardid");
  identifier.getHardwareName();
  identifier.getHardwareNumber();
  EXPECT_EQ(opened.count(), 1);
}

TEST(Economy, OpensAPropertyOnce) {
  Board board;
  board.property("wifi", "yes");
  OvxIdentifier identifier(nullptr);
  const OpenCounter opened("/proc/device-tree/orvanix/wifi");
  identifier.parse_params();
  EXPECT_EQ(opened.count(), 1);
}

}  // namespace
