#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "cli/front_end.h"

namespace fs = std::filesystem;

namespace {

TEST_F(FrontEnd, TellsThatReplayIsNotInstalled) {
  EXPECT_EQ(ovxid({"replay", "/proc"}),
            (Outcome{127, "", "ovxid: ovxid-replay: not installed (package ovxid-replay)\n"}));
}

TEST_F(FrontEnd, TellsThatReplayCannotBeRun) {
  mBoard.file("/proc/programs/ovxid-replay", "");
  pathIs("/proc/programs");
  EXPECT_EQ(ovxid({"replay", "/proc"}),
            (Outcome{126, "", "ovxid: ovxid-replay: Permission denied\n"}));
}

// Beside the front end stands a program that tells how it was called.
class ReplayBesideIt : public FrontEnd {
 protected:
  ReplayBesideIt() {
    mBoard.file("/proc/prefix/bin/ovxid-replay", "#!/bin/sh\nprintf '%s|' \"$PATH\" \"$@\"\n")
        .permissions("/proc/prefix/bin/ovxid-replay", 0755);
    fs::copy_file(OVXID_CLI, "/proc/prefix/bin/ovxid");
  }

  static Outcome replayWith(const char* path) {
    return inChild([path] {
      setenv("PATH", path, 1);
      execl("/proc/prefix/bin/ovxid", "ovxid", "replay", "board", "uname", "-r", nullptr);
      return 255;
    });
  }
};

TEST_F(ReplayBesideIt, IsFoundThoughPathDoesNotLeadThere) {
  EXPECT_EQ(replayWith("/usr/bin:/bin"),
            (Outcome{0, "/proc/prefix/bin:/usr/bin:/bin|--|board|uname|-r|", ""}));
}

TEST_F(ReplayBesideIt, IsHandedTheCatalogueAndTheWordsOfTheProgram) {
  const Outcome outcome = inChild([] {
    setenv("PATH", "/proc/prefix/bin", 1);
    execl("/proc/prefix/bin/ovxid", "ovxid", "--catalogue", "one", "replay", "--catalogue=two",
          "--", "-board", "--", "uname", "--catalogue", nullptr);
    return 255;
  });
  EXPECT_EQ(outcome,
            (Outcome{0, "/proc/prefix/bin|--catalogue=two|--|-board|--|uname|--catalogue|", ""}));
}

TEST_F(FrontEnd, ReplaysNothingWithoutARecording) {
  EXPECT_EQ(ovxid({"replay"}),
            (Outcome{2, "", "ovxid: replay: FILE is missing (see 'ovxid help replay')\n"}));
}

TEST_F(ReplayBesideIt, ChangesNoPathThatLeadsThere) {
  for (const char* path : {"/proc/prefix/bin", "/proc/prefix/bin:/bin", "/bin:/proc/prefix/bin"}) {
    EXPECT_EQ(replayWith(path), (Outcome{0, path + std::string("|--|board|uname|-r|"), ""}));
  }
}

TEST_F(ReplayBesideIt, IsNotTakenForItsNeighbours) {
  EXPECT_EQ(replayWith("/proc/prefix/bin/x:/x/proc/prefix/bin:/bin").out,
            "/proc/prefix/bin:/proc/prefix/bin/x:/x/proc/prefix/bin:/bin|--|board|uname|-r|");
}

TEST_F(ReplayBesideIt, IsFoundBehindALinkToTheFrontEnd) {
  fs::create_symlink("prefix/bin/ovxid", "/proc/link");
  const Outcome outcome = inChild([] {
    unsetenv("PATH");
    execl("/proc/link", "ovxid", "replay", "board", nullptr);
    return 255;
  });
  EXPECT_EQ(outcome, (Outcome{0, "/proc/prefix/bin:/usr/bin:/bin|--|board|", ""}));
}

TEST_F(FrontEnd, LooksForReplayInPathAloneWhereItIsInNoDirectory) {
  const int file = memfd_create("ovxid", MFD_CLOEXEC);
  std::ostringstream program;
  program << std::ifstream(OVXID_CLI, std::ios::binary).rdbuf();
  ASSERT_EQ(write(file, program.str().data(), program.str().size()), program.str().size());
  const Outcome outcome = inChild([file] {
    std::string words[] = {"ovxid", "replay", "board"};
    char* const pointers[] = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    char* const environment[] = {nullptr};
    fexecve(file, pointers, environment);
    return 255;
  });
  EXPECT_EQ(outcome,
            (Outcome{127, "", "ovxid: ovxid-replay: not installed (package ovxid-replay)\n"}));
  close(file);
}

}  // namespace
