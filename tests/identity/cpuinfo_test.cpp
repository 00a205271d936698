#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "identity/determination_messages.h"
#include "simulation/board.h"
#include "simulation/descriptors.h"
#include "simulation/privileges.h"

namespace {

TEST(Cpuinfo, LineThatIsTheWordAloneCounts) {
  Board board;
  board.catalogue("Field Node:3:ardware\n").cpuinfo("Hardware\n");
  EXPECT_EQ(OvxIdentifier(nullptr).getHardwareNumber(), 3);
}

TEST(Cpuinfo, ThatIsMissingIsAnErrorAndTheBoardUnknown) {
  Board board;
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins + cpuinfoMissing + failed);
  EXPECT_EQ(report(board, identifier), reportOfUnknown());
}

TEST(Cpuinfo, ThatMayNotBeReadIsLikeAMissingOne) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .cpuinfo("Hardware\t: Field Node\n")
      .permissions(cpuinfoPath, 0);
  OvxIdentifier identifier(board.logger());
  const DroppedPrivileges dropped;
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins + cpuinfoMissing + failed);
}

TEST(Cpuinfo, ThatFindsNoFreeDescriptorIsLikeAMissingOne) {
  Board board;
  board.catalogue("Field Node:3\n").cpuinfo("Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  const FreeDescriptors none(0);
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
  EXPECT_EQ(report(board, identifier), reportOfUnknown());
}

TEST(Cpuinfo, IsReadUpToTheFirstHardwareLine) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .cpuinfo("processor\t: 0\nHardware\t: Bench Unit\nHardware\t: Field Node\nSerial\t: 1\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0") + cpuinfoBegins + debug("Cpuinfo line: processor\t: 0") +
                debug("Cpuinfo line: Hardware\t: Bench Unit") + debug("Found Hardware field...") +
                debug("Found possisble alias: 'Bench Unit'") +
                debug("Searching known real names..."));
  EXPECT_EQ(report(board, identifier), reportOf("Bench Unit", 9, "Field Node "));
}

TEST(Cpuinfo, IsNotReadBeyondAHardwareLineThatMatchesNothing) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .cpuinfo("Hardware\t: Other\nHardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  const Messages messages = determination(board, identifier, false);
  EXPECT_EQ(messages.back(), failed);
  EXPECT_EQ(
      std::count(messages.begin(), messages.end(), debug("Cpuinfo line: Hardware\t: Field Node")),
      0);
}

TEST(Cpuinfo, OfALastLineWithoutANewlineCounts) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .cpuinfo("Hardware\t: Field Node");
  OvxIdentifier identifier(board.logger());
  EXPECT_TRUE(identifier.determineIdentity());
}

TEST(Cpuinfo, NamesComeBeforeTheAliasesOfEarlierBoards) {
  Board board;
  board.catalogue("Bench Unit:9:Field Node\nField Node:3:fn1:fn2\n");
  board.cpuinfo("Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_TRUE(identifier.determineIdentity());
  EXPECT_EQ(report(board, identifier), reportOf("Field Node", 3, "fn1 fn2 "));
}

TEST(Cpuinfo, ValueThatIsANameAdoptsThatBoardThoughALaterOneHasItAsAnAlias) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .cpuinfo("Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0") + cpuinfoBegins +
                debug("Cpuinfo line: Hardware\t: Field Node") + debug("Found Hardware field...") +
                debug("Found possisble alias: 'Field Node'") +
                debug("Searching known real names..."));
  EXPECT_EQ(report(board, identifier), reportOf("Field Node", 3, "fn1 fn2 "));
}

TEST(Cpuinfo, ValueThatIsAnAliasAdoptsItsIdentity) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n").cpuinfo("Hardware\t: fn2\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0") + cpuinfoBegins + debug("Cpuinfo line: Hardware\t: fn2") +
                debug("Found Hardware field...") + debug("Found possisble alias: 'fn2'") +
                debug("Searching known real names...") + debug("Searching known aliases..."));
  EXPECT_EQ(report(board, identifier), reportOf("Field Node", 3, "fn1 fn2 "));
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
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .cpuinfo("Hardware\t: field node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins +
                debug("Cpuinfo line: Hardware\t: field node") + debug("Found Hardware field...") +
                debug("Found possisble alias: 'field node'") +
                debug("Searching known real names...") + debug("Searching known aliases...") +
                noMatch + failed);
  EXPECT_EQ(report(board, identifier), reportOfUnknown());
}

TEST(Cpuinfo, ValueIsNotTrimmedAndMatchesNothing) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n").cpuinfo("Hardware:  fn1\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins + debug("Cpuinfo line: Hardware:  fn1") +
                debug("Found Hardware field...") + debug("Found possisble alias: ' fn1'") +
                debug("Searching known real names...") + debug("Searching known aliases...") +
                noMatch + failed);
}

TEST(Cpuinfo, ValueKeepsItsTrailingBlanks) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").cpuinfo("Hardware\t: fn1 \t \n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false).at(9),
            debug("Found possisble alias: 'fn1 \t '"));
}

TEST(Cpuinfo, ValueMatchesNoNameThatIsItsBeginning) {
  Board board;
  board.catalogue("Field Node:3\n").cpuinfo("Hardware\t: Field Node 2\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(Cpuinfo, ValueMatchesNoNameOfWhichItIsTheBeginning) {
  Board board;
  board.catalogue("Field Node 2:3\n").cpuinfo("Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(Cpuinfo, ValueMatchesNoAliasThatIsItsBeginning) {
  Board board;
  board.catalogue("Field Node:3:fn\n").cpuinfo("Hardware\t: fn1\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(Cpuinfo, ValueIsComparedWithNamesBeyondItsNulByte) {
  Board board;
  board.catalogue("Field Node:3\n").cpuinfo(bytes("Hardware\t: Field Node\0x\n"));
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(Cpuinfo, ValueIsComparedWithAliasesBeyondItsNulByte) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").cpuinfo(bytes("Hardware\t: fn1\0x\n"));
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(Cpuinfo, ValueMayHoldANulByteAsTheNameDoes) {
  Board board;
  board.catalogue(bytes("Field\0Node:3\n")).cpuinfo(bytes("Hardware\t: Field\0Node\n"));
  OvxIdentifier identifier(board.logger());
  EXPECT_TRUE(identifier.determineIdentity());
}

TEST(Cpuinfo, ValueKeepsItsCarriageReturn) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n").cpuinfo("Hardware\t: fn1\r\n");
  OvxIdentifier identifier(board.logger());
  const Messages messages = determination(board, identifier, false);
  EXPECT_EQ(messages.at(9), debug("Found possisble alias: 'fn1\r'"));
}

TEST(Cpuinfo, ValueBeginsAfterTheColonAndOneMoreCharacterWhateverItIs) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .cpuinfo("Hardware:xField Node\n");
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
  board.catalogue("Field Node:3\n").cpuinfo("Hardwares\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_TRUE(identifier.determineIdentity());
}

TEST(Cpuinfo, LineWithASecondWordBeforeTheColonCounts) {
  Board board;
  board.catalogue("Field Node:3\n").cpuinfo("Hardware name\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_TRUE(identifier.determineIdentity());
}

TEST(Cpuinfo, LineThatBeginsWithABlankIsNotTheHardwareLine) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .cpuinfo(" Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins +
                debug("Cpuinfo line:  Hardware\t: Field Node") + failed);
}

TEST(Cpuinfo, LineOfOtherCaseIsNotTheHardwareLine) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .cpuinfo("hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
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
