// Files that are larger, deeper or odder than any board's. How long they may take is ctest's limit.

#include <fcntl.h>
#include <ftw.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <system_error>
#include <thread>

#include "simulation/board.h"
#include "simulation/descriptors.h"
#include "simulation/kernel.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t million = 1000000;
// More than the stack holds, and than any buffer.
constexpr std::size_t large = 10 * million;

std::string times(std::size_t count, char byte) { return std::string(count, byte); }

std::string times(std::size_t count, const std::string& text) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) {
    all += text;
  }
  return all;
}

std::int32_t boardNumber() { return OvxIdentifier(nullptr).getHardwareNumber(); }

// How often the call reads from a file.
int readsOf(const std::function<void()>& call) {
  constexpr int enough = 1000000;
  kernel.readsLeft = enough;
  call();
  return enough - *kernel.readsLeft;
}

TEST(LargeCatalogue, IdentifiesByANameOfALineOf10Megabytes) {
  Board board;
  board.catalogue(times(large, 'x') + ":3:fn1\nBench Unit:9:bu\n").kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(identifier.getHardwareNumber(), 3);
  EXPECT_TRUE(identifier.getHardwareName() == times(large, 'x'));
}

TEST(LargeCatalogue, PassesOverALineOf10MegabytesWithoutAColon) {
  Board board;
  board.catalogue(times(large, 'x') + "\nBench Unit:9:bu\n").kernelRelease("5.10.0-bu");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(identifier.getHardwareNumber(), 9);
  const std::string& rejection = board.messages().at(3).text;
  EXPECT_EQ(board.messages().at(3).level, "warn");
  EXPECT_GT(rejection.size(), large);
}

TEST(LargeCatalogue, HasNoNumberOf10MegabytesOfDigits) {
  Board board;
  board.catalogue("Field Node:" + times(large, '9') + ":fn1\n").kernelRelease("5.10.0-fn1");
  EXPECT_EQ(boardNumber(), -1);
}

TEST(LargeCatalogue, HasANumberBehind10MegabytesOfBlanks) {
  Board board;
  board.catalogue("Field Node:" + times(large, ' ') + "3:fn1\n").kernelRelease("5.10.0-fn1");
  EXPECT_EQ(boardNumber(), 3);
}

TEST(LargeCatalogue, HasALineOfNothingButAMillionColons) {
  Board board;
  board.catalogue(times(million, ':') + "\nField Node:3:fn1").kernelRelease("5.10.0-fn1");
  EXPECT_EQ(boardNumber(), 3);
}

TEST(LargeCatalogue, CountsAMillionColonsAsOne) {
  Board board;
  const std::string colons = times(million, ':');
  board.catalogue(colons + "Field Node" + colons + "3" + colons + "fn1" + colons);
  board.kernelRelease("5.10.0-fn1");
  EXPECT_EQ(boardNumber(), 3);
}

TEST(LargeCatalogue, KnowsTheLastOfAMillionAliases) {
  Board board;
  board.catalogue("Field Node:3" + times(million, ":x") + ":fn1\n").kernelRelease("5.10.0-fn1");
  EXPECT_EQ(boardNumber(), 3);
}

TEST(LargeCatalogue, KnowsTheLastOfAMillionBoards) {
  Board board;
  board.catalogue(times(million, "x:1\n") + "Field Node:3:fn1\n").kernelRelease("5.10.0-fn1");
  EXPECT_EQ(boardNumber(), 3);
}

TEST(LargeCpuinfo, HasItsHardwareLineBehindALineOf10Megabytes) {
  Board board;
  board.catalogue("Field Node:3\n").cpuinfo(times(large, 'x') + "\nHardware: Field Node\n");
  EXPECT_EQ(boardNumber(), 3);
}

TEST(LargeCpuinfo, IsReadNoFurtherThanItsHardwareLine) {
  Board board;
  board.catalogue("Field Node:3\n").cpuinfo("Hardware: Field Node\n" + times(large, 'x'));
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(readsOf([&] { identifier.determineIdentity(); }), 1);
  EXPECT_EQ(identifier.getHardwareNumber(), 3);
}

