#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/personality.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstring>
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

  // A directory where all may put files, and remove only their own.
  void makeSharedDirectory() {
    mBoard.directory("/proc/shared").permissions("/proc/shared", 01777);
    std::filesystem::create_symlink("/proc/out/listing", "/proc/shared/link");
  }
};

TEST_F(OutputFile, IsReplacedByTheListing) {
  EXPECT_EQ(listTo("/proc/out/listing"), (Outcome{0, "", ""}));
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
  EXPECT_EQ(filesIn("/proc/out"), (std::set<std::string>{"listing"}));
}

TEST_F(OutputFile, IsReplacedWhereASignalIsIgnored) {
  ignores(SIGTERM);
  EXPECT_EQ(listTo("/proc/out/listing"), (Outcome{0, "", ""}));
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
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

TEST_F(OutputFile, HasNoRightThatTheOldOneDenied) {
  const mode_t before = umask(022);
  mBoard.permissions("/proc/out/listing", 0600);
  listTo("/proc/out/listing");
  EXPECT_EQ(modeOf("/proc/out/listing"), 0600);
  mBoard.permissions("/proc/out/listing", 06775);
  listTo("/proc/out/listing");
  EXPECT_EQ(modeOf("/proc/out/listing"), 0644);
  umask(before);
}

// The two links are of other directories, and each tells the way from its own.
TEST_F(OutputFile, StaysBehindTwoLinksToIt) {
  mBoard.directory("/proc/far/away");
  std::filesystem::create_symlink("../../out/link", "/proc/far/away/link");
  std::filesystem::create_symlink("./listing", "/proc/out/link");
  EXPECT_EQ(listTo("/proc/far/away/link"), (Outcome{0, "", ""}));
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
  EXPECT_EQ(filesIn("/proc/out"), (std::set<std::string>{"link", "listing"}));
}

TEST_F(OutputFile, StaysBehindALinkOfAnotherUserInASharedDirectory) {
  makeSharedDirectory();
  filesBelongTo(12345);
  EXPECT_EQ(listTo("/proc/shared/link"),
            (Outcome{3, "", "ovxid: /proc/shared/link: Permission denied\n"}));
  EXPECT_EQ(contentOf("/proc/out/listing"), "old\n");
}

TEST_F(OutputFile, IsReplacedBehindALinkOfTheUserInASharedDirectory) {
  makeSharedDirectory();
  EXPECT_EQ(listTo("/proc/shared/link"), (Outcome{0, "", ""}));
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
}

TEST_F(OutputFile, IsReplacedBehindALinkOfTheOwnerOfASharedDirectory) {
  makeSharedDirectory();
  struct stat status {};
  ASSERT_EQ(stat("/proc/shared", &status), 0);
  filesBelongTo(status.st_uid);
  EXPECT_EQ(listTo("/proc/shared/link"), (Outcome{0, "", ""}));
}

TEST_F(OutputFile, IsReplacedBehindALinkOfAnotherUserInAnOrdinaryDirectory) {
  makeSharedDirectory();
  filesBelongTo(12345);
  for (const unsigned mode : {0777U, 01775U}) {
    mBoard.permissions("/proc/shared", mode).file("/proc/out/listing", "old\n");
    EXPECT_EQ(listTo("/proc/shared/link"), (Outcome{0, "", ""})) << std::oct << mode;
    EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
  }
}

TEST_F(OutputFile, StaysInADirectoryThatMayNotBeSearched) {
  std::filesystem::create_symlink("/proc/closed/listing", "/proc/out/link");
  mBoard.file("/proc/closed/listing", "old\n").permissions("/proc/closed", 0600);
  obeysModes();
  for (const std::string path : {"/proc/closed/listing", "/proc/out/link"}) {
    EXPECT_EQ(listTo(path), (Outcome{3, "", "ovxid: " + path + ": Permission denied\n"}));
  }
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
            (Outcome{3, "", "ovxid: /proc/out/link: a link that leads to no file\n"}));
  EXPECT_TRUE(std::filesystem::is_symlink("/proc/out/link"));
}

TEST_F(OutputFile, ReplacesNoLinkToItself) {
  std::filesystem::create_symlink("link", "/proc/out/link");
  EXPECT_EQ(listTo("/proc/out/link"),
            (Outcome{3, "", "ovxid: /proc/out/link: Too many levels of symbolic links\n"}));
}

TEST_F(OutputFile, ReplacesNoLinkToAPipe) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  outputTo(ends[1]);
  EXPECT_EQ(listTo("/proc/self/fd/1"),
            (Outcome{3, "", "ovxid: /proc/self/fd/1: a link that leads to no file\n"}));
  close(ends[0]);
  close(ends[1]);
}

