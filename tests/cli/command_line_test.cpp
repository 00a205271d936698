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

TEST_F(FrontEnd, TakesTwoDashesForTheEndOfItsOptions) {
  mBoard.property("wan", "eth0");
  EXPECT_EQ(ovxid({"--", "get", "--", "OVX_WAN"}).out, "eth0\n");
  EXPECT_EQ(ovxid({"get", "--", "--format"}).err,
            "ioctl(wan_mac): No such device\n"
            "ovxid: --format: the board has no such parameter\n");
  EXPECT_EQ(ovxid({"list", "--"}).out, "OVX_WAN=eth0\n");
}

TEST_F(FrontEnd, TakesAnOptionBehindAnOperand) {
  mBoard.property("wifi", "yes");
  EXPECT_EQ(ovxid({"get", "OVX_WIFI", "-v"}), ovxid({"-v", "get", "OVX_WIFI"}));
}

TEST_F(FrontEnd, TakesTheValueOfAnOptionAsOneWordOrTwo) {
  mBoard.property("wifi", "yes");
  EXPECT_EQ(ovxid({"list", "--format=shell"}).out, "export OVX_WIFI='yes'\n");
  EXPECT_EQ(ovxid({"list", "--format", "shell"}).out, "export OVX_WIFI='yes'\n");
}

TEST_F(FrontEnd, TakesTheLastOfTwoValuesOfAnOption) {
  mBoard.property("wifi", "yes");
  EXPECT_EQ(ovxid({"list", "--format=null", "--format", "plain"}).out, "OVX_WIFI=yes\n");
}

TEST_F(FrontEnd, ReadsOptionsBehindOperandsWhateverPosixWants) {
  mBoard.file("/proc/in/a", "Kestrel:0x12\n");
  isPosixlyCorrect();
  EXPECT_EQ(ovxid({"check", "/proc/in/a", "--ignore", "number-text"}), (Outcome{0, "", ""}));
}

struct UsageCase {
  const char* name;
  Arguments arguments;
  const char* complaint;
};

void PrintTo(const UsageCase& usage, std::ostream* out) {
  *out << testing::PrintToString(usage.arguments);
}

class Usage : public FrontEnd, public testing::WithParamInterface<UsageCase> {};

TEST_P(Usage, IsRefusedWithOneLine) {
  EXPECT_EQ(ovxid(GetParam().arguments),
            (Outcome{2, "", std::string("ovxid: ") + GetParam().complaint + "')\n"}));
}

