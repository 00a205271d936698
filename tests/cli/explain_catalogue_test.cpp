#include <gtest/gtest.h>

#include "cli/explanation.h"

// What is remarked on values that almost match, and on what a match hides.

namespace {

const std::string noAlias = "no name and no alias in the catalogue";

// A board whose kernel or Hardware line the catalogue does not know.
class ExplainMiss : public Explain {
 protected:
  void releaseEndsIn(const std::string& suffix, const std::string& boards) {
    kernelIs("6.1.55-" + suffix, "aarch64");
    mReport
        .says("kernel release", "6.1.55-" + suffix + ": '" + suffix + "' is no alias of the " +
                                    boards + " in the catalogue")
        .says("catalogue", "/etc/known_ovx_ids: " + boards)
        .knownByLine("NAME:NUMBER:" + suffix);
  }

  void hardwareIs(const std::string& value, const std::string& boards) {
    mBoard.cpuinfo("Hardware\t: " + value + "\n");
    mReport.says("cpuinfo", "Hardware '" + value + "': " + noAlias)
        .says("catalogue", "/etc/known_ovx_ids: " + boards)
        .knownByLine(value + ":NUMBER");
  }
};

constexpr const char* nameOnly =
    "'k2' is the name of the board in line 2, but is compared with aliases only.";

TEST_F(ExplainMiss, TellsOfNearMissesOfTheRelease) {
  releaseEndsIn("k2", "4 boards");
  mBoard.catalogue(
      bytes("Kestrel:1:K2:k3\r\nk2:2: k 2 \nMerlin:3:k2\r\nK2:4:k\0"
            "2:k2+:k\xc2\xa0\t2\n"));
  EXPECT_EQ(
      explain(),
      mReport.remarking({noNode, "'k2' differs from the alias 'K2' in line 1 only in case.",
                         "'k2' differs from the alias ' k 2 ' in line 2 only in blanks.",
                         "'k2' differs from the alias 'k2\\r' in line 3 only in a carriage return.",
                         "'k2' differs from the alias 'k\\02' in line 4 only in a NUL byte.",
                         "'k2' differs from the alias 'k2+' in line 4 only in a '+'.",
                         "'k2' differs from the alias 'k\\xc2\\xa0\\t2' in line 4 only in blanks.",
                         nameOnly}));
}

TEST_F(ExplainMiss, TellsOfNearMissesOfTheHardwareLine) {
  hardwareIs("Kestrel", "4 boards");
  mBoard.catalogue(bytes("kestrel:1\nMerlin:2:Kestrel\0\nGos:3:KESTREL \nKestrels:4:Kestre\n"));
  EXPECT_EQ(
      explain(),
      mReport.remarking(
          {noNode, "'Kestrel' differs from the name of the board in line 1 only in case.",
           "'Kestrel' differs from the alias 'Kestrel\\0' in line 2 only in a NUL byte.",
           "'Kestrel' differs from the alias 'KESTREL ' in line 3 only in case and blanks."}));
}

TEST_F(ExplainMiss, TellsOfAnAliasThatStandsInALineTwiceOnce) {
  releaseEndsIn("k2", "1 board");
  mBoard.catalogue("Kestrel:1:K2:K2\n");
  EXPECT_EQ(explain(), mReport.remarking(
                           {noNode, "'k2' differs from the alias 'K2' in line 1 only in case."}));
}

TEST_F(ExplainMiss, TellsOfAPlusAtTheEndOfTheRelease) {
  releaseEndsIn("kestrel2+", "1 board");
  mBoard.catalogue("Kestrel:12:kestrel2\n");
  EXPECT_EQ(
      explain(),
      mReport.remarking(
          {noNode, "'kestrel2+' differs from the alias 'kestrel2' in line 1 only in a '+'."}));
}

TEST_F(ExplainMiss, TellsOfNearMissesInTheBuiltInTable) {
  kernelIs("6.1.55-TQB", "aarch64");
  mReport.says("kernel release", "6.1.55-TQB: 'TQB' is no alias of the 3 boards in the catalogue")
      .knownByLine("NAME:NUMBER:TQB");
  EXPECT_EQ(explain(), mReport.remarking({noNode,
                                          "'TQB' differs from the alias 'tqb' in the "
                                          "built-in table only in case."}));
}

TEST_F(ExplainKestrel, SaysNothingOfNearMissesOfASourceThatWasNotTried) {
  kernelIs("6.1.55-k2", "aarch64");
  mBoard.catalogue("Merlin:1:K2\nk2:2\nMERLIN:3\n").cpuinfo("Hardware: Merlin \n");
  mReport.says("kernel release", "6.1.55-k2: 'k2' is no alias of the 3 boards in the catalogue")
      .says("cpuinfo", "Hardware 'Merlin ': " + noAlias)
      .says("catalogue", "/etc/known_ovx_ids: 3 boards");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, TellsOfNearMissesOfASourceBeforeTheOneThatDecided) {
  kernelIs("6.1.55-k2", "aarch64");
  mBoard.catalogue("Merlin:1:K2:merlin\n").cpuinfo("Hardware: Merlin\n");
  mReport.says("kernel release", "6.1.55-k2: 'k2' is no alias of the 1 board in the catalogue")
      .says("cpuinfo", "Hardware 'Merlin' is the name of the board in line 1")
      .says("catalogue", "/etc/known_ovx_ids: 1 board")
      .identifiedBy("cpuinfo", "'Merlin', number 1: the Hardware line matches line 1.");
  EXPECT_EQ(explain(),
            mReport.remarking({"'k2' differs from the alias 'K2' in line 1 only in case."}));
}

TEST_F(Explain, SaysNothingOfNearMissesOfTheSourceThatDecided) {
  kernelIs("6.1.55-k2", "aarch64");
  mBoard.catalogue("k2:1:K2:k2\n");
  mReport.says("kernel release", "6.1.55-k2: 'k2' is an alias of 'k2' in line 1")
      .says("catalogue", "/etc/known_ovx_ids: 1 board")
      .identifiedBy("kernel release",
                    "'k2', number 1: the kernel's release matches an alias in line 1.");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, CountsTheLinesThatArePassedOverBeforeTheOneThatMatches) {
  kernelIs("6.1.55-k2", "aarch64");
  mBoard.catalogue("#\nKestrel:12:k2\n#\n");
  EXPECT_THAT(explain().out, testing::HasSubstr("an alias of 'Kestrel' in line 2\n"));
}

// The end of the release is compared with aliases only, the Hardware value with names as well.
TEST_F(ExplainKestrel, TellsWhichOtherBoardsWouldMatch) {
  kernelIs("6.1.55-k2", "aarch64");
  mBoard.catalogue("k2:2\nMerlin:1:k2\nGos:12:Merlin:k2\n").cpuinfo("Hardware: Merlin\n");
  mReport.says("kernel release", "6.1.55-k2: 'k2' is an alias of 'Merlin' in line 2")
      .says("cpuinfo", "Hardware 'Merlin' is the name of the board in line 2")
      .says("catalogue", "/etc/known_ovx_ids: 3 boards");
  EXPECT_EQ(explain(),
            mReport.remarking({"The end of the release 'k2' would match 'Merlin' in line 2.",
                               "The end of the release 'k2' would match 'Gos' in line 3.",
                               "The Hardware value 'Merlin' would match 'Merlin' in line 2.",
                               "The Hardware value 'Merlin' would match 'Gos' in line 3."}));
}

TEST_F(ExplainKestrel, SaysNothingOfTheSameBoardInTheCatalogue) {
  kernelIs("6.1.55-k2", "aarch64");
  mBoard.property("description", "Kestrel");
  mBoard.catalogue("Kestrel:12:k2\n");
  mReport.says("device tree", "boardid '12\\0', description 'Kestrel'")
      .says("kernel release", "6.1.55-k2: 'k2' is an alias of 'Kestrel' in line 1")
      .says("catalogue", "/etc/known_ovx_ids: 1 board");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, KnowsBoardsOfOneNameApart) {
  kernelIs("6.1.55-k3", "aarch64");
  mBoard.catalogue("Kestrel:1:k2\nKestrel:2:k3\n").cpuinfo("Hardware: Kestrel\n");
  mReport.says("kernel release", "6.1.55-k3: 'k3' is an alias of 'Kestrel' in line 2")
      .says("cpuinfo", "Hardware 'Kestrel' is the name of the board in line 1")
      .says("catalogue", "/etc/known_ovx_ids: 2 boards")
      .identifiedBy("kernel release",
                    "'Kestrel', number 2: the kernel's release matches an alias in line 2.");
  EXPECT_EQ(explain(),
            mReport.remarking({"The Hardware value 'Kestrel' would match 'Kestrel' in line 1."}));
}

TEST_F(Explain, TellsWhichReleasesHaveTheSameEnd) {
  kernelIs("5.15.148-vx-7b", "aarch64");
  mReport
      .says("kernel release", "5.15.148-vx-7b: '7b' is no alias of the 3 boards in the catalogue")
      .knownByLine("NAME:NUMBER:7b");
  EXPECT_EQ(explain(),
            mReport.remarking({noNode,
                               "Of the release, only what follows the last '-' counts: any kernel "
                               "that ends in '-7b' matches the alias '7b'."}));
}

TEST_F(Explain, TellsThatManyReleasesEndInANumber) {
  kernelIs("6.1.0-13", "aarch64");
  mBoard.catalogue("Kestrel:12:13\n");
  mReport.says("kernel release", "6.1.0-13: '13' is an alias of 'Kestrel' in line 1")
      .says("catalogue", "/etc/known_ovx_ids: 1 board")
      .identifiedBy("kernel release",
                    "'Kestrel', number 12: the kernel's release matches an alias in line 1.");
  EXPECT_EQ(explain(),
            mReport.remarking({"Of the release, only what follows the last '-' counts: any kernel "
                               "that ends in '-13' matches the alias '13'."}));
}

TEST_F(ExplainKestrel, SaysNothingOfOtherReleasesWhereAnotherSourceDecided) {
  kernelIs("6.1.0-13", "aarch64");
  mReport.says("kernel release", "6.1.0-13: '13' is no alias of the 3 boards in the catalogue");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

}  // namespace
