#include <gtest/gtest.h>

#include "identity/determination_messages.h"
#include "simulation/board.h"

namespace {

TEST(ReleaseSuffix, ThatIsAnAliasAdoptsItsIdentity) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n").kernelRelease("5.10.0-fn2");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0-fn2") + debug("therefore possible alias of machine = 'fn2'") +
                debug("Searching known aliases of Field Node...") +
                debug("Alias: fn2 is an alias of identity: Field Node"));
  EXPECT_EQ(report(board, identifier), reportOf("Field Node", 3, "fn1 fn2 "));
}

TEST(ReleaseSuffix, OfOtherCaseMatchesNothing) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .kernelRelease("5.10.0-FN2")
      .cpuinfo("Hardware\t: Field Node\n");
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
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .kernelRelease("5.10.0-Field Node");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0-Field Node") +
                debug("therefore possible alias of machine = 'Field Node'") +
                debug("Searching known aliases of Field Node...") +
                debug("Searching known aliases of Bench Unit...") +
                debug("Alias: Field Node is an alias of identity: Bench Unit"));
  EXPECT_EQ(report(board, identifier), reportOf("Bench Unit", 9, "Field Node "));
}

TEST(ReleaseSuffix, IsWhatFollowsTheLastHyphen) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .kernelRelease("5.10.0-rc1-fn1");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true).at(6),
            debug("therefore possible alias of machine = 'fn1'"));
  EXPECT_EQ(identifier.getHardwareName(), "Field Node");
}

TEST(ReleaseSuffix, IsTheWholeReleaseAfterALeadingHyphen) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n").kernelRelease("-fn1");
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

TEST(ReleaseSuffix, MatchesNoBeginningOfAnAlias) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-fn");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(ReleaseSuffix, MatchesNoAliasThatIsItsBeginning) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-fn10");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(ReleaseSuffix, MatchesNoEndOfAnAlias) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-n1");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(ReleaseSuffix, MatchesNoAliasOfTheSameLengthAndOtherBytes) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-fn2");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(ReleaseSuffix, MatchesNoAliasThatGoesOnBehindANulByte) {
  Board board;
  board.catalogue(bytes("Field Node:3:fn1\0x\n")).kernelRelease("5.10.0-fn1");
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
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .kernelRelease("5.10.0-fn2")
      .machine("x86_64");
  OvxIdentifier identifier(board.logger());
  EXPECT_TRUE(identifier.determineIdentity());
  EXPECT_EQ(report(board, identifier), reportOf("Field Node", 3, "fn1 fn2 "));
}

}  // namespace
