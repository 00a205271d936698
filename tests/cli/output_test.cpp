#include <gtest/gtest.h>

#include <csignal>

#include "cli/front_end.h"

namespace {

struct OutputCase {
  const char* name;
  const char* word;
};

void PrintTo(const OutputCase& output, std::ostream* out) { *out << output.word; }

class Output : public FrontEnd, public testing::WithParamInterface<OutputCase> {};

TEST_P(Output, ToAFullDiskIsAnError) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  outputTo("/dev/full");
  EXPECT_EQ(ovxid({GetParam().word}),
            (Outcome{3, "", "ovxid: standard output: No space left on device\n"}));
}

TEST_P(Output, ToAClosedPipeEndsQuietly) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  outputToClosedPipe();
  EXPECT_EQ(ovxid({GetParam().word}), (Outcome{128 + SIGPIPE, "", ""}));
}

TEST_P(Output, ToAClosedPipeThatIsIgnoredIsAnError) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  outputToClosedPipe();
  closedPipeIsIgnored();
  EXPECT_EQ(ovxid({GetParam().word}), (Outcome{3, "", "ovxid: standard output: Broken pipe\n"}));
}

TEST_P(Output, ToAClosedDescriptorIsAnError) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  outputClosed();
  EXPECT_EQ(ovxid({GetParam().word}),
            (Outcome{3, "", "ovxid: standard output: Bad file descriptor\n"}));
}

INSTANTIATE_TEST_SUITE_P(Of, Output,
                         testing::Values(OutputCase{"List", "list"}, OutputCase{"Name", "name"},
                                         OutputCase{"Number", "number"},
                                         OutputCase{"Help", "--help"},
                                         OutputCase{"Version", "--version"}),
                         [](const auto& test) { return test.param.name; });

TEST_F(FrontEnd, ReportsAnUnwrittenNameOfAnUnknownBoardAsUnwritten) {
  outputTo("/dev/full");
  EXPECT_EQ(ovxid({"name"}), (Outcome{3, "", "ovxid: standard output: No space left on device\n"}));
}

TEST_F(FrontEnd, NeedsNoOutputToListNothing) {
  outputTo("/dev/full");
  EXPECT_EQ(ovxid({"list"}), (Outcome{0, "", ""}));
}

TEST_F(FrontEnd, FailsWhenItsMessagesMeetAFullDisk) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  messagesTo("/dev/full");
  EXPECT_EQ(ovxid({"-v", "name"}), (Outcome{3, "Field Node\n", ""}));
}

TEST_F(FrontEnd, FailsWhenTheReaderOfItsMessagesWentAway) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  messagesToClosedPipe();
  EXPECT_EQ(ovxid({"-v", "name"}), (Outcome{3, "Field Node\n", ""}));
}

TEST_F(FrontEnd, RunsTheProgramThoughTheReaderOfTheLibrarysMessagesWentAway) {
  mBoard.property("wan", "eth7");
  messagesToClosedPipe();
  EXPECT_EQ(ovxid({"run", "echo", "a"}), (Outcome{0, "a\n", ""}));
}

TEST_F(FrontEnd, FailsToRunAMissingProgramWith127ThoughItsMessagesMeetAFullDisk) {
  messagesTo("/dev/full");
  EXPECT_EQ(ovxid({"run", "no-such-program"}), (Outcome{127, "", ""}));
}

TEST_F(FrontEnd, FailsToRunAMissingProgramWith127ThoughTheReaderOfItsMessagesWentAway) {
  messagesToClosedPipe();
  EXPECT_EQ(ovxid({"run", "no-such-program"}), (Outcome{127, "", ""}));
}

TEST_F(FrontEnd, FailsToRunAMissingShellWith127ThoughItsMessagesMeetAFullDisk) {
  shellIs("/nonexistent");
  messagesTo("/dev/full");
  EXPECT_EQ(ovxid({"shell"}), (Outcome{127, "", ""}));
}

TEST_F(FrontEnd, RunsTheProgramThoughTheReaderOfItsMessagesWentAway) {
  messagesToClosedPipe();
  EXPECT_EQ(ovxid({"-v", "run", "echo", "a"}), (Outcome{0, "a\n", ""}));
}

}  // namespace
