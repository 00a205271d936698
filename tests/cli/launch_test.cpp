#include <gtest/gtest.h>

#include <csignal>

#include "cli/front_end.h"

namespace {

TEST_F(FrontEnd, RunsAProgramThatSeesTheParameters) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  EXPECT_EQ(ovxid({"run", "printenv", "OVX_ID", "OVX_DESC"}), (Outcome{0, "7\nField Node\n", ""}));
}

TEST_F(FrontEnd, RunsAProgramOnAnUnknownBoard) {
  EXPECT_EQ(ovxid({"run", "echo", "a"}).out, "a\n");
}

TEST_F(FrontEnd, EndsWithTheStatusOfTheProgram) {
  EXPECT_EQ(ovxid({"run", "sh", "-c", "exit 42"}).status, 42);
}

TEST_F(FrontEnd, LetsTheProgramDieOfAClosedPipe) {
  EXPECT_EQ(ovxid({"run", "sh", "-c", "kill -PIPE $$"}).status, 128 + SIGPIPE);
}

TEST_F(FrontEnd, LetsTheProgramInheritAnIgnoredClosedPipe) {
  ignores(SIGPIPE);
  EXPECT_EQ(ovxid({"run", "sh", "-c", "kill -PIPE $$; exit 7"}).status, 7);
}

TEST_F(FrontEnd, FailsToRunAMissingProgramWith127) {
  EXPECT_EQ(ovxid({"run", "no-such-program"}),
            (Outcome{127, "", "ovxid: no-such-program: No such file or directory\n"}));
}

TEST_F(FrontEnd, FailsToRunAFileThatIsNotExecutableWith126) {
  mBoard.file("/proc/text", "text\n");
  EXPECT_EQ(ovxid({"run", "/proc/text", "-v"}),
            (Outcome{126, "", "ovxid: /proc/text: Permission denied\n"}));
}

TEST_F(FrontEnd, FailsToRunAProgramBelowAFileWith126) {
  mBoard.file("/proc/file", "");
  EXPECT_EQ(ovxid({"run", "/proc/file/x"}),
            (Outcome{126, "", "ovxid: /proc/file/x: Not a directory\n"}));
}

TEST_F(FrontEnd, FailsToRunAProgramInAMissingDirectoryWith127) {
  EXPECT_EQ(ovxid({"run", "/proc/missing/x"}),
            (Outcome{127, "", "ovxid: /proc/missing/x: No such file or directory\n"}));
}

TEST_F(FrontEnd, FailsToRunAMissingShellWith127) {
  shellIs("/nowhere");
  const Outcome failure{127, "", "ovxid: /nowhere: No such file or directory\n"};
  EXPECT_EQ(ovxid({"shell"}), failure);
  EXPECT_EQ(ovxid({"shell", "--", "x"}), failure);
}

TEST_F(FrontEnd, FailsToRunAProgramOfNoNameWith127) {
  EXPECT_EQ(ovxid({"run", ""}), (Outcome{127, "", "ovxid: '': No such file or directory\n"}));
}

TEST_F(FrontEnd, RunsBashWhenShellIsNotSet) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  EXPECT_EQ(ovxid({"shell", "-c", "echo $0 $BASH $OVX_DESC"}),
            (Outcome{0, "/bin/bash /bin/bash Field Node\n", ""}));
}

TEST_F(FrontEnd, RunsTheShellThatShellNames) {
  shellIs("/bin/echo");
  EXPECT_EQ(ovxid({"shell", "-c", "-v", "--version", "--", "-h"}).out, "-c -v --version -- -h\n");
  EXPECT_EQ(ovxid({"shell", "--", "-h"}).out, "-h\n");
}

TEST_F(FrontEnd, RunsTheShellWithoutArguments) {
  shellIs("/bin/echo");
  EXPECT_EQ(ovxid({"shell"}).out, "\n");
}

TEST_F(FrontEnd, EndsWithTheStatusOfTheShell) {
  EXPECT_EQ(ovxid({"shell", "-c", "exit 42"}).status, 42);
}

TEST_F(FrontEnd, FailsToRunAShellThatIsNotExecutableWith126) {
  shellIs("/proc");
  EXPECT_EQ(ovxid({"shell"}), (Outcome{126, "", "ovxid: /proc: Permission denied\n"}));
}

TEST_F(FrontEnd, FailsToRunABashThatIsNotExecutableWith126) {
  bashIsNotExecutable();
  EXPECT_EQ(ovxid({"shell"}), (Outcome{126, "", "ovxid: /bin/bash: Permission denied\n"}));
}

TEST_F(FrontEnd, FailsToRunAnEmptyShellWith127) {
  shellIs("");
  EXPECT_EQ(ovxid({"shell"}), (Outcome{127, "", "ovxid: '': No such file or directory\n"}));
}

}  // namespace
