#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "simulation/board.h"
#include "simulation/descriptors.h"

using log4cpp::Priority;

namespace {

// Its second board has the name of the first one as an alias.
constexpr const char* twoBoards = "Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n";

Messages unameMessages(const std::string& release) {
  return missingNodeMessages() + debug("Attempting to find alias by uname") +
         debug("No problems with uname") + debug("uts.release= " + release);
}

const Message cpuinfoBegins = debug(
    "Finding the hardware idenitity with uname failed, attempting to find hardware identity with "
    "cpuinfo");
const Message cpuinfoMissing =
    error("Could not open the /proc/cpuinfo file, is the proc filesystem mounted");
const Message noMatch = error("The possible alias is not a real name or alias of any identity");
const Message failed =
    error("Could not find hardware identity with uname or through /proc/cpuinfo");

Messages determination(Board& board, OvxIdentifier& identifier, bool expected) {
  return board.messagesOf([&] { EXPECT_EQ(identifier.determineIdentity(), expected); });
}

Messages report(Board& board, OvxIdentifier& identifier) {
  return board.messagesOf([&] { identifier.logFullId(Priority::INFO); });
}

const Messages fieldNodeReport = {info("Full identity: "), info("Real name: Field Node"),
                                  info("Hardware number: 3"), info("Aliases: fn1 fn2 ")};
const Messages benchUnitReport = {info("Full identity: "), info("Real name: Bench Unit"),
                                  info("Hardware number: 9"), info("Aliases: Field Node ")};
const Messages unknownReport = {info("Identity is unknown: "), info("Real name: Unknown"),
                                info("Hardware number: -1")};

TEST(ReleaseSuffix, ThatIsAnAliasAdoptsItsIdentity) {
  Board board;
  board.catalogue(twoBoards).kernelRelease("5.10.0-fn2");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0-fn2") + debug("therefore possible alias of machine = 'fn2'") +
                debug("Searching known aliases of Field Node...") +
                debug("Alias: fn2 is an alias of identity: Field Node"));
  EXPECT_EQ(report(board, identifier), fieldNodeReport);
}

TEST(ReleaseSuffix, OfOtherCaseMatchesNothing) {
  Board board;
  board.catalogue(twoBoards).kernelRelease("5.10.0-FN2").cpuinfo("Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0-FN2") + debug("therefore possible alias of machine = 'FN2'") +
                debug("Searching known aliases of Field Node...") +
                debug("Searching known aliases of Bench Unit...") + cpuinfoBegins +
                debug("Cpuinfo line: Hardware\t: Field Node") + debug("Found Hardware field...") +
                debug("Found possisble alias: 'Field Node'") +
                debug("Searching known real names..."));
}

TEST(ReleaseSuffix, ThatIsANameIsComparedWithAliasesOnly) {
  Board board;
  board.catalogue(twoBoards).kernelRelease("5.10.0-Field Node");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0-Field Node") +
                debug("therefore possible alias of machine = 'Field Node'") +
                debug("Searching known aliases of Field Node...") +
                debug("Searching known aliases of Bench Unit...") +
                debug("Alias: Field Node is an alias of identity: Bench Unit"));
  EXPECT_EQ(report(board, identifier), benchUnitReport);
}

TEST(ReleaseSuffix, IsWhatFollowsTheLastHyphen) {
  Board board;
  board.catalogue(twoBoards).kernelRelease("5.10.0-rc1-fn1");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true).at(6),
            debug("therefore possible alias of machine = 'fn1'"));
  EXPECT_EQ(identifier.getHardwareName(), "Field Node");
}

TEST(ReleaseSuffix, IsTheWholeReleaseAfterALeadingHyphen) {
  Board board;
  board.catalogue(twoBoards).kernelRelease("-fn1");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(identifier.getHardwareName(), "Field Node");
}

TEST(ReleaseSuffix, MayBeEmptyAndMatchesNothingThen) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0-") + debug("therefore possible alias of machine = ''") +
                debug("Searching known aliases of Field Node...") + cpuinfoBegins + cpuinfoMissing +
                failed);
}

TEST(ReleaseSuffix, MatchesNoPartOfAnAlias) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-fn");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(ReleaseSuffix, MatchesNoBeginningByAnAlias) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-fn10");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(ReleaseSuffix, OfSeveralBoardsAdoptsTheFirstOfTheCatalogue) {
  Board board;
  board.catalogue("Field Node:3:fn1:both\nBench Unit:9:both\n").kernelRelease("5.10.0-both");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(identifier.getHardwareNumber(), 3);
}

