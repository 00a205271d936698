#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/personality.h>
#include <sys/syscall.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <sstream>
#include <system_error>

#include "simulation/board.h"
#include "simulation/child.h"

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

using Arguments = std::vector<std::string>;

void require(int result, const char* what) {
  if (result < 0) {
    throw std::system_error(errno, std::generic_category(), what);
  }
}

void dupClosedPipe(int descriptor) {
  int ends[2];
  require(pipe(ends), "make a pipe");
  require(dup2(ends[1], descriptor), "replace a stream by a pipe");
  close(ends[0]);
}

// The front end as a user runs it. Its kernel is the real one, which tells a 32-bit process that
// the machine is i686: then no x86_64 PC hides what the board's files say.
class FrontEnd : public testing::Test {
 protected:
  Outcome ovxid(Arguments arguments) {
    return inChild([&] {
      require(personality(PER_LINUX32), "be called a 32-bit machine");
      setenv("PATH", "/usr/bin:/bin", 1);
      unsetenv("SHELL");
      mPrepare();
      arguments.insert(arguments.begin(), OVXID_CLI);
      execv(OVXID_CLI, pointers(arguments).data());
      std::perror("cannot run " OVXID_CLI);
      return 255;
    });
  }

  // Where the output goes to.
  void outputTo(const char* path) {
    mPrepare = [path] { require(dup2(open(path, O_WRONLY), STDOUT_FILENO), path); };
  }
  void outputToClosedPipe() {
    mPrepare = [] { dupClosedPipe(STDOUT_FILENO); };
  }
  void outputClosed() {
    mPrepare = [] { close(STDOUT_FILENO); };
  }
  void messagesToFullDisk() {
    mPrepare = [] { require(dup2(open("/dev/full", O_WRONLY), STDERR_FILENO), "open /dev/full"); };
  }
  void messagesToClosedPipe() {
    mPrepare = [] { dupClosedPipe(STDERR_FILENO); };
  }
  void shellIs(const char* shell) {
    mPrepare = [shell] { setenv("SHELL", shell, 1); };
  }
  void asPc() {
    mPrepare = [] { personality(PER_LINUX); };
  }

  void fieldNode() {
    mBoard.property("boardid", bytes("7\0")).property("description", bytes("Field Node\0"));
  }
  void hardwareLineThatEndsAtItsColon() { mBoard.cpuinfo("Hardware\t:\n"); }

  Board mBoard;
  std::function<void()> mPrepare = [] {};
};

std::string realRelease() {
  utsname name{};
  syscall(SYS_uname, &name);
  return name.release;
}

std::string suffixMessage(const std::string& release) {
  const auto hyphen = release.rfind('-');
  return hyphen == std::string::npos ? ""
                                     : "debug: therefore possible alias of machine = '" +
                                           release.substr(hyphen + 1) + "'\n";
}

TEST_F(FrontEnd, ListsTheParametersByteForByte) {
  mBoard.property("compatible", bytes("a,b\0c,d\0"));
  for (const Arguments& arguments : {Arguments{}, Arguments{"list"}}) {
    const Outcome outcome = ovxid(arguments);
    EXPECT_EQ(outcome.out, bytes("OVX_COMPATIBLE=a,b\0c,d\0\n"));
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
  }
}

TEST_F(FrontEnd, ListsTheFourParametersOfAPcWithOneInterface) {
  if (std::string(OVXID_MACHINE) != "x86_64") {
    GTEST_FAIL() << "only an x86_64 machine is a PC, and this is " OVXID_MACHINE;
  }
  asPc();
  mBoard.interface("eth0", "02:42:ac:11:00:02").address("eth0", "10.0.0.1/24");
  EXPECT_EQ(ovxid({}).out, "OVX_ID=64\nOVX_DESC=x86_64 PC\nOVX_WAN=eth0\nOVX_WAN_ID=242ffac1102\n");
}

