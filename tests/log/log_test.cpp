#include <gtest/gtest.h>

#include "simulation/board.h"
#include "simulation/child.h"

using log4cpp::Priority;

namespace {

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

TEST(TryLog, HandsOverAnEmptyText) {
  Board board;
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messagesOf([&] { identifier.tryLog(""); }), (Messages{debug("")}));
}

TEST(TryLog, HandsOverTheTextUpToItsFirstNulByte) {
  Board board;
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messagesOf([&] { identifier.tryLog(bytes("before\0after")); }),
            (Messages{debug("before")}));
}

// The logger receives a C string, so it sees neither the rest of the line nor the rest of the
// message.
TEST(Message, EndsAtTheNulByteOfAValueInIt) {
  Board board;
  OvxIdentifier identifier(board.logger());
  HardwareIdentity record{};
  EXPECT_EQ(board.messagesOf([&] { identifier.parseIdentityLine(record, bytes("a\0b")); }),
            (Messages{warn("The line:'a")}));
}

}  // namespace