TEST(LargeCpuinfo, HasAHardwareLineOf10Megabytes) {
  Board board;
  board.catalogue("Field Node:3:" + times(large, 'x') + "\n");
  board.cpuinfo("Hardware: " + times(large, 'x') + "\n");
  EXPECT_EQ(boardNumber(), 3);
}

struct LargeNumber {
  const char* name;
  std::string beginning;
  char filling;
  std::string end;
  std::int32_t number;
};

void PrintTo(const LargeNumber& number, std::ostream* out) { *out << number.name; }

class LargeBoardid : public testing::TestWithParam<LargeNumber> {};

TEST_P(LargeBoardid, GivesTheNumber) {
  Board board;
  const LargeNumber& text = GetParam();
  board.property("boardid", text.beginning + times(large, text.filling) + text.end);
  EXPECT_EQ(boardNumber(), text.number);
}

using Limits = std::numeric_limits<std::int32_t>;

INSTANTIATE_TEST_SUITE_P(Of10Megabytes, LargeBoardid,
                         testing::Values(LargeNumber{"Blanks", "", ' ', "", -1},
                                         LargeNumber{"BlanksBeforeANumber", "", ' ', "7\n", 7},
                                         LargeNumber{"Digits", "", '9', "\n", Limits::max()},
                                         LargeNumber{"DigitsBehindAMinus", "-", '9', "\n",
                                                     Limits::min()},
                                         LargeNumber{"Zeros", "", '0', "7\n", 7}),
                         [](const auto& test) { return test.param.name; });

TEST(LargeBoardid, IsReadNoFurtherThanItsNumber) {
  Board board;
  board.property("boardid", "7 " + times(large, '8'));
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(readsOf([&] { identifier.determineIdentity(); }), 1);
  EXPECT_EQ(identifier.getHardwareNumber(), 7);
}

TEST(LargeDescription, GivesANameOf10Megabytes) {
  Board board;
  board.property("boardid", "7").property("description", times(large, 'x'));
  EXPECT_TRUE(OvxIdentifier(nullptr).getHardwareName() == times(large, 'x'));
}

TEST(LargeDescription, IsReadNoFurtherThanItsFirstLine) {
  Board board;
  board.property("description", "Field Node\n" + times(large, 'x')).property("boardid", "7 ");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(readsOf([&] { identifier.determineIdentity(); }), 2);
  EXPECT_EQ(identifier.getHardwareName(), "Field Node");
}

int walk(OvxIdentifier& identifier) {
  std::string node = nodePath;
  return OvxDTParser::parse(&identifier, node.data());
}

TEST(LargeProperty, GivesAValueOf10Megabytes) {
  Board board;
  board.property("cells", times(large, '\0'));
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_TRUE(listing(identifier) == "OVX_CELLS=" + times(large, '\0') + "\n");
}

TEST(LargeProperty, IsReadNoFurtherThanItsFirstLine) {
  Board board;
  board.property("lines", "one\n" + times(large, 'x'));
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(readsOf([&] { walk(identifier); }), 1);
  EXPECT_EQ(listing(identifier), "OVX_LINES=one\n");
}

TEST(OddNode, HasAPropertyWithANameOf255Bytes) {
  Board board;
  board.property(times(255, 'a'), "1").property(times(255, 'd') + "/" + times(255, '\xff'), "2");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  const std::string parameters = listing(identifier);
  EXPECT_NE(parameters.find("OVX_" + times(255, 'A') + "=1\n"), std::string::npos);
  EXPECT_NE(parameters.find("OVX_" + times(255, '\xff') + "=2\n"), std::string::npos);
}

// What the walk of the C library itself makes of the node, as an identifier would list it.
struct PlainWalk {
  int result;
  int error;
  std::string listing;
};

