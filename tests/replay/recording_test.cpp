#include "replay/recording.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "recording/files.h"
#include "replay/failure.h"

namespace {

namespace fs = std::filesystem;
namespace file = ovxid::recording::file;

// A recorded board of which only the kernel's release and machine are known.
class RecordedBoard {
 public:
  RecordedBoard() {
    std::string path = fs::temp_directory_path() / "recording.XXXXXX";
    mPath = mkdtemp(path.data());
    add(file::machine, "release=6.1\nmachine=mips\n");
  }
  ~RecordedBoard() { fs::remove_all(mPath); }
  RecordedBoard(const RecordedBoard&) = delete;
  RecordedBoard& operator=(const RecordedBoard&) = delete;

  RecordedBoard& add(const char* name, const std::string& text) {
    std::ofstream(mPath / name) << text;
    return *this;
  }

  RecordedBoard& addDirectory(const char* name) {
    fs::create_directory(mPath / name);
    return *this;
  }

  ovxid::replay::Recording read() const { return ovxid::replay::readRecording(mPath); }

  // Where the recording is wrong, or nothing.
  std::string mistake() const {
    try {
      read();
      return "";
    } catch (const ovxid::replay::Failure& failure) {
      return fs::path(failure.subject()).filename().string() + ": " + failure.what();
    }
  }

 private:
  fs::path mPath;
};

constexpr const char* unusable =
    "interfaces:1: not a name or label, an address and a MAC address that can be replayed";

std::string mistakeInInterface(const std::string& line) {
  return RecordedBoard().add(file::interfaces, line + "\n").mistake();
}

std::string mistakeInName(const std::string& name) {
  return mistakeInInterface(name + " 10.0.0.1 02:00:00:00:00:09");
}

std::string mistakeInAddress(const std::string& address) {
  return mistakeInInterface("eth0 " + address + " 02:00:00:00:00:09");
}

std::string mistakeInMac(const std::string& mac) {
  return mistakeInInterface("eth0 10.0.0.1 " + mac);
}

std::string mistakeInPath(const std::string& path) {
  return RecordedBoard().add(file::order, path + "\n").mistake();
}

TEST(RecordedInterface, HasANameThatTheKernelAllows) {
  for (const char* name : {"e", "eth0", "Wan_0.1@a-b+c", "fifteen-letters"}) {
    EXPECT_EQ(mistakeInName(name), "") << name;
  }
  for (const char* name : {"sixteen-letters-", ".", "..", ".eth0", "-eth0", "eth/0", "eth#0",
                           "eth\xc3\xa4", "eth\\x200", "[", "`", "{", "^"}) {
    EXPECT_EQ(mistakeInName(name), unusable) << name;
  }
}

TEST(RecordedInterface, HasALabelThatBeginsWithItsName) {
  for (const char* label : {"eth0:1", "eth0:a.b", "e:thirteen-abcd", "eth0:-"}) {
    EXPECT_EQ(mistakeInName(label), "") << label;
  }
  for (const char* label : {"eth0:", ":1", "eth0:1:2", "eth0:#", "e:fourteen-abcde"}) {
    EXPECT_EQ(mistakeInName(label), unusable) << label;
  }
}

TEST(RecordedInterface, HasAnAddressInFourNumbersOrNone) {
  for (const char* address : {"10.0.0.1", "255.255.255.255", "-"}) {
    EXPECT_EQ(mistakeInAddress(address), "") << address;
  }
  for (const char* address : {"10.1", "256.0.0.1", "10.0.0.1/8", "::1", "--", "10.0.0.x"}) {
    EXPECT_EQ(mistakeInAddress(address), unusable) << address;
  }
}

TEST(RecordedInterface, HasAMacAddressInSixNumbersOrNone) {
  for (const char* mac : {"02:00:00:00:00:09", "fe:dc:ba:98:76:54", "-"}) {
    EXPECT_EQ(mistakeInMac(mac), "") << mac;
  }
  for (const char* mac : {"02:00:00:00:00", "02:00:00:00:00:09:0a", "02:00:00:00:00:9",
                          "02:00:00:00:00:0g", "02:00:00:00:00:0/", "02-00-00-00-00-09",
                          "02:00:00:00:00:09:", "020000000009", "FE:dc:ba:98:76:54"}) {
    EXPECT_EQ(mistakeInMac(mac), unusable) << mac;
  }
}

TEST(RecordedInterface, HasThreeWords) {
  for (const char* line : {"", "eth0", "eth0 10.0.0.1", "eth0 10.0.0.1 02:00:00:00:00:09 more"}) {
    EXPECT_EQ(mistakeInInterface(line), unusable) << line;
  }
}

TEST(RecordedInterface, IsReadAsItStands) {
  RecordedBoard board;
  board.add(file::interfaces, "lo 127.0.0.1 00:00:00:00:00:00\neth0:1 - -\n");
  const auto addresses = board.read().addresses;
  ASSERT_EQ(addresses.size(), 2U);
  EXPECT_EQ(addresses[0].name, "lo");
  EXPECT_EQ(addresses[0].address, "127.0.0.1");
  EXPECT_EQ(addresses[0].mac, "00:00:00:00:00:00");
  EXPECT_EQ(addresses[1].name, "eth0:1");
  EXPECT_EQ(addresses[1].address, "-");
  EXPECT_EQ(addresses[1].mac, "-");
}

TEST(Recording, TellsTheLineOfAMistake) {
  RecordedBoard board;
  board.add(file::interfaces, "lo 127.0.0.1 00:00:00:00:00:00\neth0\n");
  EXPECT_EQ(board.mistake(),
            "interfaces:2: not a name or label, an address and a MAC address that can be replayed");
}

TEST(Recording, HasPathsThatStayInside) {
  for (const char* path : {"wan", "io@1/label", "...", ".hidden", "a\\x20b"}) {
    EXPECT_EQ(mistakeInPath(path), "") << path;
  }
  for (const char* path : {"", "/etc", "..", "../x", "a/../../x", "a/..", ".", "./a", "a/", "/"}) {
    EXPECT_EQ(mistakeInPath(path),
              "device-tree.order:1: not a path below the directory: '" + std::string(path) + "'");
  }
  EXPECT_NE(mistakeInPath("a\\x00b"), "");
}

TEST(Recording, KnowsNothingOfWhatWasNotRecorded) {
  const ovxid::replay::Recording recording = RecordedBoard().read();
  EXPECT_EQ(recording.release, "6.1");
  EXPECT_EQ(recording.machine, "mips");
  EXPECT_TRUE(recording.hasUname);
  EXPECT_TRUE(recording.unreadable.empty());
  EXPECT_TRUE(recording.order.empty());
  EXPECT_TRUE(recording.addresses.empty());
}

TEST(Recording, CannotHaveADirectoryInThePlaceOfAList) {
  EXPECT_EQ(RecordedBoard().addDirectory(file::interfaces).mistake(), "interfaces: cannot be read");
}

}  // namespace