TEST_F(FrontEnd, ListsAnUnknownBoardWithoutComplaint) {
  const Outcome outcome = ovxid({"list"});
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(FrontEnd, LetsTheLibraryReportAMissingWanInterface) {
  mBoard.property("wan", bytes("eth7\0"));
  const Outcome outcome = ovxid({"list"});
  EXPECT_EQ(outcome.out, bytes("OVX_WAN=eth7\0\n"));
  EXPECT_EQ(outcome.err, "ioctl(wan_mac): No such device\n");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(FrontEnd, PrintsEveryByteOfTheName) {
  fieldNode();
  const Outcome outcome = ovxid({"name"});
  EXPECT_EQ(outcome.out, bytes("Field Node\0\n"));
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(FrontEnd, PrintsTheNumber) {
  fieldNode();
  const Outcome outcome = ovxid({"number"});
  EXPECT_EQ(outcome.out, "7\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(FrontEnd, PrintsTheNameOfAnUnknownBoardAndFails) {
  const Outcome outcome = ovxid({"name"});
  EXPECT_EQ(outcome.out, "Unknown\n");
  EXPECT_EQ(outcome.err, "ovxid: board: not identified\n");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(FrontEnd, PrintsTheNumberOfAnUnknownBoardAndFails) {
  const Outcome outcome = ovxid({"number"});
  EXPECT_EQ(outcome.out, "-1\n");
  EXPECT_EQ(outcome.err, "ovxid: board: not identified\n");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(FrontEnd, CountsABoardWithoutNameAndNumberAsIdentified) {
  mBoard.property("boardid", "");
  EXPECT_EQ(ovxid({"name"}).out, "Unknown\n");
  EXPECT_EQ(ovxid({"name"}).status, 0);
  EXPECT_EQ(ovxid({"number"}).out, "-1\n");
  EXPECT_EQ(ovxid({"number"}).status, 0);
}

TEST_F(FrontEnd, CountsANegativeNumberAsIdentified) {
  mBoard.property("boardid", "-7");
  const Outcome outcome = ovxid({"number"});
  EXPECT_EQ(outcome.out, "-7\n");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(FrontEnd, VerbosePrintsEachMessageWithItsLevelInOrder) {
  mBoard.catalogue("Field Node\n").cpuinfo("Hardware\t: Field Node\n");
  for (const Arguments& arguments :
       {Arguments{"-v", "name"}, Arguments{"--verbose", "name"}, Arguments{"name", "-v"}}) {
    const Outcome outcome = ovxid(arguments);
    EXPECT_EQ(outcome.out, "Unknown\n");
    EXPECT_EQ(
        outcome.err,
        "debug: Creating OvxIdentifier...\n"
        "debug: Finding list of known identities...\n"
        "debug: Opened file /etc/known_ovx_ids, now reading known hardware identites\n"
        "warn: The line:'Field Node' is not valid known board identification description line (it "
        "must contain at least two colon separated values)\n"
        "debug: Attempting to find alias by DT\n"
        "debug: Could not open /proc/device-tree/orvanix/boardid \n"
        "debug: Could not open /proc/device-tree/orvanix/description \n"
        "debug: Attempting to find alias by uname\n"
        "debug: No problems with uname\n"
        "debug: uts.release= " +
            realRelease() + "\n" + suffixMessage(realRelease()) +
            "debug: Finding the hardware idenitity with uname failed, attempting to find hardware "
            "identity with cpuinfo\n"
            "debug: Cpuinfo line: Hardware\t: Field Node\n"
            "debug: Found Hardware field...\n"
            "debug: Found possisble alias: 'Field Node'\n"
            "debug: Searching known real names...\n"
            "debug: Searching known aliases...\n"
            "error: The possible alias is not a real name or alias of any identity\n"
            "error: Could not find hardware identity with uname or through /proc/cpuinfo\n"
            "error: Identity is unknown: \n"
            "error: Real name: Unknown\n"
            "error: Hardware number: -1\n"
            "ovxid: board: not identified\n");
    EXPECT_EQ(outcome.status, 1);
  }
}

TEST_F(FrontEnd, VerbosePrintsTheSameMessagesForNameNumberAndList) {
  mBoard.catalogue("").property("boardid", "7");
  const std::string expected =
      "debug: Creating OvxIdentifier...\n"
      "debug: Finding list of known identities...\n"
      "debug: Opened file /etc/known_ovx_ids, now reading known hardware identites\n"
      "debug: Attempting to find alias by DT\n"
      "debug: Could not open /proc/device-tree/orvanix/description \n"
      "debug: Full identity: \n"
      "debug: Real name: Unknown\n"
      "debug: Hardware number: 7\n"
      "debug: Aliases: \n";
  for (const char* command : {"name", "number", "list"}) {
    EXPECT_EQ(ovxid({"-v", command}).err, expected) << command;
  }
  EXPECT_EQ(ovxid({"-v"}).err, expected);
  EXPECT_EQ(ovxid({"-v", "run", "true"}).err, expected);
  EXPECT_EQ(ovxid({"-v", "shell", "-c", "true"}).err, expected);
}

TEST_F(FrontEnd, VerboseInterpretsNoPercentSign) {
  mBoard.catalogue("%s%n%d:7:x\n%s%n\n").cpuinfo("%s%n%x\nHardware\t: %s%n%d\n");
  const Outcome outcome = ovxid({"-v", "name"});
  EXPECT_EQ(outcome.out, "%s%n%d\n");
  EXPECT_THAT(outcome.err, HasSubstr("debug: Found hardware identity: Board number 7(%s%n%d)\n"));
  EXPECT_THAT(outcome.err, HasSubstr("warn: The line:'%s%n' is not valid"));
  EXPECT_THAT(outcome.err, HasSubstr("debug: Cpuinfo line: %s%n%x\n"));
  EXPECT_THAT(outcome.err, HasSubstr("debug: Found possisble alias: '%s%n%d'\n"));
  EXPECT_THAT(outcome.err, HasSubstr("debug: Real name: %s%n%d\n"));
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(FrontEnd, RunsAProgramThatSeesTheParameters) {
  fieldNode();
  const Outcome outcome = ovxid({"run", "printenv", "OVX_ID", "OVX_DESC"});
  EXPECT_EQ(outcome.out, "7\nField Node\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(FrontEnd, RunsAProgramOnAnUnknownBoard) {
  EXPECT_EQ(ovxid({"run", "echo", "a"}).out, "a\n");
}

TEST_F(FrontEnd, RunsAProgramAfterTwoDashes) {
  EXPECT_EQ(ovxid({"run", "--", "echo", "a"}).out, "a\n");
}

TEST_F(FrontEnd, LeavesTheArgumentsOfAProgramToIt) {
  EXPECT_EQ(ovxid({"run", "printf", "%s|", "-v", "--help", "--", "-x", "", "run", "a b"}).out,
            "-v|--help|--|-x||run|a b|");
}

TEST_F(FrontEnd, LeavesTheArgumentsOfAProgramAfterTwoDashesToIt) {
  EXPECT_EQ(ovxid({"run", "--", "printf", "%s|", "--", "--version"}).out, "--|--version|");
}

TEST_F(FrontEnd, RunsAProgramNamedLikeACommand) {
  mBoard.directory("/proc/bin");
  std::ofstream("/proc/bin/list") << "#!/bin/sh\necho my list $1\n";
  mBoard.permissions("/proc/bin/list", 0755);
  mPrepare = [] { setenv("PATH", "/proc/bin", 1); };
  EXPECT_EQ(ovxid({"run", "list", "name"}).out, "my list name\n");
}

TEST_F(FrontEnd, EndsWithTheStatusOfTheProgram) {
  EXPECT_EQ(ovxid({"run", "sh", "-c", "exit 42"}).status, 42);
}

TEST_F(FrontEnd, LetsTheProgramDieOfAClosedPipe) {
  EXPECT_EQ(ovxid({"run", "sh", "-c", "kill -PIPE $$"}).status, 128 + SIGPIPE);
}

TEST_F(FrontEnd, FailsToRunAMissingProgramWith127) {
  const Outcome outcome = ovxid({"run", "no-such-program"});
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "ovxid: no-such-program: No such file or directory\n");
  EXPECT_EQ(outcome.status, 127);
}

TEST_F(FrontEnd, FailsToRunAFileThatIsNotExecutableWith126) {
  std::ofstream("/proc/text") << "text\n";
  const Outcome outcome = ovxid({"run", "/proc/text", "-v"});
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "ovxid: /proc/text: Permission denied\n");
  EXPECT_EQ(outcome.status, 126);
}

TEST_F(FrontEnd, FailsToRunAProgramOfNoNameWith127) {
  const Outcome outcome = ovxid({"run", ""});
  EXPECT_EQ(outcome.err, "ovxid: '': No such file or directory\n");
  EXPECT_EQ(outcome.status, 127);
}

TEST_F(FrontEnd, RunsBashWhenShellIsNotSet) {
  fieldNode();
  const Outcome outcome = ovxid({"shell", "-c", "echo $0 $BASH $OVX_DESC"});
  EXPECT_EQ(outcome.out, "/bin/bash /bin/bash Field Node\n");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(FrontEnd, RunsTheShellThatShellNames) {
  shellIs("/bin/echo");
  EXPECT_EQ(ovxid({"shell", "-c", "-v", "--version", "--", "-h"}).out, "-c -v --version -- -h\n");
}

TEST_F(FrontEnd, LeavesWhatFollowsTwoDashesToTheShell) {
  shellIs("/bin/echo");
  EXPECT_EQ(ovxid({"shell", "--", "-x", "--"}).out, "-x --\n");
}

TEST_F(FrontEnd, RunsTheShellWithoutArguments) {
  shellIs("/bin/echo");
  EXPECT_EQ(ovxid({"shell"}).out, "\n");
}

TEST_F(FrontEnd, EndsWithTheStatusOfTheShell) {
  EXPECT_EQ(ovxid({"shell", "-c", "exit 42"}).status, 42);
}

TEST_F(FrontEnd, FailsToRunAMissingShellWith127) {
  shellIs("/nonexistent");
  const Outcome outcome = ovxid({"shell"});
  EXPECT_EQ(outcome.err, "ovxid: /nonexistent: No such file or directory\n");
  EXPECT_EQ(outcome.status, 127);
}

TEST_F(FrontEnd, FailsToRunAShellThatIsNotExecutableWith126) {
  shellIs("/proc");
  const Outcome outcome = ovxid({"shell"});
  EXPECT_EQ(outcome.err, "ovxid: /proc: Permission denied\n");
  EXPECT_EQ(outcome.status, 126);
}

TEST_F(FrontEnd, FailsToRunABashThatIsNotExecutableWith126) {
  mPrepare = [] {
    require(unshare(CLONE_NEWNS), "make a mount namespace");
    require(mount("/dev/null", "/bin/bash", nullptr, MS_BIND, nullptr), "cover /bin/bash");
  };
  const Outcome outcome = ovxid({"shell"});
  EXPECT_EQ(outcome.err, "ovxid: /bin/bash: Permission denied\n");
  EXPECT_EQ(outcome.status, 126);
}

TEST_F(FrontEnd, FailsToRunAnEmptyShellWith127) {
  shellIs("");
  const Outcome outcome = ovxid({"shell"});
  EXPECT_EQ(outcome.err, "ovxid: '': No such file or directory\n");
  EXPECT_EQ(outcome.status, 127);
}

class Output : public FrontEnd, public testing::WithParamInterface<const char*> {};

TEST_P(Output, ToAFullDiskIsAnError) {
  fieldNode();
  outputTo("/dev/full");
  const Outcome outcome = ovxid({GetParam()});
  EXPECT_EQ(outcome.err, "ovxid: standard output: No space left on device\n");
  EXPECT_EQ(outcome.status, 3);
}

TEST_P(Output, ToAClosedPipeIsAnError) {
  fieldNode();
  outputToClosedPipe();
  const Outcome outcome = ovxid({GetParam()});
  EXPECT_EQ(outcome.err, "ovxid: standard output: Broken pipe\n");
  EXPECT_EQ(outcome.status, 3);
}

TEST_P(Output, ToAClosedDescriptorIsAnError) {
  fieldNode();
  outputClosed();
  const Outcome outcome = ovxid({GetParam()});
  EXPECT_EQ(outcome.err, "ovxid: standard output: Bad file descriptor\n");
  EXPECT_EQ(outcome.status, 3);
}

INSTANTIATE_TEST_SUITE_P(Of, Output,
                         testing::Values("list", "name", "number", "--help", "--version"));

TEST_F(FrontEnd, ReportsAnUnwrittenNameOfAnUnknownBoardAsUnwritten) {
  outputTo("/dev/full");
  const Outcome outcome = ovxid({"name"});
  EXPECT_EQ(outcome.err, "ovxid: standard output: No space left on device\n");
  EXPECT_EQ(outcome.status, 3);
}

class Exception : public FrontEnd, public testing::WithParamInterface<Arguments> {};

TEST_P(Exception, OfTheHardwareLineIsOneClearLine) {
  hardwareLineThatEndsAtItsColon();
  const Outcome outcome = ovxid(GetParam());
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "ovxid: /proc/cpuinfo: the Hardware line ends at its colon\n");
  EXPECT_EQ(outcome.status, 1);
}

INSTANTIATE_TEST_SUITE_P(In, Exception,
                         testing::Values(Arguments{}, Arguments{"list"}, Arguments{"name"},
                                         Arguments{"number"}, Arguments{"run", "echo", "a"},
                                         Arguments{"shell", "-c", "echo a"}));

struct UsageCase {
  const char* name;
  Arguments arguments;
  const char* reason;
};

void PrintTo(const UsageCase& usage, std::ostream* out) {
  *out << testing::PrintToString(usage.arguments);
}

class Usage : public FrontEnd, public testing::WithParamInterface<UsageCase> {};

TEST_P(Usage, IsRefusedWithOneLine) {
  const Outcome outcome = ovxid(GetParam().arguments);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            std::string("ovxid: usage: ") + GetParam().reason + " (see 'ovxid --help')\n");
  EXPECT_EQ(outcome.status, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Of, Usage,
    testing::Values(
        UsageCase{"AnUnknownCommand", {"bogus"}, "The following argument was not expected: bogus"},
        UsageCase{
            "AnUnknownOption", {"--bogus"}, "The following argument was not expected: --bogus"},
        UsageCase{"AnUnknownOptionOfACommand",
                  {"list", "-x"},
                  "The following argument was not expected: -x"},
        UsageCase{"AnArgumentTooMany", {"name", "x"}, "The following argument was not expected: x"},
        UsageCase{"TwoCommands", {"list", "name"}, "The following argument was not expected: name"},
        UsageCase{"RunWithoutAProgram", {"run"}, "PROGRAM is required"},
        UsageCase{"RunWithoutAProgramAfterTwoDashes", {"run", "--"}, "PROGRAM is required"},
        UsageCase{"AnUnknownOptionBeforeTheProgram",
                  {"run", "-x", "true"},
                  "The following argument was not expected: -x"},
        UsageCase{"ANumberBeforeTheProgram",
                  {"run", "-1", "echo"},
                  "The following argument was not expected: -1"},
        UsageCase{"ThreeDashesForAProgram",
                  {"run", "---"},
                  "The following argument was not expected: ---"},
        UsageCase{"AnOddOptionForAProgram",
                  {"run", "-- x"},
                  "The following argument was not expected: -- x"},
        UsageCase{
            "AnOptionWithANewline", {"run", "-\n"}, "The following argument was not expected: -?"},
        UsageCase{"TwoPlusSigns", {"list", "++"}, "The following argument was not expected: ++"},
        UsageCase{"AMarkAfterList", {"list", "--"}, "The following argument was not expected: --"},
        UsageCase{"AnEmptyCommand", {""}, "The following argument was not expected: "},
        UsageCase{"TwoDashesBeforeTheCommand",
                  {"--", "run", "true"},
                  "The following argument was not expected: --"}),
    [](const auto& test) { return test.param.name; });

TEST_F(FrontEnd, LeavesTheSecondOfTwoMarksToTheProgramAndToTheShell) {
  EXPECT_EQ(ovxid({"run", "--", "echo", "--", "x"}).out, "-- x\n");
  EXPECT_EQ(ovxid({"run", "--", "--", "x"}).err, "ovxid: --: No such file or directory\n");
  shellIs("/bin/echo");
  EXPECT_EQ(ovxid({"shell", "--", "--", "x"}).out, "-- x\n");
}

TEST_F(FrontEnd, TakesOddWordsForProgramsOnly) {
  EXPECT_EQ(ovxid({"run", "++"}).err, "ovxid: ++: No such file or directory\n");
  EXPECT_EQ(ovxid({"run", "-"}).err, "ovxid: -: No such file or directory\n");
}

TEST_F(FrontEnd, LeavesTheShortWordForHelpToTheShell) {
  shellIs("/bin/echo");
  EXPECT_EQ(ovxid({"shell", "-h"}).out, "-h\n");
}

TEST_F(FrontEnd, FailsToRunAProgramBelowAFileWith126) {
  EXPECT_EQ(ovxid({"run", "/proc/missing/x"}).status, 127);
  std::ofstream("/proc/file") << "";
  EXPECT_EQ(ovxid({"run", "/proc/file/x"}).err, "ovxid: /proc/file/x: Not a directory\n");
  EXPECT_EQ(ovxid({"run", "/proc/file/x"}).status, 126);
}

TEST_F(FrontEnd, LetsTheProgramInheritAnIgnoredClosedPipe) {
  mPrepare = [] { std::signal(SIGPIPE, SIG_IGN); };
  EXPECT_EQ(ovxid({"run", "sh", "-c", "kill -PIPE $$; exit 7"}).status, 7);
}

TEST_F(FrontEnd, FailsWhenItsMessagesCannotBeWritten) {
  fieldNode();
  messagesToFullDisk();
  EXPECT_EQ(ovxid({"-v", "name"}).status, 3);
  messagesToClosedPipe();
  const Outcome outcome = ovxid({"-v", "name"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.out, bytes("Field Node\0\n"));
}

TEST_F(FrontEnd, RunsTheProgramThoughItsMessagesCannotBeWritten) {
  messagesToClosedPipe();
  EXPECT_EQ(ovxid({"-v", "run", "echo", "a"}).out, "a\n");
}

TEST_F(FrontEnd, NeedsNoOutputToListNothing) {
  outputTo("/dev/full");
  EXPECT_EQ(ovxid({"list"}).status, 0);
}

TEST_F(FrontEnd, AcceptsVerboseBetweenRunAndTheProgram) {
  EXPECT_THAT(ovxid({"--verbose", "run", "echo"}).err, StartsWith("debug: Creating"));
  EXPECT_THAT(ovxid({"run", "--verbose", "--", "echo"}).err, StartsWith("debug: Creating"));
  EXPECT_THAT(ovxid({"run", "-v", "echo", "-v"}).err, StartsWith("debug: Creating"));
  EXPECT_EQ(ovxid({"run", "-v", "echo", "-v"}).out, "-v\n");
}

TEST_F(FrontEnd, PrintsItsVersion) {
  const Outcome outcome = ovxid({"--version"});
  EXPECT_EQ(outcome.out, "ovxid " OVXID_VERSION "\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(FrontEnd, HelpsWithEveryCommandAndExitStatus) {
  for (const char* option : {"--help", "-h"}) {
    const Outcome outcome = ovxid({option});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    for (const char* text :
         {"  list ", "  name ", "  number ", "  run ", "  shell ", "--verbose", "--version",
          "  0  ", "  1  ", "  2  ", "  3  ", "  125  ", "  126  ", "  127  ", "Without a command: list."}) {
      EXPECT_THAT(outcome.out, HasSubstr(text));
    }
  }
}

class Help : public FrontEnd, public testing::WithParamInterface<const char*> {};

TEST_P(Help, HasAnExample) {
  const Outcome outcome = ovxid({GetParam(), "--help"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, HasSubstr(std::string("Usage: ovxid ") + GetParam()));
  EXPECT_THAT(outcome.out, HasSubstr("Example:\n"));
  EXPECT_THAT(outcome.out, HasSubstr(std::string("ovxid ") + GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Of, Help, testing::Values("list", "name", "number", "run", "shell"));

TEST_F(FrontEnd, HelpOfRunNamesTheProgramAndItsArguments) {
  EXPECT_THAT(ovxid({"run", "--help"}).out,
              HasSubstr("Usage: ovxid run [OPTIONS] [--] PROGRAM [ARG...]\n"));
}

TEST_F(FrontEnd, KnowsNoBoardWhenOnlyHelpIsAskedFor) {
  hardwareLineThatEndsAtItsColon();
  EXPECT_EQ(ovxid({"run", "--help"}).status, 0);
  EXPECT_EQ(ovxid({"shell", "--help"}).status, 0);
}

TEST_F(FrontEnd, HasEveryOptionCommandAndExitStatusOfItsHelpInTheManualPage) {
  std::ostringstream page;
  page << std::ifstream(OVXID_MANUAL_PAGE).rdbuf();
  const std::string help = ovxid({"--help"}).out;
  const std::regex entry("\n  ([^ ]+)  ");
  int entries = 0;
  for (std::sregex_iterator match(help.begin(), help.end(), entry), end; match != end; ++match) {
    std::istringstream names((*match)[1]);
    for (std::string name; std::getline(names, name, ','); ++entries) {
      const std::string escaped = std::regex_replace(name, std::regex("-"), "\\-");
      EXPECT_THAT(
          page.str(),
          ContainsRegex("\n[.]BR? (.* )?" +
                        std::regex_replace(escaped, std::regex(R"(\\)"), R"(\\)") + "( .*)?\n"));
    }
  }
  EXPECT_EQ(entries, 17);
}

TEST(ManualPage, IsOfThisVersion) {
  std::ifstream page(OVXID_MANUAL_PAGE);
  std::string title;
  std::getline(page, title);
  EXPECT_THAT(title, HasSubstr("\"ovxid " + std::string(OVXID_VERSION) + "\""));
}

}  // namespace
