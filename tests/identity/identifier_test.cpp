#include <gtest/gtest.h>

#include "simulation/board.h"
#include "simulation/child.h"

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

TEST(LoadParams, CollectsTheDeviceTreeOfAnUnknownBoardToo) {
  Board board;
  board.property("wifi", "yes");
  OvxIdentifier identifier(board.logger());
  identifier.loadParams();
  EXPECT_EQ(listing(identifier), "OVX_WIFI=yes\n");
}

TEST(LoadParams, CalledTwiceCollectsEverythingTwice) {
  Board board;
  board.property("boardid", "7")
      .property("description", "Field Node")
      .remove(std::string(nodePath) + "/description");
  OvxIdentifier identifier(board.logger());
  identifier.loadParams();
  const std::string once = listing(identifier);
  identifier.loadParams();
  EXPECT_EQ(once, "OVX_ID=7\nOVX_DESC=Unknown\nOVX_BOARDID=7\n");
  EXPECT_EQ(listing(identifier), once + once);
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

TEST(NullLogger, SilencesEveryMessage) {
  Board board;
  board.catalogue("Field Node:3:fn1\nrejected\n");
  const Outcome outcome = inChild([] {
    OvxIdentifier silent(nullptr);
    silent.loadParams();
    silent.logFullId(Priority::FATAL);
    silent.tryLog("text", Priority::FATAL);
    silent.tryLog("text");
    return 0;
  });
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
}

struct LevelCase {
  const char* name;
  int level;
  const char* method;
};

void PrintTo(const LevelCase& level, std::ostream* out) { *out << level.name; }

class Level : public testing::TestWithParam<LevelCase> {};

TEST_P(Level, ChoosesTheLoggersMethod) {
  Board board;
  OvxIdentifier identifier(board.logger());
  const auto level = static_cast<Priority::PriorityLevel>(GetParam().level);
  EXPECT_EQ(board.messagesOf([&] { identifier.tryLog("text", level); }),
            (Messages{{GetParam().method, "text"}}));
}

INSTANTIATE_TEST_SUITE_P(
    Of, Level,
    testing::Values(
        LevelCase{"Fatal", 0, "fatal"}, LevelCase{"Alert", 100, "debug"},
        LevelCase{"Critical", 200, "debug"}, LevelCase{"Error", 300, "error"},
        LevelCase{"Warn", 400, "warn"}, LevelCase{"Notice", 500, "debug"},
        LevelCase{"Info", 600, "info"}, LevelCase{"Debug", 700, "debug"},
        LevelCase{"NotSet", 800, "debug"}, LevelCase{"JustBelowError", 299, "debug"},
        LevelCase{"JustAboveError", 301, "debug"}, LevelCase{"JustBelowWarn", 399, "debug"},
        LevelCase{"JustAboveWarn", 401, "debug"}, LevelCase{"JustBelowInfo", 599, "debug"},
        LevelCase{"JustAboveInfo", 601, "debug"}, LevelCase{"JustBelowDebug", 699, "debug"},
        LevelCase{"JustAboveFatal", 1, "debug"}, LevelCase{"FarAboveAll", 1023, "debug"}),
    [](const auto& test) { return test.param.name; });

TEST(TryLog, WithoutALevelLogsAtDebug) {
  Board board;
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messagesOf([&] { identifier.tryLog("text"); }), (Messages{debug("text")}));
}

TEST(TryLog, HandsPercentSignsToTheLoggerAsTheyStand) {
  Board board;
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messagesOf([&] { identifier.tryLog("100 %d%% of %s%n", Priority::WARN); }),
            (Messages{warn("100 %d%% of %s%n")}));
}

TEST(TryLog, HandsOverTheTextUpToItsFirstNulByte) {
  Board board;
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messagesOf([&] { identifier.tryLog(bytes("before\0after")); }),
            (Messages{debug("before")}));
}

}  // namespace