PlainWalk plainWalk() {
  static std::string parameters;
  parameters.clear();
  const auto append = [](const char* path, const struct stat*, int type, FTW* position) {
    const std::string property = path + position->base;
    if (type == FTW_F) {
      std::ifstream file(path);
      std::string value;
      std::getline(file, value);
      parameters += "OVX_" + property + "=" + value + "\n";
    }
    return 0;
  };
  errno = 0;
  const int result = nftw(nodePath, append, 10, 0);
  return {result, errno, parameters};
}

void require(bool success, const char* what) {
  if (!success) {
    throw std::system_error(errno, std::generic_category(), what);
  }
}

// Makes directories within each other, each with the property "1", from the bottom of the tree on
// where no path leads that is short enough for the kernel.
void deepen(const std::string& name, int levels) {
  int directory = open(nodePath, O_RDONLY | O_DIRECTORY);
  for (int level = 0; level < levels; ++level) {
    require(mkdirat(directory, name.c_str(), 0777) == 0, "make a directory");
    const int child = openat(directory, name.c_str(), O_RDONLY | O_DIRECTORY);
    close(directory);
    directory = child;
    const int property = openat(directory, "1", O_WRONLY | O_CREAT, 0666);
    require(write(property, "x", 1) == 1, "write a property");
    close(property);
  }
  close(directory);
}

TEST(OddNode, OfAThousandLevelsIsWalkedToTheBottom) {
  Board board;
  board.node();
  deepen("d", 1000);
  OvxIdentifier identifier(nullptr);
  const auto before = openDescriptors();
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(openDescriptors(), before);
  EXPECT_EQ(listing(identifier), times(1000, "OVX_1=x\n"));
}

class Deep : public testing::TestWithParam<int> {};

// Beyond the longest path, the kernel finds entries from their directory only, and opens no file by
// its path. How far the walk gets there is the C library's business.
TEST_P(Deep, NodeBeyondTheLongestPathIsWalkedAsFarAsTheCLibraryDoes) {
  Board board;
  board.property("0", "before").property("zz", "behind");
  deepen(times(255, 'd'), GetParam());
  const PlainWalk plain = plainWalk();
  OvxIdentifier identifier(nullptr);
  const auto before = openDescriptors();
  errno = 0;
  EXPECT_EQ(walk(identifier), plain.result);
  EXPECT_EQ(errno, plain.error);
  EXPECT_EQ(openDescriptors(), before);
  std::string expected = plain.listing;
  std::replace(expected.begin(), expected.end(), 'z', 'Z');
  EXPECT_EQ(listing(identifier), expected);
}

INSTANTIATE_TEST_SUITE_P(Levels, Deep, testing::Values(14, 15, 16, 17, 30, 1000));

// Makes and removes files and directories of the node, over and over, for as long as this lives.
class ChangingNode {
 public:
  ChangingNode() : mThread([this] { change(); }) {}
  ~ChangingNode() {
    mEnds = true;
    mThread.join();
  }
  ChangingNode(const ChangingNode&) = delete;
  ChangingNode& operator=(const ChangingNode&) = delete;

  int changes() const { return mChanges; }

 private:
  void change() {
    std::error_code ignored;
    while (!mEnds) {
      const std::string child = std::string(nodePath) + "/child" + std::to_string(mChanges % 3);
      fs::create_directories(child + "/a/b/c/d/e/f/g/h/i/j/k/l", ignored);
      std::ofstream(child + "/port") << "1\n";
      std::ofstream(child + "/a/b/c/d/e/f/g/h/i/j/k/port") << "1\n";
      fs::remove_all(child, ignored);
      ++mChanges;
    }
  }

  std::atomic<bool> mEnds = false;
  std::atomic<int> mChanges = 0;
  std::thread mThread;
};

TEST(OddNode, MayChangeWhileItIsWalked) {
  Board board;
  board.property("wifi", "yes");
  const auto before = openDescriptors();
  {
    const ChangingNode node;
    while (node.changes() < 1000) {
      OvxIdentifier identifier(nullptr);
      const int result = walk(identifier);
      EXPECT_TRUE(result == 0 || result == -1) << result;
    }
  }
  EXPECT_EQ(openDescriptors(), before);
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(listing(identifier), "OVX_WIFI=yes\n");
}

}  // namespace