INSTANTIATE_TEST_SUITE_P(
    Of, Usage,
    testing::Values(
        UsageCase{"AnUnknownCommand", {"bogus"}, "bogus: no such command (see 'ovxid --help"},
        UsageCase{"AnUnknownCommandBeforeAWord",
                  {"bogus", "list"},
                  "bogus: no such command (see 'ovxid --help"},
        UsageCase{"AnEmptyCommand", {""}, "'': no such command (see 'ovxid --help"},
        UsageCase{"ADashForACommand", {"-"}, "-: no such command (see 'ovxid --help"},
        UsageCase{"ACommandWithALetterLeftOut",
                  {"nme"},
                  "nme: no such command, did you mean 'name'? (see 'ovxid --help"},
        UsageCase{"ACommandWithTwoLettersSwapped",
                  {"nubmer"},
                  "nubmer: no such command, did you mean 'number'? (see 'ovxid --help"},
        UsageCase{"ACommandInCapitals",
                  {"LIST"},
                  "LIST: no such command, did you mean 'list'? (see 'ovxid --help"},
        UsageCase{"AShortCommandWithALetterLeftOut",
                  {"rn"},
                  "rn: no such command, did you mean 'run'? (see 'ovxid --help"},
        UsageCase{"ALetter", {"x"}, "x: no such command (see 'ovxid --help"},
        UsageCase{"AnOptionThatIsTooShort",
                  {"--ver"},
                  "--ver: may be --verbose or --version (see 'ovxid --help"},
        UsageCase{"TheHelpOfAnUnknownCommand",
                  {"help", "shel"},
                  "shel: no such command, did you mean 'shell'? (see 'ovxid --help"},
        UsageCase{"AnUnknownOption", {"--bogus"}, "--bogus: no such option (see 'ovxid --help"},
        UsageCase{"AnUnknownOptionWithAValueBeforeACommand",
                  {"--root", "/tmp/x", "name"},
                  "--root: no such option (see 'ovxid --help"},
        UsageCase{"AMistypedOption",
                  {"--vebrose"},
                  "--vebrose: no such option, did you mean '--verbose'? (see 'ovxid --help"},
        UsageCase{"AMistypedOptionOfACommand",
                  {"list", "--fromat", "shell"},
                  "--fromat: no such option, did you mean '--format'? (see 'ovxid help list"},
        UsageCase{"AMistypedOptionWithItsValue",
                  {"list", "--fromat=shell"},
                  "--fromat: no such option, did you mean '--format'? (see 'ovxid help list"},
        UsageCase{"AnUnknownLetter", {"list", "-x"}, "-x: no such option (see 'ovxid help list"},
        UsageCase{"AnUnknownLetterAmongOthers",
                  {"list", "-vx"},
                  "-x: no such option (see 'ovxid help list"},
        UsageCase{"AnOptionOfAnotherCommand",
                  {"name", "--format", "shell"},
                  "--format: belongs behind 'list' (see 'ovxid help name"},
        UsageCase{"TheVersionOfACommand",
                  {"list", "--version"},
                  "--version: belongs before the command (see 'ovxid help list"},
        UsageCase{"AnOptionWithoutItsValue",
                  {"list", "--format"},
                  "--format: needs a FORMAT (see 'ovxid help list"},
        UsageCase{"AnUnknownFormat",
                  {"list", "--format", "yaml"},
                  "yaml: no such format (see 'ovxid help list"},
        UsageCase{"AMistypedFormat",
                  {"list", "--format", "plian"},
                  "plian: no such format, did you mean 'plain'? (see 'ovxid help list"},
        UsageCase{
            "AnEmptyFormat", {"list", "--format="}, "'': no such format (see 'ovxid help list"},
        UsageCase{"AnArgumentTooMany",
                  {"name", "x"},
                  "x: too many arguments for 'name' (see 'ovxid help name"},
        UsageCase{"TwoCommands",
                  {"list", "name"},
                  "name: too many arguments for 'list' (see 'ovxid help list"},
        UsageCase{"TwoNames",
                  {"get", "OVX_ID", "OVX_DESC"},
                  "OVX_DESC: too many arguments for 'get' (see 'ovxid help get"},
        UsageCase{"GetWithoutAName", {"get"}, "get: NAME is missing (see 'ovxid help get"},
        UsageCase{"RunWithoutAProgram", {"run"}, "run: PROGRAM is missing (see 'ovxid help run"},
        UsageCase{"RunWithoutAProgramAfterTwoDashes",
                  {"run", "--"},
                  "run: PROGRAM is missing (see 'ovxid help run"},
        UsageCase{"AnUnknownOptionBeforeTheProgram",
                  {"run", "-x", "true"},
                  "-x: no such option (see 'ovxid help run"},
        UsageCase{"ANumberBeforeTheProgram",
                  {"run", "-1", "echo"},
                  "-1: no such option (see 'ovxid help run"},
        UsageCase{
            "ThreeDashesForAProgram", {"run", "---"}, "---: no such option (see 'ovxid help run"},
        UsageCase{
            "AnOddOptionForAProgram", {"run", "-- x"}, "-- x: no such option (see 'ovxid help run"},
        UsageCase{
            "AnOptionWithANewline", {"run", "-\n"}, "-?: no such option (see 'ovxid help run"},
        UsageCase{"TwoPlusSigns",
                  {"list", "++"},
                  "++: too many arguments for 'list' (see 'ovxid help list"},
        UsageCase{"ADashBehindAnOption", {"-v-"}, "--: no such option (see 'ovxid --help"},
        UsageCase{"ALongOptionBehindAShortOne",
                  {"run", "-v-x", "true"},
                  "--: no such option (see 'ovxid help run"},
        UsageCase{"AValueForAnOption",
                  {"--verbose=true"},
                  "--verbose=true: takes no value (see 'ovxid --help"},
        UsageCase{"AnEmptyValueForAnOption",
                  {"name", "--help="},
                  "--help=: takes no value (see 'ovxid help name"},
        UsageCase{
            "HelpSetToFalse", {"--help=false"}, "--help=false: takes no value (see 'ovxid --help"},
        UsageCase{"VersionSetToFalse",
                  {"--version=false"},
                  "--version=false: takes no value (see 'ovxid --help"},
        UsageCase{
            "TheShortVerboseSetToFalse", {"-v=false"}, "-=: no such option (see 'ovxid --help"}),
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
