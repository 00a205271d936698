#include <gtest/gtest.h>

#include "simulation/board.h"

using log4cpp::Priority;

namespace {

Messages report(Board& board, OvxIdentifier& identifier, Priority::PriorityLevel level) {
  return board.messagesOf([&] { identifier.logFullId(level); });
}

TEST(Report, OfABoardWithAliasesListsThemEachFollowedByABlank) {
  Board board;
  board.catalogue("Example Board:5:exb:exb-2\n").kernelRelease("5.10.0-exb");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier, Priority::DEBUG),
            (Messages{debug("Full identity: "), debug("Real name: Example Board"),
                      debug("Hardware number: 5"), debug("Aliases: exb exb-2 ")}));
}

TEST(Report, OfABoardWithOneAliasEndsInOneBlank) {
  Board board;
  board.catalogue("Example Board:5:exb\n").kernelRelease("5.10.0-exb");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier, Priority::DEBUG).back(), debug("Aliases: exb "));
}

TEST(Report, OfABoardWithoutAliasesEndsInAnEmptyAliasesLine) {
  Board board;
  board.catalogue("Example Board:5\n").cpuinfo("Hardware\t: Example Board\n");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier, Priority::DEBUG),
            (Messages{debug("Full identity: "), debug("Real name: Example Board"),
                      debug("Hardware number: 5"), debug("Aliases: ")}));
}

TEST(Report, OfAnUndeterminedBoardHasThreeMessages) {
  Board board;
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(report(board, identifier, Priority::DEBUG),
            (Messages{debug("Identity is unknown: "), debug("Real name: Unknown"),
                      debug("Hardware number: -1")}));
}

TEST(Report, EndsAtTheNulByteOfAnAlias) {
  Board board;
  board.catalogue(bytes("Field Node:3:a\0b:fn1\n")).kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier, Priority::INFO).back().text, "Aliases: a");
}

TEST(Report, AfterAFailedQueryIsThreeMessagesAtError) {
  Board board;
  OvxIdentifier identifier(board.logger());
  const Messages messages = board.messagesOf([&] { identifier.getHardwareName(); });
  ASSERT_GE(messages.size(), 3U);
  EXPECT_EQ(Messages(messages.end() - 3, messages.end()),
            (Messages{error("Identity is unknown: "), error("Real name: Unknown"),
                      error("Hardware number: -1")}));
}

TEST(Report, AfterAFailureNeverMentionsAliasesLeftFromASuccess) {
  Board board;
  board.catalogue("Example Board:5:exb\n").kernelRelease("5.10.0-exb");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.kernelRelease("5.10.0");
  identifier.determineIdentity();
  const Messages messages = board.messagesOf([&] { identifier.getHardwareName(); });
  ASSERT_GE(messages.size(), 4U);
  EXPECT_EQ(Messages(messages.end() - 4, messages.end()),
            (Messages{error("Could not find hardware identity with uname or through /proc/cpuinfo"),
                      error("Identity is unknown: "), error("Real name: Unknown"),
                      error("Hardware number: -1")}));
}

TEST(Report, AfterASuccessfulQueryIsFourMessagesAtDebug) {
  Board board;
  board.property("boardid", "5").property("description", "Example Board");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messagesOf([&] { identifier.getHardwareName(); }),
            (Messages{debug("Attempting to find alias by DT"), debug("Full identity: "),
                      debug("Real name: Example Board"), debug("Hardware number: 5"),
                      debug("Aliases: ")}));
}

TEST(Report, OfAnEmptyNameEndsAfterTheBlank) {
  Board board;
  board.property("boardid", "5").property("description", "");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier, Priority::DEBUG).at(1), debug("Real name: "));
}

TEST(Report, OfThePcShowsNumber64) {
  Board board;
  board.machine("x86_64");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier, Priority::DEBUG).at(2), debug("Hardware number: 64"));
}

TEST(Report, ShowsTheSmallestNumberWithItsSign) {
  Board board;
  board.property("boardid", "-2147483648");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier, Priority::DEBUG).at(2),
            debug("Hardware number: -2147483648"));
}

TEST(Report, CalledDirectlyGoesOutAtTheGivenLevelThroughout) {
  Board board;
  board.property("boardid", "5").property("description", "Example Board");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier, Priority::INFO),
            (Messages{info("Full identity: "), info("Real name: Example Board"),
                      info("Hardware number: 5"), info("Aliases: ")}));
}

TEST(Report, ChangesNothing) {
  Board board;
  OvxIdentifier identifier(board.logger());
  board.property("boardid", "5");
  const Messages first = report(board, identifier, Priority::WARN);
  EXPECT_EQ(report(board, identifier, Priority::WARN), first);
}

}  // namespace