TEST(ReleaseSuffix, OfABuiltInBoardNeedsNoCatalogueFile) {
  Board board;
  board.kernelRelease("5.10.0-tqb");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0-tqb") + debug("therefore possible alias of machine = 'tqb'") +
                debug("Searching known aliases of Tessaryn TQBLITE...") +
                debug("Searching known aliases of Tessaryn TQB...") +
                debug("Alias: tqb is an alias of identity: Tessaryn TQB"));
  EXPECT_EQ(identifier.getHardwareNumber(), 2);
}

TEST(ReleaseSuffix, WinsOverThePc) {
  Board board;
  board.catalogue(twoBoards).kernelRelease("5.10.0-fn2").machine("x86_64");
  OvxIdentifier identifier(board.logger());
  EXPECT_TRUE(identifier.determineIdentity());
  EXPECT_EQ(report(board, identifier), fieldNodeReport);
}

TEST(Pc, IsTheMachineX86_64WhenTheReleaseHasNoHyphen) {
  Board board;
  board.catalogue(twoBoards).kernelRelease("5.10.0").machine("x86_64");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true), unameMessages("5.10.0"));
  EXPECT_EQ(report(board, identifier),
            (Messages{info("Full identity: "), info("Real name: x86_64 PC"),
                      info("Hardware number: 64"), info("Aliases: ")}));
}

TEST(Pc, IsTheMachineX86_64WhenTheReleaseIsEmpty) {
  Board board;
  board.kernelRelease("").machine("x86_64");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true), unameMessages(""));
  EXPECT_EQ(identifier.getHardwareNumber(), 64);
}

TEST(Pc, IsTheMachineX86_64WhenNoAliasMatches) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-amd64").machine("x86_64");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0-amd64") + debug("therefore possible alias of machine = 'amd64'") +
                debug("Searching known aliases of Field Node..."));
  EXPECT_EQ(identifier.getHardwareName(), "x86_64 PC");
}

TEST(Pc, ComesBeforeCpuinfo) {
  Board board;
  board.catalogue(twoBoards).machine("x86_64").cpuinfo("Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(identifier.getHardwareName(), "x86_64 PC");
}

TEST(Pc, NeedsNoCatalogue) {
  Board board;
  board.catalogue("").kernelRelease("5.10.0-fn2").machine("x86_64");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(identifier.getHardwareNumber(), 64);
}

class OtherMachine : public testing::TestWithParam<const char*> {};

TEST_P(OtherMachine, IsNoPc) {
  Board board;
  board.machine(GetParam());
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

INSTANTIATE_TEST_SUITE_P(Named, OtherMachine,
                         testing::Values("", "i686", "x86_6", "x86_64v2", "X86_64", " x86_64"));

TEST(Pc, KeepsTheAliasesOfAnEarlierDetermination) {
  Board board;
  board.catalogue(twoBoards).kernelRelease("5.10.0-fn1").machine("x86_64");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.kernelRelease("5.10.0");
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier),
            (Messages{info("Full identity: "), info("Real name: x86_64 PC"),
                      info("Hardware number: 64"), info("Aliases: fn1 fn2 ")}));
}

TEST(FailedUname, WarnsAndGoesOnWithCpuinfoEvenOnAPc) {
  Board board;
  board.catalogue(twoBoards).kernelRelease("5.10.0-fn1").machine("x86_64").unameFails();
  board.cpuinfo("Hardware\t: Bench Unit\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            missingNodeMessages() + debug("Attempting to find alias by uname") +
                warn("There was a problem with uname, continuing") + cpuinfoBegins +
                debug("Cpuinfo line: Hardware\t: Bench Unit") + debug("Found Hardware field...") +
                debug("Found possisble alias: 'Bench Unit'") +
                debug("Searching known real names..."));
  EXPECT_EQ(report(board, identifier), benchUnitReport);
}

TEST(Cpuinfo, ThatIsMissingIsAnErrorAndTheBoardUnknown) {
  Board board;
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins + cpuinfoMissing + failed);
  EXPECT_EQ(report(board, identifier), unknownReport);
}

