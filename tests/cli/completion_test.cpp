#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include "cli/front_end.h"
#include "cli/help_text.h"

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class Completion : public FrontEnd {
 protected:
  // What may stand in place of the last word.
  Outcome complete(Arguments words) {
    words.insert(words.begin(), {"complete", "--"});
    return ovxid(words);
  }

  Outcome offered(const std::string& candidates) { return {0, "words \n" + candidates, ""}; }
};

// The entries of a list in a help text, as completion has them.
std::string entriesOf(const std::string& help, const std::string& list) {
  std::string entries;
  const HelpLists lists = listsOf(help);
  for (const HelpEntry& entry : lists.at(list)) {
    entries.append(entry.word).append("\t").append(entry.summary).append("\n");
    if (!entry.shortWord.empty()) {
      entries.append(entry.shortWord).append("\t").append(entry.summary).append("\n");
    }
  }
  return entries;
}

TEST_F(Completion, OffersTheCommandsOfTheHelp) {
  const std::string commands = entriesOf(ovxid({"--help"}).out, "Commands");
  EXPECT_THAT(commands, StartsWith("list\tPrint the board parameters\n"));
  EXPECT_EQ(complete({""}), offered(commands));
  EXPECT_EQ(complete({"nu"}), offered(commands));
  EXPECT_EQ(complete({"-v", "--verb", ""}), offered(commands));
  EXPECT_EQ(complete({"--", ""}), offered(commands));
  EXPECT_EQ(complete({"--", "-v"}), offered(commands));
  EXPECT_EQ(complete({"help", ""}), offered(commands));
  EXPECT_EQ(complete({"help", "-v", ""}), offered(commands));
}

TEST_F(Completion, IsNoCommandThatUsersSee) {
  EXPECT_THAT(ovxid({"--help"}).out, Not(HasSubstr("complete")));
  EXPECT_THAT(complete({""}).out, Not(HasSubstr("complete")));
  EXPECT_THAT(ovxid({"complet"}).err, Not(HasSubstr("did you mean")));
}

TEST_F(Completion, HasAHelpTextOfItsOwn) {
  EXPECT_THAT(ovxid({"help", "complete"}).out,
              HasSubstr("Usage: ovxid complete [OPTIONS] [--] WORD [WORD...]\n"));
}

TEST_F(Completion, NeedsAWord) {
  EXPECT_EQ(ovxid({"complete"}),
            (Outcome{2, "", "ovxid: complete: WORD is missing (see 'ovxid help complete')\n"}));
}

TEST_F(Completion, OffersTheGeneralOptionsOfTheHelpBeforeTheCommand) {
  const std::string options = entriesOf(ovxid({"--help"}).out, "Options");
  EXPECT_THAT(options, HasSubstr("--version\tPrint the version and exit\n"
                                 "-V\tPrint the version and exit\n"));
  EXPECT_EQ(complete({"-"}), offered(options));
  EXPECT_EQ(complete({"--"}), offered(options));
  EXPECT_EQ(complete({"-v", "--ver"}), offered(options));
}

TEST_F(Completion, OffersTheOptionsOfTheHelpOfACommandBehindIt) {
  const std::string ofGet = entriesOf(ovxid({"help", "get"}).out, "Options");
  EXPECT_THAT(ofGet, HasSubstr("--help\tPrint a help text and exit\n"
                               "-h\tPrint a help text and exit\n"));
  EXPECT_EQ(complete({"get", "-"}), offered(ofGet));
  EXPECT_EQ(complete({"get", "OVX_ID", "--"}), offered(ofGet));
  EXPECT_EQ(complete({"get", "-v="}), offered(ofGet));
  EXPECT_EQ(complete({"run", "-v", "-"}),
            offered(entriesOf(ovxid({"help", "run"}).out, "Options")));
  const std::string ofList = entriesOf(ovxid({"help", "list"}).out, "Options");
  EXPECT_EQ(complete({"list", "--output", "--", "-"}), offered(ofList));
  EXPECT_EQ(complete({"list", "--format", "json", "-"}), offered(ofList));
}

TEST_F(Completion, OffersTheWarningsOfTheHelp) {
  const std::string names = entriesOf(ovxid({"help", "check"}).out, "Warnings");
  EXPECT_THAT(names, HasSubstr("\nblanks\ta value has blanks"));
  EXPECT_EQ(complete({"check", "a", "--ignore", ""}), offered(names));
}

