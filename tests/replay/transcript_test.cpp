#include "replay/transcript.h"

#include <gtest/gtest.h>

namespace {

using ovxid::replay::transcript;

TEST(Transcript, HasEachLineBehindItsStreamAndTheStatusLast) {
  EXPECT_EQ(transcript({3, "a\nb\n", "c\n"}), "out| a\nout| b\nerr| c\nexit 3\n");
}

TEST(Transcript, OfSilenceIsTheStatus) { EXPECT_EQ(transcript({0, "", ""}), "exit 0\n"); }

TEST(Transcript, HasNoBlankBehindTheMarkOfAnEmptyLine) {
  EXPECT_EQ(transcript({0, "\n\n", ""}), "out|\nout|\nexit 0\n");
}

TEST(Transcript, ShowsTheBlankAtTheEndOfALine) {
  EXPECT_EQ(transcript({0, "a b  \n \n", ""}), "out| a b \\x20\nout| \\x20\nexit 0\n");
}

TEST(Transcript, ShowsThatNothingEndsTheLastLine) {
  EXPECT_EQ(transcript({0, "a\nb", "c "}), "out| a\nout| b\\\nerr| c\\x20\\\nexit 0\n");
}

TEST(Transcript, ShowsWhatATerminalWouldObey) {
  EXPECT_EQ(transcript({0, {"\t\x1b[2J\0\xff\\\r\n", 10}, ""}),
            "out| \\t\\x1b[2J\\0\\xff\\\\\\r\nexit 0\n");
}

}  // namespace
