#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
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
  ignores(SIGPIPE);
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

// A reader that goes away when it has seen enough has then taken all of it.
TEST_F(FrontEnd, HandsOverTheListAtOnce) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  const std::string wanted = ovxid({"list"}).out;
  EXPECT_EQ(std::count(wanted.begin(), wanted.end(), '\n'), 4);
  int ends[2];
  // One read gives what one write handed over.
  ASSERT_EQ(pipe2(ends, O_DIRECT | O_CLOEXEC), 0);
  outputTo(ends[1]);
  ovxid({"list"});
  std::string list(PIPE_BUF, '\0');
  list.resize(static_cast<std::size_t>(read(ends[0], list.data(), list.size())));
  EXPECT_EQ(list, wanted);
  close(ends[0]);
  close(ends[1]);
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