TEST_F(Completion, OffersTheFormatsOfTheHelp) {
  const std::string formats = entriesOf(ovxid({"help", "list"}).out, "Formats");
  EXPECT_THAT(formats, HasSubstr("\njson\tthe identity, "));
  EXPECT_EQ(complete({"list", "--format", ""}), offered(formats));
  EXPECT_EQ(complete({"list", "--format", "-"}), offered(formats));
  EXPECT_EQ(complete({"list", "--fo", "js"}), offered(formats));
  EXPECT_EQ(complete({"list", "--output=x", "--output", "--", "--format", ""}), offered(formats));
  EXPECT_EQ(complete({"list", "--format="}), (Outcome{0, "words --format=\n" + formats, ""}));
  EXPECT_EQ(complete({"list", "--fo=js=on"}), (Outcome{0, "words --fo=\n" + formats, ""}));
}

TEST_F(Completion, OffersFilesForTheOutput) {
  EXPECT_EQ(complete({"list", "--output", ""}), (Outcome{0, "files \n", ""}));
  EXPECT_EQ(complete({"list", "--output=/tmp/x"}), (Outcome{0, "files --output=\n", ""}));
}

TEST_F(Completion, OffersTheParametersOfTheBoardOnceEach) {
  mBoard.catalogue("Field Node:7\n").cpuinfo("Hardware\t: Field Node\n").property("id", "12");
  EXPECT_EQ(complete({"get", ""}), offered("OVX_ID\nOVX_DESC\n"));
  EXPECT_EQ(complete({"get", "--", "-"}), complete({"get", ""}));
}

TEST_F(Completion, OffersNoParameterWhoseNameWouldDisturbTheTerminal) {
  mBoard.property("a b", "").property("$(a)", "").property("a\nb", "").property("a\tb", "");
  mBoard.property("\33[2J", "").property("\xff", "");
  EXPECT_THAT(complete({"get", ""}).out,
              testing::AnyOf("words \nOVX_A B\nOVX_$(A)\n", "words \nOVX_$(A)\nOVX_A B\n"));
}

TEST_F(Completion, OffersNothingWhenTheSearchForTheBoardFails) {
  mBoard.cpuinfo("Hardware\t:\n");
  EXPECT_EQ(complete({"get", ""}),
            (Outcome{1, "", "ovxid: /proc/cpuinfo: the Hardware line ends at its colon\n"}));
}

TEST_F(Completion, LooksAtTheBoardForParametersOnly) {
  mBoard.cpuinfo("Hardware\t:\n");
  EXPECT_EQ(complete({"get", "-"}).status, 0);
  EXPECT_EQ(complete({"list", "--output", ""}).status, 0);
  EXPECT_EQ(complete({"run", ""}).status, 0);
}

TEST_F(Completion, OffersNothingWhenTheNameOfTheInterfaceIsTooLong) {
  mBoard.property("wan", "sixteen-letters-");
  EXPECT_EQ(complete({"get", ""}),
            (Outcome{128 + SIGABRT, "",
                     "ovxid: OVX_WAN: the name of the interface has more than 15 bytes\n"}));
}

TEST_F(Completion, TellsWhereTheCommandLineOfAProgramBegins) {
  EXPECT_EQ(complete({"run", ""}), (Outcome{0, "program 1\n", ""}));
  EXPECT_EQ(complete({"run", "--", "-"}), (Outcome{0, "program 2\n", ""}));
  EXPECT_EQ(complete({"run", "ls", "-"}), (Outcome{0, "program 1\n", ""}));
  EXPECT_EQ(complete({"-v", "run", "-v", "--", "ls", "--", "a", ""}),
            (Outcome{0, "program 4\n", ""}));
}

TEST_F(Completion, OffersFilesForAllWordsOfTheShell) {
  const Outcome files = {0, "files \n", ""};
  EXPECT_EQ(complete({"shell", ""}), files);
  EXPECT_EQ(complete({"shell", "script", ""}), files);
  EXPECT_EQ(complete({"shell", "--he"}), files);
  EXPECT_EQ(complete({"shell", "--", "-c", "-"}), files);
}

TEST_F(Completion, OffersFilesForARecording) {
  const Outcome files = {0, "files \n", ""};
  EXPECT_EQ(complete({"replay", ""}), files);
  EXPECT_EQ(complete({"replay", "--", ""}), files);
  EXPECT_EQ(complete({"--board", ""}), files);
  EXPECT_EQ(complete({"explain", "--board", ""}), files);
  EXPECT_EQ(complete({"record", "--output", ""}), files);
  EXPECT_EQ(complete({"replay", "--catalogue", ""}), files);
  EXPECT_EQ(complete({"replay", "--catalogue=a", "--", ""}), files);
}

