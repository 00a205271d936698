#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <sys/utsname.h>
#include <unistd.h>

#include "cli/front_end.h"
#include "cli/terminal.h"

using testing::HasSubstr;

namespace {

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

TEST_F(FrontEnd, VerbosePrintsEachMessageWithItsLevelInOrder) {
  mBoard.catalogue("Field Node\n").cpuinfo("Hardware\t: Field Node\n");
  EXPECT_EQ(
      ovxid({"-v", "name"}),
      (Outcome{1, "Unknown\n",
               "debug: Creating OvxIdentifier...\n"
               "debug: Finding list of known identities...\n"
               "debug: Opened file /etc/known_ovx_ids, now reading known hardware identites\n"
               "warn: The line:'Field Node' is not valid known board identification description "
               "line (it "
               "must contain at least two colon separated values)\n"
               "debug: Attempting to find alias by DT\n"
               "debug: Could not open /proc/device-tree/orvanix/boardid \n"
               "debug: Could not open /proc/device-tree/orvanix/description \n"
               "debug: Attempting to find alias by uname\n"
               "debug: No problems with uname\n"
               "debug: uts.release= " +
                   realRelease() + "\n" + suffixMessage(realRelease()) +
                   "debug: Finding the hardware idenitity with uname failed, attempting to find "
                   "hardware "
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
                   "ovxid: board: not identified\n"}));
}

TEST_F(FrontEnd, IsVerboseWhereverTheOptionStands) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  const Outcome outcome = ovxid({"-v", "name"});
  EXPECT_EQ(ovxid({"name", "-v"}), outcome);
  EXPECT_EQ(ovxid({"--verbose", "name"}), outcome);
  EXPECT_EQ(ovxid({"name", "--verbose"}), outcome);
  EXPECT_EQ(ovxid({"-v", "name", "-v"}), outcome);
  EXPECT_EQ(ovxid({"-vv", "name", "-vv"}), outcome);
}

TEST_F(FrontEnd, VerbosePrintsTheSameMessagesForEveryCommand) {
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
  EXPECT_EQ(ovxid({"-v", "name"}).err, expected);
  EXPECT_EQ(ovxid({"-v", "number"}).err, expected);
  EXPECT_EQ(ovxid({"-v", "list"}).err, expected);
  EXPECT_EQ(ovxid({"-v"}).err, expected);
  EXPECT_EQ(ovxid({"-v", "run", "true"}).err, expected);
  EXPECT_EQ(ovxid({"-v", "shell", "-c", "true"}).err, expected);
}

TEST_F(FrontEnd, SearchesOnceForTheNumberOfAnUnknownBoard) {
  const std::string messages = ovxid({"-v", "number"}).err;
  const std::string search = "debug: Attempting to find alias by DT\n";
  EXPECT_NE(messages.find(search), std::string::npos) << messages;
  EXPECT_EQ(messages.find(search), messages.rfind(search)) << messages;
}

TEST_F(FrontEnd, ShowsControlCharactersOfADiagnosticAsQuestionMarks) {
  EXPECT_EQ(ovxid({"run", "a\tb\x1b[0m\x7f\r"}),
            (Outcome{127, "", "ovxid: a?b?[0m??: No such file or directory\n"}));
}

// Words that a terminal would obey, or that would hide what stands there.
struct OddCase {
  const char* name;
  const char* word;
  const char* shown;
};

void PrintTo(const OddCase& odd, std::ostream* out) { *out << odd.name; }

class Diagnostic : public FrontEnd, public testing::WithParamInterface<OddCase> {
 protected:
  // What a terminal is told of a command line with this word.
  std::string complaint(const Arguments& arguments) {
    const Terminal terminal;
    messagesTo(terminal.path());
    ovxid(arguments);
    return terminal.shown();
  }

  std::string mWord = GetParam().word;
  std::string mShown = GetParam().shown;
};

TEST_P(Diagnostic, ShowsACommand) {
  EXPECT_EQ(complaint({mWord}), "ovxid: " + mShown + ": no such command (see 'ovxid --help')\r\n");
}

TEST_P(Diagnostic, ShowsAnOption) {
  EXPECT_EQ(complaint({"--" + mWord}),
            "ovxid: --" + mShown + ": no such option (see 'ovxid --help')\r\n");
}

TEST_P(Diagnostic, ShowsTheValueOfAnOptionThatTakesNone) {
  EXPECT_EQ(complaint({"--verbose=" + mWord}),
            "ovxid: --verbose=" + mShown + ": takes no value (see 'ovxid --help')\r\n");
}