TEST(Cpuinfo, ThatMayNotBeReadIsLikeAMissingOne) {
  Board board;
  board.catalogue(twoBoards).cpuinfo("Hardware\t: Field Node\n").permissions(cpuinfoPath, 0);
  OvxIdentifier identifier(board.logger());
  const DroppedPrivileges dropped;
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins + cpuinfoMissing + failed);
}

TEST(Cpuinfo, ThatIsADirectoryOpensAndHoldsNoLine) {
  Board board;
  board.directory(cpuinfoPath);
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins + failed);
}

TEST(Cpuinfo, WithoutAHardwareLineFailsWithNoFurtherMessage) {
  Board board;
  board.cpuinfo("processor\t: 0\n\nRevision\t: 0000\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins + debug("Cpuinfo line: processor\t: 0") +
                debug("Cpuinfo line: ") + debug("Cpuinfo line: Revision\t: 0000") + failed);
  EXPECT_EQ(report(board, identifier), unknownReport);
}

TEST(Cpuinfo, IsReadUpToTheFirstHardwareLine) {
  Board board;
  board.catalogue(twoBoards).cpuinfo(
      "processor\t: 0\nHardware\t: Bench Unit\nHardware\t: Field Node\nSerial\t: 1\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0") + cpuinfoBegins + debug("Cpuinfo line: processor\t: 0") +
                debug("Cpuinfo line: Hardware\t: Bench Unit") + debug("Found Hardware field...") +
                debug("Found possisble alias: 'Bench Unit'") +
                debug("Searching known real names..."));
  EXPECT_EQ(report(board, identifier), benchUnitReport);
}

TEST(Cpuinfo, IsNotReadBeyondAHardwareLineThatMatchesNothing) {
  Board board;
  board.catalogue(twoBoards).cpuinfo("Hardware\t: Other\nHardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  const Messages messages = determination(board, identifier, false);
  EXPECT_EQ(messages.back(), failed);
  EXPECT_EQ(
      std::count(messages.begin(), messages.end(), debug("Cpuinfo line: Hardware\t: Field Node")),
      0);
}

TEST(Cpuinfo, OfALastLineWithoutANewlineCounts) {
  Board board;
  board.catalogue(twoBoards).cpuinfo("Hardware\t: Field Node");
  OvxIdentifier identifier(board.logger());
  EXPECT_TRUE(identifier.determineIdentity());
}

TEST(Cpuinfo, NamesComeBeforeTheAliasesOfEarlierBoards) {
  Board board;
  board.catalogue("Bench Unit:9:Field Node\nField Node:3:fn1:fn2\n");
  board.cpuinfo("Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_TRUE(identifier.determineIdentity());
  EXPECT_EQ(report(board, identifier), fieldNodeReport);
}

TEST(Cpuinfo, ValueThatIsANameAdoptsThatBoardThoughALaterOneHasItAsAnAlias) {
  Board board;
  board.catalogue(twoBoards).cpuinfo("Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0") + cpuinfoBegins +
                debug("Cpuinfo line: Hardware\t: Field Node") + debug("Found Hardware field...") +
                debug("Found possisble alias: 'Field Node'") +
                debug("Searching known real names..."));
  EXPECT_EQ(report(board, identifier), fieldNodeReport);
}

TEST(Cpuinfo, ValueThatIsAnAliasAdoptsItsIdentity) {
  Board board;
  board.catalogue(twoBoards).cpuinfo("Hardware\t: fn2\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0") + cpuinfoBegins + debug("Cpuinfo line: Hardware\t: fn2") +
                debug("Found Hardware field...") + debug("Found possisble alias: 'fn2'") +
                debug("Searching known real names...") + debug("Searching known aliases..."));
  EXPECT_EQ(report(board, identifier), fieldNodeReport);
}

TEST(Cpuinfo, ValueOfSeveralNamesAdoptsTheFirstOfTheCatalogue) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nField Node:4\n").cpuinfo("Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(identifier.getHardwareNumber(), 3);
}

TEST(Cpuinfo, ValueOfSeveralAliasesAdoptsTheFirstOfTheCatalogue) {
  Board board;
  board.catalogue("Field Node:3:both\nBench Unit:9:both\n").cpuinfo("Hardware\t: both\n");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(identifier.getHardwareNumber(), 3);
}

