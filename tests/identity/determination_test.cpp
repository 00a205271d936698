#include <gtest/gtest.h>

#include "identity/determination_messages.h"
#include "simulation/board.h"

namespace {

TEST(RepeatedDetermination, WarnsFirstAndGivesAFreshResult) {
  Board board;
  board.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.property("boardid", "8").property("description", "Bench Unit");
  EXPECT_EQ(determination(board, identifier, true),
            (Messages{warn("Calling lib/program is trying to determine the identity...but it was "
                           "already successfully determined"),
                      debug("Attempting to find alias by DT")}));
  EXPECT_EQ(identifier.getHardwareNumber(), 8);
  EXPECT_EQ(identifier.getHardwareName(), "Bench Unit");
}

TEST(RepeatedDetermination, AfterAFailureDoesNotWarn) {
  Board board;
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.property("boardid", "7").property("description", "Field Node");
  EXPECT_EQ(board.messagesOf([&] { identifier.determineIdentity(); }),
            (Messages{debug("Attempting to find alias by DT")}));
}

TEST(RepeatedDetermination, ByAnIdentityWithoutAliasesClearsThoseOfTheOneBefore) {
  Board board;
  board.catalogue("Field Node:3:fn1\nBench Unit:9\n").kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.kernelRelease("5.10.0").cpuinfo("Hardware\t: Bench Unit\n");
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier), reportOf("Bench Unit", 9, ""));
}

TEST(RepeatedDetermination, KeepsTheNumberWhenBoardidHasBecomeWhiteSpace) {
  Board board;
  board.property("boardid", "7");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.property("boardid", " \n");
  EXPECT_TRUE(identifier.determineIdentity());
  EXPECT_EQ(identifier.getHardwareNumber(), 7);
}

TEST(RepeatedDetermination, KeepsTheNameWhenDescriptionIsGone) {
  Board board;
  board.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.remove(std::string(nodePath) + "/description");
  EXPECT_TRUE(identifier.determineIdentity());
  EXPECT_EQ(identifier.getHardwareName(), "Field Node");
}

TEST(RepeatedDetermination, LosesTheIdentityWhenTheNodeIsGone) {
  Board board;
  board.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.remove(nodePath);
  EXPECT_FALSE(identifier.determineIdentity());
  EXPECT_EQ(identifier.getHardwareNumber(), -1);
  EXPECT_EQ(identifier.getHardwareName(), "Unknown");
}

TEST(RepeatedDetermination, KeepsTheAliasesWhenTheDeviceTreeNamesTheBoard) {
  Board board;
  board.catalogue("Bench Unit:9:bu:bu-2\n").kernelRelease("5.10.0-bu");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.property("boardid", "7").property("description", "Field Node");
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier), reportOf("Field Node", 7, "bu bu-2 "));
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
  EXPECT_EQ(report(board, identifier), reportOfUnknown());
}

TEST(FailedDetermination, KeepsTheAliasesOfAnEarlierSuccess) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n").kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.kernelRelease("5.10.0");
  EXPECT_FALSE(identifier.determineIdentity());
  EXPECT_EQ(report(board, identifier), reportOfUnknown());
  board.property("boardid", "7");
  EXPECT_TRUE(identifier.determineIdentity());
  EXPECT_EQ(report(board, identifier), reportOf("Unknown", 7, "fn1 fn2 "));
}

TEST(FailedDetermination, IsFollowedByTheAliasesOfTheNextSuccessAlone) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n").kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.kernelRelease("5.10.0-Field Node");
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier), reportOf("Bench Unit", 9, "Field Node "));
}

}  // namespace