TEST_P(Diagnostic, ShowsTheValueOfAnOption) {
  EXPECT_EQ(complaint({"list", "--format", mWord}),
            "ovxid: " + mShown + ": no such format (see 'ovxid help list')\r\n");
}

TEST_P(Diagnostic, ShowsAnArgumentTooMany) {
  EXPECT_EQ(complaint({"list", mWord}),
            "ovxid: " + mShown + ": too many arguments for 'list' (see 'ovxid help list')\r\n");
}

TEST_P(Diagnostic, ShowsAParameter) {
  EXPECT_EQ(complaint({"get", mWord}),
            "ovxid: " + mShown + ": the board has no such parameter\r\n");
}

TEST_P(Diagnostic, ShowsAParameterOfTheBoard) {
  mBoard.property("rather-long-name-" + mWord, "");
  EXPECT_EQ(complaint({"get", "OVX_RATHER-LONG-NAME-x"}),
            "ovxid: OVX_RATHER-LONG-NAME-x: the board has no such parameter, did you mean "
            "'OVX_RATHER-LONG-NAME-" +
                mShown + "'?\r\n");
}

TEST_P(Diagnostic, ShowsAFileThatCannotBeRead) {
  EXPECT_EQ(complaint({"check", "/" + mWord}),
            "ovxid: /" + mShown + ": No such file or directory\r\n");
}

TEST_P(Diagnostic, ShowsAFileThatCannotBeWritten) {
  EXPECT_EQ(complaint({"list", "--output", "/" + mWord + "/x"}),
            "ovxid: /" + mShown + "/x: No such file or directory\r\n");
}

TEST_P(Diagnostic, ShowsARecordingThatCannotBeRead) {
  EXPECT_EQ(complaint({"explain", "--board", "/" + mWord + "/x"}),
            "ovxid: /" + mShown + "/x: No such file or directory\r\n");
}

TEST_P(Diagnostic, ShowsAProgram) {
  EXPECT_EQ(complaint({"run", mWord}), "ovxid: " + mShown + ": No such file or directory\r\n");
}

TEST_P(Diagnostic, ShowsAShell) {
  shellIs(GetParam().word);
  EXPECT_EQ(complaint({"shell"}), "ovxid: " + mShown + ": No such file or directory\r\n");
}

INSTANTIATE_TEST_SUITE_P(
    Of, Diagnostic,
    testing::Values(OddCase{"AColour", "\x1b[31MX", "?[31MX"},
                    OddCase{"ALineOfItsOwn", "X\r\nOVX", "X??OVX"},
                    OddCase{"ABell", "X\a\x7f", "X??"},
                    OddCase{"AControlCharacterOfEightBits", "\x9b[1M", "?[1M"},
                    OddCase{"AControlCharacterInUtf8", "\xc2\x9b[1M", "?[1M"},
                    OddCase{"APartOfACharacter", "X\xe2\x82", "X??"},
                    OddCase{"AnotherDirection", "X\xe2\x80\xaeY\xe2\x80\xac", "X?Y?"},
                    OddCase{"AnIsolatedDirection", "X\xe2\x81\xa6Y\xe2\x81\xa9", "X?Y?"},
                    OddCase{"AHiddenCharacter", "X\xe2\x80\x8bY", "X?Y"},
                    OddCase{"AnOrdinaryCharacter", "X\xc3\xa9", "X\xc3\xa9"}),
    [](const auto& test) { return test.param.name; });

TEST_F(FrontEnd, ShowsAnOptionOfOneByteThatIsNoCharacterAsAQuestionMark) {
  EXPECT_EQ(ovxid({"-\x9b"}).err, "ovxid: -?: no such option (see 'ovxid --help')\n");
}

TEST_F(FrontEnd, VerboseSendsNoControlCharactersToATerminal) {
  mBoard.cpuinfo("Hardware\t: \x1b[31mFi\xc3\xa9ld\xff\xc2\x9b\xe2\x80\xae\n");
  const Terminal terminal;
  messagesTo(terminal.path());
  EXPECT_EQ(ovxid({"-v", "name"}).out, "Unknown\n");
  EXPECT_THAT(terminal.shown(),
              HasSubstr("debug: Cpuinfo line: Hardware?: ?[31mFi\xc3\xa9ld???\r\n"));
}

TEST_F(FrontEnd, VerboseSendsEveryByteToAFile) {
  mBoard.cpuinfo("Hardware\t: \x1b[31m\xff\n");
  EXPECT_THAT(ovxid({"-v", "name"}).err, HasSubstr("Cpuinfo line: Hardware\t: \x1b[31m\xff\n"));
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

}  // namespace