TEST(Cpuinfo, ValueThatMatchesNothingIsTwoErrors) {
  Board board;
  board.catalogue(twoBoards).cpuinfo("Hardware\t: field node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins +
                debug("Cpuinfo line: Hardware\t: field node") + debug("Found Hardware field...") +
                debug("Found possisble alias: 'field node'") +
                debug("Searching known real names...") + debug("Searching known aliases...") +
                noMatch + failed);
  EXPECT_EQ(report(board, identifier), unknownReport);
}

TEST(Cpuinfo, ValueIsNotTrimmedAndMatchesNothing) {
  Board board;
  board.catalogue(twoBoards).cpuinfo("Hardware:  fn1\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins + debug("Cpuinfo line: Hardware:  fn1") +
                debug("Found Hardware field...") + debug("Found possisble alias: ' fn1'") +
                debug("Searching known real names...") + debug("Searching known aliases...") +
                noMatch + failed);
}

TEST(Cpuinfo, ValueKeepsItsCarriageReturn) {
  Board board;
  board.catalogue(twoBoards).cpuinfo("Hardware\t: fn1\r\n");
  OvxIdentifier identifier(board.logger());
  const Messages messages = determination(board, identifier, false);
  EXPECT_EQ(messages.at(9), debug("Found possisble alias: 'fn1\r'"));
}

TEST(Cpuinfo, ValueBeginsAfterTheColonAndOneMoreCharacterWhateverItIs) {
  Board board;
  board.catalogue(twoBoards).cpuinfo("Hardware:xField Node\n");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(identifier.getHardwareName(), "Field Node");
}