TEST_F(Completion, OffersTheOptionsOfAReplayBeforeTheRecording) {
  EXPECT_THAT(complete({"replay", "-"}).out, testing::HasSubstr("\n--catalogue\t"));
}

TEST_F(Completion, TellsWhereTheCommandLineOfAReplayedProgramBegins) {
  EXPECT_EQ(complete({"replay", "board", ""}), (Outcome{0, "program 2\n", ""}));
  EXPECT_EQ(complete({"replay", "board", "-"}), (Outcome{0, "program 2\n", ""}));
  EXPECT_EQ(complete({"replay", "--catalogue", "a", "board", ""}), (Outcome{0, "program 4\n", ""}));
  EXPECT_EQ(complete({"replay", "board", "--", ""}), (Outcome{0, "program 3\n", ""}));
  EXPECT_EQ(complete({"replay", "board", "ls", "--", "-"}), (Outcome{0, "program 2\n", ""}));
  EXPECT_EQ(complete({"-v", "replay", "--", "board", "--", "ls", "a", ""}),
            (Outcome{0, "program 5\n", ""}));
}

struct EndCase {
  const char* name;
  Arguments words;
};

void PrintTo(const EndCase& end, std::ostream* out) { *out << testing::PrintToString(end.words); }

class CompletionEnd : public Completion, public testing::WithParamInterface<EndCase> {};

TEST_P(CompletionEnd, OffersNothing) {
  EXPECT_EQ(complete(GetParam().words), (Outcome{0, "", ""}));
}

INSTANTIATE_TEST_SUITE_P(
    Behind, CompletionEnd,
    testing::Values(EndCase{"ACommandWithoutOperands", {"list", ""}},
                    EndCase{"TheLastOperand", {"get", "OVX_ID", ""}},
                    EndCase{"TheLastOperandAndTheMark", {"get", "--", "OVX_ID", "-"}},
                    EndCase{"TheLastOperandNamedLikeAnOption", {"get", "--", "-v", ""}},
                    EndCase{"TheMarkForAnOperand", {"get", "--", "--", ""}},
                    EndCase{"AnOperandTooMany", {"list", "x", ""}},
                    EndCase{"ARequestForHelp", {"--help", ""}},
                    EndCase{"AnOptionBehindARequestForHelp", {"--help", "-v", ""}},
                    EndCase{"AShortRequestForHelp", {"get", "-vh", "-"}},
                    EndCase{"ARequestForTheVersion", {"-V", ""}},
                    EndCase{"WordsToBeCompleted", {"complete", ""}}),
    [](const auto& test) { return test.param.name; });

struct MistakeCase {
  const char* name;
  Arguments words;
  const char* complaint;
};

void PrintTo(const MistakeCase& mistake, std::ostream* out) {
  *out << testing::PrintToString(mistake.words);
}

class CompletionMistake : public Completion, public testing::WithParamInterface<MistakeCase> {};

TEST_P(CompletionMistake, IsRefused) {
  EXPECT_EQ(complete(GetParam().words),
            (Outcome{2, "", std::string("ovxid: ") + GetParam().complaint + "\n"}));
}

INSTANTIATE_TEST_SUITE_P(
    Of, CompletionMistake,
    testing::Values(
        MistakeCase{
            "AnUnknownCommand", {"bogus", ""}, "bogus: no such command (see 'ovxid --help')"},
        MistakeCase{"ADashForACommand", {"-", ""}, "-: no such command (see 'ovxid --help')"},
        MistakeCase{
            "AnUnknownOption", {"--bogus", ""}, "--bogus: no such option (see 'ovxid --help')"},
        MistakeCase{"AnAmbiguousOption",
                    {"--ver", ""},
                    "--ver: may be --verbose or --version (see 'ovxid --help')"},
        MistakeCase{"AnUnknownOptionBeforeItsValue",
                    {"list", "--x=y"},
                    "--x: no such option (see 'ovxid help list')"},
        MistakeCase{"AnOptionWithoutAValue",
                    {"list", "--verbose="},
                    "--verbose=: takes no value (see 'ovxid help list')"},
        MistakeCase{
            "AnUnknownLetter", {"list", "-vx", ""}, "-x: no such option (see 'ovxid help list')"}),
    [](const auto& test) { return test.param.name; });

}  // namespace
