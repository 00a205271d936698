#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "cli/front_end.h"
#include "simulation/system_calls.h"

namespace {

std::string contentOf(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

std::set<std::string> filesIn(const std::string& directory) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(directory)) {
    names.insert(entry.path().filename());
  }
  return names;
}

mode_t modeOf(const std::string& path) {
  struct stat status {};
  stat(path.c_str(), &status);
  return status.st_mode & 07777;
}

class OutputFile : public FrontEnd {
 protected:
  OutputFile() { mBoard.property("wifi", "yes").file("/proc/out/listing", "old\n"); }

  Outcome listTo(const std::string& path) { return ovxid({"list", "--output", path}); }
};

TEST_F(OutputFile, IsReplacedByTheListing) {
  EXPECT_EQ(listTo("/proc/out/listing"), (Outcome{0, "", ""}));
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
  EXPECT_EQ(filesIn("/proc/out"), (std::set<std::string>{"listing"}));
}

// After a loss of power there is the old content or the new one.
TEST_F(OutputFile, IsOnTheDiskBeforeItTakesItsPlace) {
  const std::vector<std::string> calls = systemCallsOf(
      [] { execl(OVXID_CLI, OVXID_CLI, "list", "--output", "/proc/out/listing", nullptr); });
  const auto sync = std::find(calls.begin(), calls.end(), "fsync");
  EXPECT_NE(std::find(sync, calls.end(), "rename"), calls.end()) << testing::PrintToString(calls);
}

TEST_F(OutputFile, IsMadeWhenItIsMissing) {
  EXPECT_EQ(listTo("/proc/out/new"), (Outcome{0, "", ""}));
  EXPECT_EQ(contentOf("/proc/out/new"), "OVX_WIFI=yes\n");
}

TEST_F(OutputFile, HasTheModeThatTheUmaskGives) {
  const mode_t before = umask(027);
  listTo("/proc/out/new");
  umask(before);
  EXPECT_EQ(modeOf("/proc/out/new"), 0640);
}

TEST_F(OutputFile, StaysBehindALinkToIt) {
  std::filesystem::create_symlink("listing", "/proc/out/link");
  EXPECT_EQ(listTo("/proc/out/link"), (Outcome{0, "", ""}));
  EXPECT_TRUE(std::filesystem::is_symlink("/proc/out/link"));
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
}

// A reader that opened the old file goes on reading the old content.
TEST_F(OutputFile, IsAnotherFileThanTheOldOne) {
  std::ifstream old("/proc/out/listing");
  listTo("/proc/out/listing");
  std::string line;
  std::getline(old, line);
  EXPECT_EQ(line, "old");
}

TEST_F(OutputFile, StaysWhenItsDirectoryIsFull) {
  mBoard.directory("/proc/full");
  ASSERT_EQ(mount("tests", "/proc/full", "tmpfs", 0, "size=4096"), 0);
  mBoard.file("/proc/full/listing", "old\n");
  EXPECT_EQ(listTo("/proc/full/listing"),
            (Outcome{3, "", "ovxid: /proc/full/listing: No space left on device\n"}));
  EXPECT_EQ(contentOf("/proc/full/listing"), "old\n");
  EXPECT_EQ(filesIn("/proc/full"), (std::set<std::string>{"listing"}));
}

TEST_F(OutputFile, StaysWhenFilesMayNotBeLarge) {
  mBoard.property("long", std::string(1000, 'l'));
  filesAreAtMost(500);
  EXPECT_EQ(listTo("/proc/out/listing"),
            (Outcome{3, "", "ovxid: /proc/out/listing: File too large\n"}));
  EXPECT_EQ(contentOf("/proc/out/listing"), "old\n");
  EXPECT_EQ(filesIn("/proc/out"), (std::set<std::string>{"listing"}));
}

TEST_F(OutputFile, StaysWhenItCannotBeReplaced) {
  ASSERT_EQ(mount("/proc/out/listing", "/proc/out/listing", nullptr, MS_BIND, nullptr), 0);
  EXPECT_EQ(listTo("/proc/out/listing"),
            (Outcome{3, "", "ovxid: /proc/out/listing: Device or resource busy\n"}));
  EXPECT_EQ(filesIn("/proc/out"), (std::set<std::string>{"listing"}));
  umount("/proc/out/listing");
}

TEST_F(OutputFile, ReplacesNoLinkThatLeadsNowhere) {
  std::filesystem::create_symlink("nowhere", "/proc/out/link");
  EXPECT_EQ(listTo("/proc/out/link"),
            (Outcome{3, "", "ovxid: /proc/out/link: a link that leads nowhere\n"}));
  EXPECT_TRUE(std::filesystem::is_symlink("/proc/out/link"));
}

TEST_F(OutputFile, ReplacesNoLinkToItself) {
  std::filesystem::create_symlink("link", "/proc/out/link");
  EXPECT_EQ(listTo("/proc/out/link"),
            (Outcome{3, "", "ovxid: /proc/out/link: Too many levels of symbolic links\n"}));
}

TEST_F(OutputFile, MayHaveTheLongestName) {
  const std::string path = "/proc/out/" + std::string(255, 'n');
  EXPECT_EQ(listTo(path), (Outcome{0, "", ""}));
  EXPECT_EQ(contentOf(path), "OVX_WIFI=yes\n");
}

TEST_F(OutputFile, MayBeStandardOutput) {
  EXPECT_EQ(listTo("-"), (Outcome{0, "OVX_WIFI=yes\n", ""}));
}

TEST_F(OutputFile, StaysWhenMessagesAreLost) {
  messagesTo("/dev/full");
  EXPECT_EQ(ovxid({"-v", "list", "--output", "/proc/out/listing"}).status, 3);
  EXPECT_EQ(contentOf("/proc/out/listing"), "old\n");
  EXPECT_EQ(filesIn("/proc/out"), (std::set<std::string>{"listing"}));
}

TEST_F(OutputFile, CannotBeMadeInAMissingDirectory) {
  EXPECT_EQ(listTo("/proc/missing/listing"),
            (Outcome{3, "", "ovxid: /proc/missing/listing: No such file or directory\n"}));
}

TEST_F(OutputFile, ReplacesNoDirectory) {
  EXPECT_EQ(listTo("/proc/out"), (Outcome{3, "", "ovxid: /proc/out: Is a directory\n"}));
}

TEST_F(OutputFile, ReplacesNoDevice) {
  EXPECT_EQ(listTo("/dev/null"), (Outcome{3, "", "ovxid: /dev/null: not a regular file\n"}));
}

TEST_F(OutputFile, StaysWhenTheCommandLineIsWrong) {
  EXPECT_EQ(ovxid({"list", "--output", "/proc/out/listing", "--format", "yaml"}).status, 2);
  EXPECT_EQ(contentOf("/proc/out/listing"), "old\n");
}

TEST_F(OutputFile, StaysWhenTheSearchForTheIdentityFails) {
  Board board;
  board.cpuinfo("Hardware\t:\n").file("/proc/out/listing", "old\n");
  EXPECT_EQ(listTo("/proc/out/listing").status, 1);
  EXPECT_EQ(contentOf("/proc/out/listing"), "old\n");
}

}  // namespace
