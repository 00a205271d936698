#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/front_end.h"

using testing::StartsWith;

namespace {

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
  mBoard.file("/proc/bin/list", "#!/bin/sh\necho my list $1\n").permissions("/proc/bin/list", 0755);
  pathIs("/proc/bin");
  EXPECT_EQ(ovxid({"run", "list", "name"}).out, "my list name\n");
}

TEST_F(FrontEnd, LeavesWhatFollowsTwoDashesToTheShell) {
  shellIs("/bin/echo");
  EXPECT_EQ(ovxid({"shell", "--", "-x", "--"}).out, "-x --\n");
}

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
  EXPECT_EQ(
      ovxid(GetParam().arguments),
      (Outcome{2, "",
               std::string("ovxid: usage: ") + GetParam().reason + " (see 'ovxid --help')\n"}));
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
        UsageCase{"ADashBehindAnOption", {"-v-"}, "The following argument was not expected: -v-"},
        UsageCase{"ALongOptionBehindAShortOne",
                  {"run", "-v-help", "true"},
                  "The following argument was not expected: -v-help"},
        UsageCase{"AValueForAnOption",
                  {"--verbose=true"},
                  "The following argument was not expected: --verbose=true"},
        UsageCase{"AnEmptyValueForAnOption",
                  {"name", "--help="},
                  "The following argument was not expected: --help="},
        UsageCase{"AnUnknownCommandBeforeAWord",
                  {"bogus", "list"},
                  "The following argument was not expected: bogus"},
        UsageCase{"HelpSetToFalse",
                  {"--help=false"},
                  "The following argument was not expected: --help=false"},
        UsageCase{"HelpOfACommandSetToFalse",
                  {"list", "--help=false"},
                  "The following argument was not expected: --help=false"},
        UsageCase{"VersionSetToFalse",
                  {"--version=false"},
                  "The following argument was not expected: --version=false"},
        UsageCase{"VerboseSetToFalse",
                  {"--verbose=false"},
                  "The following argument was not expected: --verbose=false"},
        UsageCase{"TheShortVerboseSetToFalse",
                  {"-v=false"},
                  "The following argument was not expected: -v=false"},
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

TEST_F(FrontEnd, LeavesAnOptionOfTwoDashesToTheShell) {
  shellIs("/bin/echo");
  EXPECT_EQ(ovxid({"shell", "--norc", "x"}), (Outcome{0, "--norc x\n", ""}));
}

TEST_F(FrontEnd, LeavesAnOptionThatBeginsLikeHelpToTheShell) {
  shellIs("/bin/echo");
  EXPECT_EQ(ovxid({"shell", "--help=false"}), (Outcome{0, "--help=false\n", ""}));
}

TEST_F(FrontEnd, LeavesTheShortWordForHelpToTheShell) {
  shellIs("/bin/echo");
  EXPECT_EQ(ovxid({"shell", "-h"}).out, "-h\n");
}

TEST_F(FrontEnd, AcceptsVerboseBetweenRunAndTheProgram) {
  EXPECT_THAT(ovxid({"--verbose", "run", "echo"}).err, StartsWith("debug: Creating"));
  EXPECT_THAT(ovxid({"run", "--verbose", "--", "echo"}).err, StartsWith("debug: Creating"));
  EXPECT_THAT(ovxid({"run", "-v", "echo", "-v"}).err, StartsWith("debug: Creating"));
  EXPECT_EQ(ovxid({"run", "-v", "echo", "-v"}).out, "-v\n");
}

}  // namespace
