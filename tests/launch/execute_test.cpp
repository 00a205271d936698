#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "simulation/board.h"
#include "simulation/child.h"

namespace {

// Launches in a child process. Its environment is PATH and mEnvironment. When the launch fails, the
// child prints the result, errno and its environment.
class Launch : public testing::Test {
 protected:
  Outcome launch(std::vector<std::string> arguments, bool useShell) {
    const int count = static_cast<int>(arguments.size());
    return launch(count, std::move(arguments), useShell);
  }

  Outcome launch(int count, std::vector<std::string> arguments, bool useShell) {
    return inChild([&] {
      clearenv();
      setenv("PATH", "/usr/bin:/bin", 1);
      std::filesystem::current_path(mDirectory);
      std::ofstream("/proc/input") << mInput;
      dup2(open("/proc/input", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
      for (const auto& [name, value] : mEnvironment) {
        setenv(name.c_str(), value.c_str(), 1);
      }
      const int result = mIdentifier.execute(count, pointers(arguments).data(), useShell);
      const int reason = errno;
      std::printf("returned %d, errno %d\n", result, reason);
      for (char** variable = environ; *variable != nullptr; ++variable) {
        std::puts(*variable);
      }
      return 99;
    });
  }

  Outcome shell(const std::string& script) { return launch({"-c", script}, true); }

  Board mBoard;
  OvxIdentifier mIdentifier{nullptr};
  std::vector<std::pair<std::string, std::string>> mEnvironment;
  std::string mInput;
  std::string mDirectory = "/";
};

TEST_F(Launch, RunsAProgramFoundThroughThePathWithItsArguments) {
  const Outcome outcome = launch({"printf", "%s|", "-l", "a b", ""}, false);
  EXPECT_EQ(outcome.out, "-l|a b||");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Launch, ReplacesTheProcessWhoseStatusIsThatOfTheProgram) {
  EXPECT_EQ(launch({"sh", "-c", "exit 7"}, false).status, 7);
}

TEST_F(Launch, ShowsTheParametersToTheProgram) {
  mIdentifier.addParameter("OVX_ID", "3");
  mIdentifier.addParameter("OVX_DESC", "Tessaryn TQB");
  EXPECT_EQ(launch({"printenv", "OVX_ID", "OVX_DESC"}, false).out, "3\nTessaryn TQB\n");
}

TEST_F(Launch, ShowsTheParametersToTheShell) {
  mIdentifier.addParameter("OVX_ID", "3");
  mIdentifier.addParameter("OVX_DESC", "Tessaryn TQB");
  EXPECT_EQ(shell("echo $OVX_ID $OVX_DESC").out, "3 Tessaryn TQB\n");
}

TEST_F(Launch, KeepsTheOtherVariables) {
  mEnvironment = {{"OTHER", "kept"}};
  mIdentifier.addParameter("OVX_ID", "3");
  EXPECT_EQ(launch({"printenv", "OTHER"}, false).out, "kept\n");
}

TEST_F(Launch, OverwritesAVariableThatIsSet) {
  mEnvironment = {{"OVX_ID", "old"}};
  mIdentifier.addParameter("OVX_ID", "3");
  EXPECT_EQ(launch({"printenv", "OVX_ID"}, false).out, "3\n");
}

TEST_F(Launch, ExportsTheLaterOfTwoParametersOfOneName) {
  mIdentifier.addParameter("OVX_ID", "3");
  mIdentifier.addParameter("OVX_ID", "4");
  EXPECT_EQ(launch({"printenv", "OVX_ID"}, false).out, "4\n");
}

TEST_F(Launch, ExportsThePropertyIdOverTheIdentitysOwn) {
  mBoard.property("boardid", "7").property("id", "8").property("desc", "Bench Unit");
  mIdentifier.loadParams();
  EXPECT_EQ(launch({"printenv", "OVX_ID", "OVX_DESC"}, false).out, "8\nBench Unit\n");
}

TEST_F(Launch, ExportsTheLastWanInterfaceThoughTheMacIsThatOfTheFirst) {
  mBoard.interface("eth0", "02:00:00:00:00:01");
  mIdentifier.addParameter("OVX_WAN", "eth0");
  mIdentifier.addParameter("OVX_WAN", "eth1");
  mIdentifier.add_wan_mac();
  EXPECT_EQ(launch({"printenv", "OVX_WAN", "OVX_WAN_ID"}, false).out, "eth1\n200001\n");
}

TEST_F(Launch, CutsAValueAtItsFirstNulByte) {
  mIdentifier.addParameter("OVX_WAN", bytes("eth0\0"));
  mIdentifier.addParameter("OVX_COMPATIBLE", bytes("a,b\0c,d\0"));
  EXPECT_EQ(launch({"printenv", "OVX_WAN", "OVX_COMPATIBLE"}, false).out, "eth0\na,b\n");
}

TEST_F(Launch, ExportsACellThatBeginsWithAZeroByteAsEmpty) {
  mIdentifier.addParameter("OVX_CELL", bytes("\0\0\0\1"));
  EXPECT_EQ(shell("echo \"${OVX_CELL-unset}|\"").out, "|\n");
}

TEST_F(Launch, ExportsAParameterWithoutAValue) {
  mIdentifier.addParameter("OVX_WIFI", "");
  EXPECT_EQ(launch({"env"}, false).out, "PATH=/usr/bin:/bin\nOVX_WIFI=\n");
}

TEST_F(Launch, ExportsAParameterOfAnotherPrefix) {
  mIdentifier.addParameter("WIFI", "yes");
  EXPECT_EQ(launch({"env"}, false).out, "PATH=/usr/bin:/bin\nWIFI=yes\n");
}

TEST_F(Launch, ExportsNamesThatAreNoShellIdentifiers) {
  mIdentifier.addParameter("OVX_#ADDRESS-CELLS", "1");
  EXPECT_EQ(launch({"printenv", "OVX_#ADDRESS-CELLS"}, false).out, "1\n");
}

TEST_F(Launch, SkipsAnEmptyNameAndOneWithAnEqualsSignAndGoesOn) {
  mIdentifier.addParameter("", "x");
  mIdentifier.addParameter("OVX_A=B", "x");
  mIdentifier.addParameter("OVX_C", "1");
  const Outcome outcome = launch({"env"}, false);
  EXPECT_EQ(outcome.out, "PATH=/usr/bin:/bin\nOVX_C=1\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Launch, WithAnEmptyListExportsNothing) {
  EXPECT_EQ(launch({"env"}, false).out, "PATH=/usr/bin:/bin\n");
}

TEST_F(Launch, LoadsNoParametersItself) {
  mBoard.property("boardid", "7");
  EXPECT_EQ(launch({"env"}, false).out, "PATH=/usr/bin:/bin\n");
}

TEST_F(Launch, WithoutTheShellDoesNotUseTheCount) {
  EXPECT_EQ(launch(-5, {"echo", "a", "b"}, false).out, "a b\n");
  EXPECT_EQ(launch(1, {"echo", "a", "b"}, false).out, "a b\n");
}

TEST_F(Launch, WithoutTheShellExportsWhateverTheCount) {
  mIdentifier.addParameter("OVX_ID", "3");
  EXPECT_EQ(launch(-5, {"printenv", "OVX_ID"}, false).out, "3\n");
  EXPECT_EQ(launch(0, {"printenv", "OVX_ID"}, false).out, "3\n");
}

TEST_F(Launch, WithoutTheShellDoesNotLookAtShell) {
  mEnvironment = {{"SHELL", "/nonexistent"}};
  EXPECT_EQ(launch({"echo", "a"}, false).out, "a\n");
}

TEST_F(Launch, WithTheShellRunsBashWhenShellIsNotSet) {
  EXPECT_EQ(shell("echo $0 $BASH").out, "/bin/bash /bin/bash\n");
}

TEST_F(Launch, WithTheShellPassesAllOfTheArguments) {
  EXPECT_EQ(launch({"-c", "printf '%s|' \"$0\" \"$@\"", "zero", "-x", ""}, true).out, "zero|-x||");
}

TEST_F(Launch, WithTheShellRunsAScript) {
  const std::string script = "/proc/setup.sh";
  std::ofstream(script) << "echo $0 $1\n";
  mEnvironment = {{"SHELL", "/bin/sh"}};
  EXPECT_EQ(launch({script, "a"}, true).out, "/proc/setup.sh a\n");
}

TEST_F(Launch, WithTheShellRunsTheOneThatShellNames) {
  mEnvironment = {{"SHELL", "/bin/sh"}};
  EXPECT_EQ(shell("echo $0").out, "/bin/sh\n");
}

TEST_F(Launch, WithTheShellLooksItUpInThePath) {
  mEnvironment = {{"SHELL", "printf"}};
  EXPECT_EQ(launch({"%s|", "a"}, true).out, "a|");
}

TEST_F(Launch, WithTheShellUsesAParameterNamedShell) {
  mEnvironment = {{"SHELL", "/nonexistent"}};
  mIdentifier.addParameter("SHELL", "/bin/sh");
  EXPECT_EQ(shell("echo $0").out, "/bin/sh\n");
}

TEST_F(Launch, WithTheShellAndNoArgumentsStartsItBare) {
  mInput = "echo $0 $#\n";
  EXPECT_EQ(launch({}, true).out, "/bin/bash 0\n");
}

TEST_F(Launch, ShowsTheParametersToAShellWithoutArguments) {
  mIdentifier.addParameter("OVX_ID", "3");
  mInput = "echo $OVX_ID\n";
  EXPECT_EQ(launch({}, true).out, "3\n");
}

TEST_F(Launch, RunsLsWithItsArguments) {
  mBoard.directory("/proc/empty");
  mDirectory = "/proc/empty";
  EXPECT_EQ(launch({"ls", "-l"}, false).out, "total 0\n");
}

TEST_F(Launch, HandsOpenDescriptorsToTheProgram) {
  const int descriptor = dup(STDIN_FILENO);
  const std::string file = "/proc/self/fd/" + std::to_string(descriptor);
  EXPECT_EQ(launch({"test", "-e", file}, false).status, 0);
  close(descriptor);
  EXPECT_EQ(launch({"test", "-e", file}, false).status, 1);
}

TEST_F(Launch, CutsANameAtItsFirstNulByte) {
  mIdentifier.addParameter(bytes("OVX_A\0B"), "1");
  EXPECT_EQ(launch({"env"}, false).out, "PATH=/usr/bin:/bin\nOVX_A=1\n");
}

TEST_F(Launch, OfTheShellOnABoardKnownByItsReleaseShowsItNumberAndNameAlone) {
  mBoard.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-fn1");
  mIdentifier = OvxIdentifier(nullptr);
  mIdentifier.loadParams();
  EXPECT_EQ(shell("env | grep ^OVX_ | sort").out, "OVX_DESC=Field Node\nOVX_ID=3\n");
}

TEST_F(Launch, OfAMissingProgramReturnsWithItsErrnoAndTheParametersExported) {
  mIdentifier.addParameter("OVX_ID", "3");
  const Outcome outcome = launch({"no-such-program"}, false);
  EXPECT_EQ(outcome.out,
            "returned -1, errno " + std::to_string(ENOENT) + "\nPATH=/usr/bin:/bin\nOVX_ID=3\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Launch, OfAProgramThatMayNotBeRunReturnsWithItsErrno) {
  EXPECT_EQ(launch({"/proc"}, false).out,
            "returned -1, errno " + std::to_string(EACCES) + "\nPATH=/usr/bin:/bin\n");
}

TEST_F(Launch, OfAMissingShellReturnsWithItsErrnoAndTheParametersExported) {
  mEnvironment = {{"SHELL", "/nonexistent"}};
  mIdentifier.addParameter("OVX_ID", "3");
  EXPECT_EQ(shell("true").out, "returned -1, errno " + std::to_string(ENOENT) +
                                   "\nPATH=/usr/bin:/bin\nSHELL=/nonexistent\nOVX_ID=3\n");
}

TEST_F(Launch, OfAnEmptyShellFails) {
  mEnvironment = {{"SHELL", ""}};
  EXPECT_EQ(shell("true").out,
            "returned -1, errno " + std::to_string(ENOENT) + "\nPATH=/usr/bin:/bin\nSHELL=\n");
}

TEST_F(Launch, WithTheShellLooksAtShellEachTime) {
  const Outcome outcome = inChild([&] {
    std::vector<std::string> words{"-c", "echo run"};
    setenv("SHELL", "/nonexistent", 1);
    mIdentifier.execute(2, pointers(words).data(), true);
    setenv("SHELL", "/bin/sh", 1);
    return mIdentifier.execute(2, pointers(words).data(), true);
  });
  EXPECT_EQ(outcome, (Outcome{0, "run\n", ""}));
}

TEST_F(Launch, WithTheShellReadsNothingBehindTheArguments) {
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  void* const pages =
      mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(pages, MAP_FAILED);
  void* const unreadable = static_cast<char*>(pages) + page;
  ASSERT_EQ(mprotect(unreadable, page, PROT_NONE), 0);
  std::vector<std::string> words{"-c", "echo run"};
  const std::vector<char*> list = pointers(words);
  char** const arguments = static_cast<char**>(unreadable) - list.size();
  std::copy(list.begin(), list.end(), arguments);
  EXPECT_EQ(inChild([&] { return mIdentifier.execute(2, arguments, true); }),
            (Outcome{0, "run\n", ""}));
  munmap(pages, 2 * page);
}

TEST_F(Launch, WithTheShellRefusesANegativeCountBeforeItExports) {
  mIdentifier.addParameter("OVX_ID", "3");
  EXPECT_EQ(launch(-1, {"-c", "true"}, true).out,
            "returned -1, errno " + std::to_string(EINVAL) + "\nPATH=/usr/bin:/bin\n");
}

TEST_F(Launch, LogsNothing) {
  OvxIdentifier identifier(mBoard.logger());
  identifier.addParameter("OVX_A=B", "x");
  std::vector<std::string> arguments{"no-such-program"};
  EXPECT_EQ(mBoard.messagesOf([&] { identifier.execute(1, pointers(arguments).data(), false); }),
            Messages{});
}

}  // namespace
