#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "simulation/allocations.h"
#include "simulation/board.h"
#include "simulation/descriptors.h"

namespace {

// Counts how often a file is opened while this object lives.
class OpenCounter {
 public:
  // The kernel merges equal events that follow each other. It is told to report on the directory
  // too, so that an event of the directory stands between two events of the file.
  explicit OpenCounter(const std::string& path)
      : mQueue(inotify_init1(IN_NONBLOCK)), mFile(watch(path)) {
    watch(std::filesystem::path(path).parent_path());
  }
  ~OpenCounter() { close(mQueue); }
  OpenCounter(const OpenCounter&) = delete;
  OpenCounter& operator=(const OpenCounter&) = delete;

  int count() const {
    int opened = 0;
    alignas(inotify_event) std::array<char, 4096> events{};
    const ssize_t size = read(mQueue, events.data(), events.size());
    for (ssize_t at = 0; at < size;) {
      inotify_event event{};
      std::memcpy(&event, events.data() + at, sizeof event);
      opened += event.wd == mFile ? 1 : 0;
      at += static_cast<ssize_t>(sizeof event + event.len);
    }
    return opened;
  }

 private:
  int watch(const std::string& path) const {
    const int watch = inotify_add_watch(mQueue, path.c_str(), IN_OPEN);
    if (watch < 0) {
      throw std::system_error(errno, std::generic_category(), "watch " + path);
    }
    return watch;
  }

  int mQueue;
  int mFile;
};

TEST(OpenCounter, TellsTwoFromOne) {
  Board board;
  board.catalogue("");
  const OpenCounter opened(cataloguePath);
  const std::ifstream first(cataloguePath);
  const std::ifstream second(cataloguePath);
  EXPECT_EQ(opened.count(), 2);
}

TEST(Economy, CountsAllocationsInTheLibrary) {
  Board board;
  OvxIdentifier identifier(nullptr);
  EXPECT_GT(allocationsOf([&] { identifier.findKnownIdentities(); }), 0);
}

// Neither messages nor copies of what is compared.
TEST(Economy, AllocatesNothingForAFailedDeterminationWithoutALogger) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-longer_than_a_short_string");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(allocationsOf([&] { identifier.determineIdentity(); }), 0);
}

TEST(Economy, ComposesNoRejectionOfALineWithoutALogger) {
  Board board;
  OvxIdentifier identifier(nullptr);
  const auto load = [&](const std::string& line) {
    board.catalogue(line);
    return allocationsOf([&] { identifier.findKnownIdentities(); });
  };
  EXPECT_EQ(load("a line without a number that is too long for a short string\n"), load("x\n"));
}

TEST(Economy, ComposesNoReportWithoutALogger) {
  Board board;
  board.catalogue("Field Node:3:fn1:an alias too long for a short string\n");
  board.kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(nullptr);
  identifier.determineIdentity();
  EXPECT_EQ(allocationsOf([&] { identifier.logFullId(log4cpp::Priority::ERROR); }), 0);
}

struct FileCase {
  const char* name;
  const char* path;
};

void PrintTo(const FileCase& file, std::ostream* out) { *out << file.path; }

class ReadOnce : public testing::TestWithParam<FileCase> {};

TEST_P(ReadOnce, IsOpenedOnceByTheStepThatNeedsIt) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").cpuinfo("Hardware\t: Field Node\n");
  board.property("description", "x");
  const OpenCounter opened(GetParam().path);
  OvxIdentifier identifier(nullptr);
  identifier.determineIdentity();
  EXPECT_EQ(opened.count(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    File, ReadOnce,
    testing::Values(FileCase{"Catalogue", cataloguePath}, FileCase{"Cpuinfo", cpuinfoPath},
                    FileCase{"Description", "/proc/device-tree/orvanix/description"}),
    [](const auto& test) { return test.param.name; });

TEST(Economy, LeavesNoFileOpenOnABoardOfTheDeviceTree) {
  Board board;
  board.catalogue("Field Node:3\n").property("boardid", "7").property("description", "x");
  const auto before = openDescriptors();
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(openDescriptors(), before);
  identifier.loadParams();
  EXPECT_EQ(openDescriptors(), before);
}

TEST(Economy, LeavesNoFileOpenOnABoardKnownByCpuinfo) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").property("description", "x");
  OvxIdentifier identifier(nullptr);
  const auto before = openDescriptors();
  board.cpuinfo("Hardware\t: Field Node\n");
  EXPECT_TRUE(identifier.determineIdentity());
  board.cpuinfo("Hardware\t: fn1\n");
  EXPECT_TRUE(identifier.determineIdentity());
  EXPECT_EQ(openDescriptors(), before);
}

TEST(Economy, LeavesNoFileOpenOnAnUnknownBoard) {
  Board board;
  OvxIdentifier identifier(nullptr);
  const auto before = openDescriptors();
  board.cpuinfo("Hardware\t: Other\n");
  EXPECT_FALSE(identifier.determineIdentity());
  board.cpuinfo("processor\t: 0\n");
  EXPECT_FALSE(identifier.determineIdentity());
  EXPECT_EQ(openDescriptors(), before);
}

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
