#include <gtest/gtest.h>

#include "catalogue/builtin_messages.h"
#include "identity/determination_messages.h"
#include "simulation/board.h"

using log4cpp::Priority;

namespace {

const Messages failedSearch =
    missingNodeMessages() + debug("Attempting to find alias by uname") +
    debug("No problems with uname") + debug("uts.release= 5.10.0") +
    debug(
        "Finding the hardware idenitity with uname failed, attempting to find hardware "
        "identity with cpuinfo") +
    error("Could not open the /proc/cpuinfo file, is the proc filesystem mounted") +
    error("Could not find hardware identity with uname or through /proc/cpuinfo");

const Messages failureReport = {error("Identity is unknown: "), error("Real name: Unknown"),
                                error("Hardware number: -1")};

TEST(Construction, LogsItselfThenLoadsTheCatalogueAndDeterminesNothing) {
  Board board;
  board.property("boardid", "7");
  const OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messages(), builtinCatalogueMessages());
}

TEST(Construction, LeavesTheIdentityUnknown) {
  Board board;
  board.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messagesOf([&] { identifier.logFullId(Priority::ERROR); }), failureReport);
}

TEST(Construction, LeavesTheParameterListEmpty) {
  Board board;
  board.property("boardid", "7");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(listing(identifier), "");
}

TEST(Query, ForTheNameDeterminesTheIdentityAndReportsItAtDebug) {
  Board board;
  board.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  std::string name;
  EXPECT_EQ(
      board.messagesOf([&] { name = identifier.getHardwareName(); }),
      (Messages{debug("Attempting to find alias by DT"), debug("Full identity: "),
                debug("Real name: Field Node"), debug("Hardware number: 7"), debug("Aliases: ")}));
  EXPECT_EQ(name, "Field Node");
}

TEST(Query, ForTheNumberDeterminesTheIdentityAndReportsItAtDebug) {
  Board board;
  board.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  std::int32_t number = 0;
  EXPECT_EQ(
      board.messagesOf([&] { number = identifier.getHardwareNumber(); }),
      (Messages{debug("Attempting to find alias by DT"), debug("Full identity: "),
                debug("Real name: Field Node"), debug("Hardware number: 7"), debug("Aliases: ")}));
  EXPECT_EQ(number, 7);
}

TEST(Query, AfterASuccessfulOneAnswersFromMemoryWithoutAMessage) {
  Board board;
  board.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  identifier.getHardwareNumber();
  board.property("boardid", "8").property("description", "Bench Unit");
  EXPECT_EQ(board.messagesOf([&] {
    EXPECT_EQ(identifier.getHardwareName(), "Field Node");
    EXPECT_EQ(identifier.getHardwareNumber(), 7);
  }),
            Messages{});
}

TEST(Query, OfADeterminedBoardOfNumberMinusOneAnswersFromMemory) {
  Board board;
  board.property("boardid", "-1");
  OvxIdentifier identifier(board.logger());
  identifier.getHardwareNumber();
  EXPECT_EQ(board.messagesOf([&] { identifier.getHardwareNumber(); }), Messages{});
}

TEST(Query, AfterADirectDeterminationAnswersWithoutAReport) {
  Board board;
  board.property("boardid", "7");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(board.messagesOf([&] { identifier.getHardwareNumber(); }), Messages{});
}

TEST(Query, OfTheNameOfAnUnknownBoardSearchesAndReportsAtErrorEachTime) {
  Board board;
  OvxIdentifier identifier(board.logger());
  for (int query = 0; query < 2; ++query) {
    EXPECT_EQ(board.messagesOf([&] { EXPECT_EQ(identifier.getHardwareName(), "Unknown"); }),
              failedSearch + failureReport);
  }
}

TEST(Query, OfTheNumberOfAnUnknownBoardSearchesAndReportsAtErrorEachTime) {
  Board board;
  OvxIdentifier identifier(board.logger());
  for (int query = 0; query < 2; ++query) {
    EXPECT_EQ(board.messagesOf([&] { EXPECT_EQ(identifier.getHardwareNumber(), -1); }),
              failedSearch + failureReport);
  }
}

TEST(Query, FindsABoardThatHasBecomeKnownSinceTheLastFailure) {
  Board board;
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(identifier.getHardwareNumber(), -1);
  board.property("boardid", "7");
  EXPECT_EQ(identifier.getHardwareNumber(), 7);
}

TEST(LoadParams, DeterminesAndReportsTheIdentityOnce) {
  Board board;
  board.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(
      board.messagesOf([&] { identifier.loadParams(); }),
      (Messages{debug("Attempting to find alias by DT"), debug("Full identity: "),
                debug("Real name: Field Node"), debug("Hardware number: 7"), debug("Aliases: ")}));
}

TEST(NullLogger, ChangesNoNameAndNoNumber) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-fn1");
  OvxIdentifier loud(board.logger());
  OvxIdentifier silent(nullptr);
  EXPECT_EQ(silent.getHardwareName(), "Field Node");
  EXPECT_EQ(silent.getHardwareNumber(), 3);
  EXPECT_EQ(silent.getHardwareName(), loud.getHardwareName());
  EXPECT_EQ(silent.getHardwareNumber(), loud.getHardwareNumber());
}

TEST(NullLogger, ChangesNothingOnAnUnknownBoard) {
  Board board;
  OvxIdentifier silent(nullptr);
  EXPECT_EQ(silent.getHardwareName(), "Unknown");
  EXPECT_EQ(silent.getHardwareNumber(), -1);
}

}  // namespace