TEST(Cpuinfo, ValueBeginsAtTheFirstOfSeveralColons) {
  Board board;
  board.cpuinfo("Hardware\t: a: b\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false).at(9), debug("Found possisble alias: 'a: b'"));
}

TEST(Cpuinfo, ValueIsEmptyWhenOneCharacterFollowsTheColon) {
  Board board;
  board.cpuinfo("Hardware\t: \n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false).at(9), debug("Found possisble alias: ''"));
}

TEST(Cpuinfo, ValueOfALineWithoutAColonBeginsAtItsSecondCharacter) {
  Board board;
  board.catalogue("ardware Field Node:3\n").cpuinfo("Hardware Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true).at(9),
            debug("Found possisble alias: 'ardware Field Node'"));
  EXPECT_EQ(identifier.getHardwareNumber(), 3);
}

TEST(Cpuinfo, LineThatBeginsWithALongerWordCounts) {
  Board board;
  board.catalogue(twoBoards).cpuinfo("Hardware name\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_TRUE(identifier.determineIdentity());
}

TEST(Cpuinfo, LineThatBeginsWithABlankIsNotTheHardwareLine) {
  Board board;
  board.catalogue(twoBoards).cpuinfo(" Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins +
                debug("Cpuinfo line:  Hardware\t: Field Node") + failed);
}

TEST(Cpuinfo, LineOfOtherCaseIsNotTheHardwareLine) {
  Board board;
  board.catalogue(twoBoards).cpuinfo("hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(EmptyCatalogue, IsSearchedWithoutNamingAnyIdentity) {
  Board board;
  board.catalogue("").kernelRelease("5.10.0-fn1").cpuinfo("Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0-fn1") + debug("therefore possible alias of machine = 'fn1'") +
                cpuinfoBegins + debug("Cpuinfo line: Hardware\t: Field Node") +
                debug("Found Hardware field...") + debug("Found possisble alias: 'Field Node'") +
                debug("Searching known real names...") + debug("Searching known aliases...") +
                noMatch + failed);
  EXPECT_EQ(report(board, identifier), unknownReport);
}

TEST(FailedDetermination, KeepsTheAliasesOfAnEarlierSuccess) {
  Board board;
  board.catalogue(twoBoards).kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.kernelRelease("5.10.0");
  EXPECT_FALSE(identifier.determineIdentity());
  EXPECT_EQ(report(board, identifier), unknownReport);
  board.property("boardid", "7");
  EXPECT_TRUE(identifier.determineIdentity());
  EXPECT_EQ(report(board, identifier),
            (Messages{info("Full identity: "), info("Real name: Unknown"),
                      info("Hardware number: 7"), info("Aliases: fn1 fn2 ")}));
}

TEST(FailedDetermination, IsFollowedByTheAliasesOfTheNextSuccessAlone) {
  Board board;
  board.catalogue(twoBoards).kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.kernelRelease("5.10.0-Field Node");
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier), benchUnitReport);
}

class HardwareLineThatEndsAtItsColon : public testing::Test {
 protected:
  HardwareLineThatEndsAtItsColon() { mBoard.cpuinfo("processor\t: 0\nHardware\t:\n"); }

  Board mBoard;
};

TEST_F(HardwareLineThatEndsAtItsColon, ThrowsOutOfDetermineIdentity) {
  OvxIdentifier identifier(mBoard.logger());
  EXPECT_EQ(
      mBoard.messagesOf([&] { EXPECT_THROW(identifier.determineIdentity(), std::out_of_range); }),
      unameMessages("5.10.0") + cpuinfoBegins + debug("Cpuinfo line: processor\t: 0") +
          debug("Cpuinfo line: Hardware\t:") + debug("Found Hardware field..."));
}

TEST_F(HardwareLineThatEndsAtItsColon, ThrowsTheErrorOfSubstr) {
  OvxIdentifier identifier(mBoard.logger());
  try {
    identifier.determineIdentity();
    FAIL() << "nothing was thrown";
  } catch (const std::out_of_range& exception) {
    EXPECT_EQ(std::string(exception.what()).rfind("basic_string::substr", 0), 0U)
        << exception.what();
  }
}

TEST_F(HardwareLineThatEndsAtItsColon, ThrowsOutOfGetHardwareNameWithoutAReport) {
  OvxIdentifier identifier(mBoard.logger());
  EXPECT_THROW(identifier.getHardwareName(), std::out_of_range);
  EXPECT_EQ(mBoard.messages().back(), debug("Found Hardware field..."));
}

TEST_F(HardwareLineThatEndsAtItsColon, ThrowsOutOfGetHardwareNumberWithoutAReport) {
  OvxIdentifier identifier(mBoard.logger());
  EXPECT_THROW(identifier.getHardwareNumber(), std::out_of_range);
  EXPECT_EQ(mBoard.messages().back(), debug("Found Hardware field..."));
}

TEST_F(HardwareLineThatEndsAtItsColon, ThrowsOutOfLoadParamsWithoutAParameter) {
  mBoard.property("wifi", "yes");
  OvxIdentifier identifier(mBoard.logger());
  EXPECT_THROW(identifier.loadParams(), std::out_of_range);
  EXPECT_EQ(listing(identifier), "");
}

TEST_F(HardwareLineThatEndsAtItsColon, ThrowsWithoutALoggerToo) {
  OvxIdentifier identifier(nullptr);
  EXPECT_THROW(identifier.determineIdentity(), std::out_of_range);
}

TEST_F(HardwareLineThatEndsAtItsColon, LeavesTheNameThatDescriptionGave) {
  mBoard.property("description", "Field Node");
  OvxIdentifier identifier(mBoard.logger());
  EXPECT_THROW(identifier.determineIdentity(), std::out_of_range);
  EXPECT_EQ(report(mBoard, identifier),
            (Messages{info("Identity is unknown: "), info("Real name: Field Node"),
                      info("Hardware number: -1")}));
}

TEST_F(HardwareLineThatEndsAtItsColon, LeavesTheEarlierNameAndNumberUndetermined) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(mBoard.logger());
  identifier.determineIdentity();
  mBoard.remove(nodePath);
  EXPECT_THROW(identifier.determineIdentity(), std::out_of_range);
  EXPECT_EQ(report(mBoard, identifier),
            (Messages{info("Identity is unknown: "), info("Real name: Field Node"),
                      info("Hardware number: 7")}));
}

TEST_F(HardwareLineThatEndsAtItsColon, ThrowsAgainAtTheNextQuery) {
  OvxIdentifier identifier(mBoard.logger());
  EXPECT_THROW(identifier.getHardwareNumber(), std::out_of_range);
  EXPECT_THROW(identifier.getHardwareNumber(), std::out_of_range);
}

TEST_F(HardwareLineThatEndsAtItsColon, LeavesNoFileOpen) {
  OvxIdentifier identifier(mBoard.logger());
  const auto before = openDescriptors();
  EXPECT_THROW(identifier.determineIdentity(), std::out_of_range);
  EXPECT_EQ(openDescriptors(), before);
}

}  // namespace