// As many as the kernel follows.
TEST_F(OutputFile, IsReplacedBehindFortyLinks) {
  std::filesystem::create_symlink("listing", "/proc/out/1");
  for (int number = 2; number <= 41; ++number) {
    std::filesystem::create_symlink(std::to_string(number - 1),
                                    "/proc/out/" + std::to_string(number));
  }
  EXPECT_EQ(listTo("/proc/out/40"), (Outcome{0, "", ""}));
  EXPECT_EQ(listTo("/proc/out/41"),
            (Outcome{3, "", "ovxid: /proc/out/41: Too many levels of symbolic links\n"}));
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
  std::filesystem::create_symlink("out/", "/proc/link");
  for (const std::string path : {"/proc/out", "/proc/out/", "/proc/out/..", "/proc/link", "."}) {
    EXPECT_EQ(listTo(path), (Outcome{3, "", "ovxid: " + path + ": Is a directory\n"}));
  }
}

TEST_F(OutputFile, NeedsAName) {
  EXPECT_EQ(listTo(""), (Outcome{3, "", "ovxid: '': No such file or directory\n"}));
}

TEST_F(OutputFile, IsInTheWorkingDirectoryWhereItsPathNamesNone) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path("/proc/out");
  EXPECT_EQ(listTo("listing"), (Outcome{0, "", ""}));
  std::filesystem::current_path(before);
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
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

class OutputFileRun : public OutputFile {
 protected:
  // Does this at a system call of a run, counted from when the directory changes, and sends the run
  // the signal. Whether it had as many.
  static bool doAt(int number, int signal, const std::function<void()>& action) {
    const auto before = filesIn("/proc/out");
    bool hasBegun = false;
    bool isDone = false;
    interrupt(
        signal,
        [&] {
          hasBegun = hasBegun || filesIn("/proc/out") != before;
          isDone = hasBegun && --number == 0;
          if (isDone) {
            action();
          }
          return isDone;
        },
        [] {
          personality(PER_LINUX32);
          execl(OVXID_CLI, OVXID_CLI, "list", "--output", "/proc/out/listing", nullptr);
        });
    return isDone;
  }
};

class InterruptedOutputFile : public OutputFileRun, public testing::WithParamInterface<int> {};

TEST_P(InterruptedOutputFile, IsTheNewOne) {
  ASSERT_TRUE(doAt(3, GetParam(), [] {}));
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
  EXPECT_EQ(filesIn("/proc/out"), (std::set<std::string>{"listing"}));
}

INSTANTIATE_TEST_SUITE_P(Signal, InterruptedOutputFile,
                         testing::Values(SIGHUP, SIGINT, SIGQUIT, SIGTERM),
                         [](const auto& test) { return sigabbrev_np(test.param); });

class OutputFileInterruptedAtAnyCall : public OutputFileRun,
                                       public testing::WithParamInterface<int> {};

TEST_P(OutputFileInterruptedAtAnyCall, IsTheOldOneOrTheNewOne) {
  std::size_t most = 0;
  int number = 1;
  for (; doAt(number, GetParam(), [] {}); ++number) {
    ASSERT_THAT(contentOf("/proc/out/listing"), testing::AnyOf("old\n", "OVX_WIFI=yes\n"));
    most = std::max(most, filesIn("/proc/out").size());
    mBoard.file("/proc/out/listing", "old\n");
  }
  EXPECT_GT(number, 5);
  // What is killed can remove nothing. The next run does.
  EXPECT_EQ(most, GetParam() == SIGKILL ? 2 : 1);
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
  EXPECT_EQ(filesIn("/proc/out"), (std::set<std::string>{"listing"}));
}

INSTANTIATE_TEST_SUITE_P(Signal, OutputFileInterruptedAtAnyCall, testing::Values(SIGTERM, SIGKILL),
                         [](const auto& test) { return sigabbrev_np(test.param); });

// Another run removes what killed runs have left, but not what this one writes.
TEST_F(OutputFileRun, SucceedsBesideAnotherAtAnyCall) {
  int number = 1;
  const auto listBeside = [&] {
    EXPECT_EQ(listTo("/proc/out/other"), (Outcome{0, "", ""})) << number;
    mBoard.remove("/proc/out/other");
  };
  for (; doAt(number, 0, listBeside); ++number) {
    EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n") << number;
    EXPECT_EQ(filesIn("/proc/out"), (std::set<std::string>{"listing"})) << number;
    mBoard.file("/proc/out/listing", "old\n");
  }
  EXPECT_GT(number, 5);
}

TEST_F(OutputFile, IsAloneAfterARunThatWasKilledBefore) {
  mBoard.file("/proc/out/.ovxid-unfinished-1-2", "OVX");
  EXPECT_EQ(listTo("/proc/out/listing"), (Outcome{0, "", ""}));
  EXPECT_EQ(filesIn("/proc/out"), (std::set<std::string>{"listing"}));
}

TEST_F(OutputFile, LeavesTheFileThatAnotherRunWrites) {
  const std::string other = "/proc/out/.ovxid-unfinished-1-2";
  mBoard.file(other, "OVX");
  const int file = open(other.c_str(), O_WRONLY | O_CLOEXEC);
  ASSERT_EQ(flock(file, LOCK_EX), 0);
  EXPECT_EQ(listTo("/proc/out/listing"), (Outcome{0, "", ""}));
  close(file);
  EXPECT_EQ(contentOf(other), "OVX");
}

TEST_F(OutputFileRun, MakesAnotherFileWhenTheFirstIsRemoved) {
  ASSERT_TRUE(doAt(1, 0, [&] {
    const auto names = filesIn("/proc/out");
    mBoard.remove("/proc/out/" + *names.begin());
  }));
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
}

// As another run does that is about to remove the file.
TEST_F(OutputFileRun, MakesAnotherFileWhenTheFirstIsLocked) {
  int file = -1;
  EXPECT_TRUE(doAt(1, 0, [&] {
    const auto names = filesIn("/proc/out");
    file = open(("/proc/out/" + *names.begin()).c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(flock(file, LOCK_EX), 0) << *names.begin();
  }));
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
  EXPECT_EQ(filesIn("/proc/out").size(), 2);
  close(file);
}

TEST_F(OutputFile, IsReplacedWhereTheKernelLocksNoFiles) {
  mBoard.file("/proc/out/.ovxid-unfinished-1-2", "OVX");
  kernelRefuses(SYS_flock, LOCK_EX | LOCK_NB);
  EXPECT_EQ(listTo("/proc/out/listing"), (Outcome{0, "", ""}));
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
  EXPECT_EQ(filesIn("/proc/out"), (std::set<std::string>{".ovxid-unfinished-1-2", "listing"}));
}

TEST_F(OutputFile, IsReplacedInADirectoryThatMayNotBeRead) {
  mBoard.permissions("/proc/out", 0333);
  obeysModes();
  EXPECT_EQ(listTo("/proc/out/listing"), (Outcome{0, "", ""}));
  EXPECT_EQ(contentOf("/proc/out/listing"), "OVX_WIFI=yes\n");
}

TEST_F(OutputFileRun, LetsNobodyElseReadItBeforeItIsWhole) {
  const mode_t before = umask(0);
  EXPECT_TRUE(
      doAt(1, 0, [] { EXPECT_EQ(modeOf("/proc/out/" + *filesIn("/proc/out").begin()), 0600); }));
  umask(before);
  EXPECT_EQ(modeOf("/proc/out/listing"), 0644);
}

TEST_F(OutputFile, LeavesTheUnfinishedFilesOfAnotherUser) {
  mBoard.file("/proc/out/.ovxid-unfinished-1-2", "OVX");
  filesBelongTo(12345);
  EXPECT_EQ(listTo("/proc/out/listing"), (Outcome{0, "", ""}));
  EXPECT_EQ(filesIn("/proc/out"), (std::set<std::string>{".ovxid-unfinished-1-2", "listing"}));
}

// They may be of a user who wants to keep them, or to lead elsewhere.
TEST_F(OutputFile, LeavesOtherFilesBesideIt) {
  const std::set<std::string> names = {".ovxid-unfinished", ".ovxid-unfinished-directory",
                                       ".ovxid-unfinished-link", ".ovxid-unfinished-pipe",
                                       "listing"};
  mBoard.file("/proc/out/.ovxid-unfinished", "").directory("/proc/out/.ovxid-unfinished-directory");
  std::filesystem::create_symlink("listing", "/proc/out/.ovxid-unfinished-link");
  ASSERT_EQ(mkfifo("/proc/out/.ovxid-unfinished-pipe", 0600), 0);
  const int reader = open("/proc/out/.ovxid-unfinished-pipe", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  EXPECT_EQ(listTo("/proc/out/listing"), (Outcome{0, "", ""}));
  close(reader);
  EXPECT_EQ(filesIn("/proc/out"), names);
}

}  // namespace
