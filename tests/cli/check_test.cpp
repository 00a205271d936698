#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/front_end.h"
#include "cli/terminal.h"
#include "simulation/descriptors.h"

using testing::HasSubstr;
using testing::Not;

namespace {

class Check : public FrontEnd {
 protected:
  // What is found in this catalogue, without the file's name.
  std::string found(const std::string& catalogue) {
    mBoard.catalogue(catalogue);
    Outcome outcome = ovxid({"check"});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, outcome.out.empty() ? 0 : 1);
    const std::string file = "/etc/known_ovx_ids:";
    for (auto at = outcome.out.find(file); at != std::string::npos; at = outcome.out.find(file)) {
      outcome.out.erase(at, file.size());
    }
    return outcome.out;
  }
};

TEST_F(Check, FindsNothingInAGoodCatalogue) {
  EXPECT_EQ(found("Tessaryn TQB:2:tqb\nKestrel Rev B:12:kestrel2:Kestrel (Device Tree)\n::A::3\n"),
            "");
}

TEST_F(Check, TellsWhyALineIsPassedOver) {
  EXPECT_EQ(found("Kestrel\nMerlin:twelve\nHobby:2147483648\n:\n"),
            "1: error: the line is passed over: it must contain at least two colon separated "
            "values\n"
            "2: error: the line is passed over: the second value needs to be a board number\n"
            "3: error: the line is passed over: the second value needs to be a board number\n"
            "4: error: the line is passed over: it must contain at least two colon separated "
            "values\n");
}

TEST_F(Check, FindsAByteOrderMark) {
  EXPECT_EQ(found("\xef\xbb\xbfKestrel:12\n\xef\xbb\xbfMerlin:13\n"),
            "1: warning: a byte order mark belongs to the first name [byte-order-mark]\n"
            "1: warning: nothing can match the board '\\xef\\xbb\\xbfKestrel' [unmatchable]\n"
            "2: warning: nothing can match the board '\\xef\\xbb\\xbfMerlin' [unmatchable]\n");
}

TEST_F(Check, FindsCarriageReturns) {
  EXPECT_EQ(found("Kestrel:12\r\nMerlin:13:m1\r\n"),
            "1: warning: the carriage return at the end belongs to the last value "
            "[carriage-return]\n"
            "2: warning: the carriage return at the end belongs to the last value "
            "[carriage-return]\n");
}

TEST_F(Check, FindsNulBytes) {
  EXPECT_EQ(found(bytes("Kestrel\0:12:k2\n")),
            "1: warning: the line has NUL bytes, which belong to its values [nul]\n");
}

TEST_F(Check, FindsNamesThatNoHardwareLineHas) {
  EXPECT_EQ(found(bytes("\xef\xbb\xbfKestrel:12\nMerlin\0:13\nGos\0:14:gos\n")),
            "1: warning: a byte order mark belongs to the first name [byte-order-mark]\n"
            "1: warning: nothing can match the board '\\xef\\xbb\\xbfKestrel' [unmatchable]\n"
            "2: warning: the line has NUL bytes, which belong to its values [nul]\n"
            "2: warning: nothing can match the board 'Merlin\\0' [unmatchable]\n"
            "3: warning: the line has NUL bytes, which belong to its values [nul]\n");
}

TEST_F(Check, FindsThatNoNewlineEndsTheLastLine) {
  EXPECT_EQ(found("Kestrel:12\nMerlin:13"),
            "2: warning: no newline ends the last line [no-newline]\n");
}

TEST_F(Check, FindsEmptyLines) {
  const std::string what =
      ": warning: the library reports an empty line as not valid [empty-line]\n";
  EXPECT_EQ(found("\nKestrel:12\n\n\r\n"), "1" + what + "3" + what + "4" + what);
}

TEST_F(Check, FindsComments) {
  EXPECT_EQ(found("# boards\n# old: 12:x\nKestrel #1:13\n"),
            "1: warning: there are no comments: the library reports the line as not valid "
            "[comment]\n"
            "2: warning: there are no comments: this is the board '# old' [comment]\n"
            "2: warning: there are blanks around ' 12' [blanks]\n");
}

TEST_F(Check, FindsCommentsBehindValues) {
  EXPECT_EQ(found("Kestrel:12:k2 # new\n"),
            "1: warning: there are no comments: this is the value 'k2 # new' [comment]\n");
}

TEST_F(Check, FindsAnEmptyCatalogue) {
  EXPECT_EQ(found(""), "1: warning: the catalogue is empty: it knows no board [empty-catalogue]\n");
}

TEST_F(Check, FindsAliasesThatManyKernelsMatch) {
  EXPECT_EQ(found("Kestrel:12:7:7a\n"),
            "1: warning: '7' matches any kernel whose release ends in '-7' [numeric-alias]\n");
}

TEST_F(Check, FindsBlanksAroundValues) {
  EXPECT_EQ(found("Kestrel :12 :\tk2\n"),
            "1: warning: there are blanks around 'Kestrel ', which belong to it [blanks]\n"
            "1: warning: there are blanks around '12 ' [blanks]\n"
            "1: warning: there are blanks around '\\tk2', which belong to it [blanks]\n");
}

TEST_F(Check, FindsEachBlankAtEitherEndOfAValue) {
  for (const std::string blank : {" ", "\t", "\v", "\f", "\xc2\xa0"}) {
    const std::string before = blank + "k";
    for (const std::string& alias : {blank, before, "k" + blank, before + blank}) {
      EXPECT_THAT(found("A:1:" + alias + "\n"), HasSubstr("[blanks]")) << alias;
      EXPECT_THAT(found("A:1:" + alias + "\r\n"), HasSubstr("[blanks]")) << alias;
    }
    EXPECT_THAT(found("A:1:k" + blank + "k\n"), Not(HasSubstr("[blanks]"))) << blank;
  }
  EXPECT_THAT(found("A:1:\xc2\n"), Not(HasSubstr("[blanks]")));
}

TEST_F(Check, FindsTextBehindANumberWhateverStandsBeforeIt) {
  for (const std::string blank : {"", " ", "\t", "\v", "\f", "\r", " \t\v\f\r"}) {
    for (const std::string number : {"5", "+5", "-5", "50"}) {
      std::string line = "A:";
      line.append(blank).append(number).append(blank);
      EXPECT_THAT(found(line + "\n"), Not(HasSubstr("[number-text]"))) << line;
      EXPECT_THAT(found(line + "x\n"), HasSubstr("[number-text]")) << line;
      EXPECT_THAT(found(line + "+\n"), HasSubstr("[number-text]")) << line;
    }
  }
}

TEST_F(Check, FindsTextBehindTheDigitsOfANumber) {
  EXPECT_EQ(found("A:0x11\nB:17abc\nC:-3.5\nD:+4\nE:007\nF:8 b\n"),
            "1: warning: '0x11' is read as 0 [number-text]\n"
            "2: warning: '17abc' is read as 17 [number-text]\n"
            "3: warning: '-3.5' is read as -3 [number-text]\n"
            "3: warning: a board with a number below 0 gets no OVX_ID and no OVX_DESC "
            "[reserved-number]\n"
            "6: warning: '8 b' is read as 8 [number-text]\n");
}

TEST_F(Check, FindsNumbersThatMeanSomethingElse) {
  EXPECT_EQ(found("Kestrel:-1\nMerlin:64\n"),
            "1: warning: the number -1 means that a board is not identified [reserved-number]\n"
            "2: warning: the number 64 means a PC [reserved-number]\n");
  EXPECT_EQ(found("x86_64 PC:64\n"), "");
}

TEST_F(Check, FindsTheMachineAsAnAlias) {
  EXPECT_EQ(found("Kestrel:12:x86_64\n"),
            "1: warning: 'x86_64' is compared with the end of a kernel's release, not with the "
            "machine [pc-alias]\n");
}

TEST_F(Check, FindsAliasesThatNothingCanMatch) {
  const std::string longest(63, 'k');
  EXPECT_EQ(found("A:1:kestrel-2:Kestrel-2:kestrel 2-b:" + longest + "\nB:2:" + longest + "l\n"),
            "1: warning: 'kestrel-2' cannot follow the last '-' of a release, and does not look "
            "like a Hardware value [impossible-alias]\n"
            "2: warning: '" +
                longest +
                "l' cannot follow the last '-' of a release, and does not look "
                "like a Hardware value [impossible-alias]\n");
}

TEST_F(Check, FindsWhatAnEarlierBoardHas) {
  EXPECT_EQ(found("Kestrel:12:k2\nMerlin:13:m1\nHobby:12\nKestrel:14:h1\nGos:15:k2\n"),
            "3: warning: the board in line 1 has the number 12, too [same-number]\n"
            "4: warning: 'Kestrel' is the name of the board in line 1, which is found instead "
            "[same-name]\n"
            "5: warning: 'k2' is an alias of the board in line 1, which is found instead "
            "[same-alias]\n");
}

TEST_F(Check, FindsAliasesThatAreNamesOfEarlierBoards) {
  EXPECT_EQ(found("Kestrel:12\nMerlin:13:Kestrel\n"),
            "2: warning: 'Kestrel' is the name of the board in line 1, which a Hardware line finds "
            "[alias-is-name]\n");
}

TEST_F(Check, FindsNamesThatAreAliasesOfEarlierBoards) {
  EXPECT_EQ(found("Merlin:13:Kestrel\nKestrel:12\n"),
            "2: warning: 'Kestrel' is an alias of the board in line 1, which a kernel's release "
            "finds [name-is-alias]\n");
}

TEST_F(Check, FindsNamesThatHideAliasesOfEarlierBoards) {
  EXPECT_EQ(found("Merlin:13:Kestrel-2\nKestrel-2:12\n"),
            "2: warning: 'Kestrel-2' is an alias of the board in line 1, which a Hardware line "
            "finds no more [name-is-alias]\n");
}

TEST_F(Check, ComparesAValueWithItsCarriageReturn) {
  EXPECT_EQ(found("Kestrel:12:k2\r\nMerlin:13:k2\n"),
            "1: warning: the carriage return at the end belongs to the last value "
            "[carriage-return]\n");
}

TEST_F(Check, FindsQuotes) {
  EXPECT_EQ(found("\"Kestrel\":12:'k2'\nMerlin:13:'\n"),
            "1: warning: the quotes of \"Kestrel\" belong to the value [quotes]\n"
            "1: warning: the quotes of 'k2' belong to the value [quotes]\n");
}

TEST_F(Check, FindsNoBreakSpaces) {
  EXPECT_EQ(found("Kestrel:12:k2\xc2\xa0\n"),
            "1: warning: there are blanks around 'k2\\xc2\\xa0', which belong to it [blanks]\n");
}

TEST_F(Check, FindsAWholeRelease) {
  EXPECT_EQ(found("Kestrel:12:5.10.0-K2\n"),
            "1: warning: '5.10.0-K2' cannot follow the last '-' of a release, and does not look "
            "like a Hardware value [impossible-alias]\n");
}

TEST_F(Check, TellsWhyALineWithNulBytesIsPassedOver) {
  EXPECT_EQ(found(bytes("A(b\0\nB\0:x\0\n")),
            "1: warning: the line has NUL bytes, which belong to its values [nul]\n"
            "1: error: the line is passed over: it must contain at least two colon separated "
            "values\n"
            "2: warning: the line has NUL bytes, which belong to its values [nul]\n"
            "2: error: the line is passed over: the second value needs to be a board number\n");
}

TEST_F(Check, FindsAliasesWithNulBytesThatNothingCanMatch) {
  EXPECT_EQ(found(bytes("A:1:k\0\nB:2:K \0\nC:3:5\0\n")),
            "1: warning: the line has NUL bytes, which belong to its values [nul]\n"
            "1: warning: 'k\\0' cannot follow the last '-' of a release, and does not look like a "
            "Hardware value [impossible-alias]\n"
            "2: warning: the line has NUL bytes, which belong to its values [nul]\n"
            "2: warning: 'K \\0' cannot follow the last '-' of a release, and does not look like a "
            "Hardware value [impossible-alias]\n"
            "3: warning: the line has NUL bytes, which belong to its values [nul]\n"
            "3: warning: '5\\0' cannot follow the last '-' of a release, and does not look like a "
            "Hardware value [impossible-alias]\n");
}

// A Hardware value that an earlier board has as its name finds that one.
TEST_F(Check, FindsABoardThatOnlyAnEarlierNameWouldMatch) {
  EXPECT_EQ(found("Kestrel-2:12\nKestrel-2:13:Kestrel-2\n"),
            "2: warning: 'Kestrel-2' is the name of the board in line 1, which is found instead "
            "[same-name]\n"
            "2: warning: 'Kestrel-2' is the name of the board in line 1, which a Hardware line "
            "finds [alias-is-name]\n"
            "2: warning: nothing can match the board 'Kestrel-2' [unmatchable]\n");
}

TEST_F(Check, PrintsTheMessagesOfTheLibrary) {
  mBoard.catalogue("Kestrel:12\n");
  const Outcome outcome = ovxid({"check", "-v"});
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err.substr(outcome.err.rfind('\n', outcome.err.size() - 2) + 1),
            "debug: Found hardware identity: Board number 12(Kestrel)\n");
}

TEST_F(Check, PassesOverWhatALineHasTwice) { EXPECT_EQ(found("Kestrel:12:Kestrel:k2:k2\n"), ""); }

TEST_F(Check, FindsABoardThatNothingCanMatch) {
  EXPECT_EQ(found("Kestrel:12:k2\nKestrel:13:k2:kestrel-2\n"),
            "2: warning: 'kestrel-2' cannot follow the last '-' of a release, and does not look "
            "like a Hardware value [impossible-alias]\n"
            "2: warning: 'Kestrel' is the name of the board in line 1, which is found instead "
            "[same-name]\n"
            "2: warning: 'k2' is an alias of the board in line 1, which is found instead "
            "[same-alias]\n"
            "2: warning: nothing can match the board 'Kestrel' [unmatchable]\n");
}

TEST_F(Check, LeavesOutWarningsThatAreIgnored) {
  mBoard.catalogue("Kestrel:12\nMerlin:12:Kestrel\nHobby\n");
  EXPECT_EQ(ovxid({"check", "--ignore", "same-number", "--ignore=alias-is-name"}),
            (Outcome{1,
                     "/etc/known_ovx_ids:3: error: the line is passed over: it must contain at "
                     "least two colon separated values\n",
                     ""}));
}

TEST_F(Check, FindsNothingWhenAllIsIgnored) {
  mBoard.catalogue("Kestrel:12\nMerlin:12\n");
  EXPECT_EQ(ovxid({"check", "--ignore", "same-number"}), (Outcome{0, "", ""}));
}

TEST_F(Check, RefusesToIgnoreWhatItDoesNotKnow) {
  EXPECT_EQ(ovxid({"check", "--ignore", "same-nmber"}),
            (Outcome{2, "",
                     "ovxid: same-nmber: no such warning, did you mean 'same-number'? (see 'ovxid "
                     "help check')\n"}));
}

TEST_F(Check, ReadsTheFilesThatItIsGiven) {
  mBoard.file("/proc/in/a", "Kestrel:12\nMerlin:0x1\n").file("/proc/in/b", "Kestrel:12\nMerlin\n");
  EXPECT_EQ(ovxid({"check", "/proc/in/a", "/proc/in/b"}),
            (Outcome{1,
                     "/proc/in/a:2: warning: '0x1' is read as 0 [number-text]\n"
                     "/proc/in/b:2: error: the line is passed over: it must contain at least two "
                     "colon separated values\n",
                     ""}));
}

TEST_F(Check, ReadsMoreFilesThanItMayHaveOpen) {
  mBoard.file("/proc/in/a", "Kestrel:12\n");
  const FreeDescriptors few(8);
  Arguments arguments(20, "/proc/in/a");
  arguments.insert(arguments.begin(), "check");
  EXPECT_EQ(ovxid(arguments), (Outcome{0, "", ""}));
}

TEST_F(Check, ReadsStandardInput) {
  mBoard.file("/proc/in/a", "Kestrel:0x12\n");
  inputFrom("/proc/in/a");
  EXPECT_EQ(ovxid({"check", "-"}),
            (Outcome{1, "-:1: warning: '0x12' is read as 0 [number-text]\n", ""}));
}

TEST_F(Check, CannotReadAMissingCatalogue) {
  EXPECT_EQ(ovxid({"check"}),
            (Outcome{4, "", "ovxid: /etc/known_ovx_ids: No such file or directory\n"}));
}

TEST_F(Check, ReadsTheOthersWhenOneCannotBeRead) {
  mBoard.file("/proc/in/a", "Kestrel:0x12\n").directory("/proc/in/d");
  EXPECT_EQ(ovxid({"check", "/proc/in/d", "/proc/in/a"}),
            (Outcome{4, "/proc/in/a:1: warning: '0x12' is read as 0 [number-text]\n",
                     "ovxid: /proc/in/d: Is a directory\n"}));
}

TEST_F(Check, SendsNoControlCharactersOfAFileNameToATerminal) {
  mBoard.file("/proc/in/\x1b[7m", "A:0x1\n");
  const Terminal terminal;
  const std::string path = terminal.path();
  outputTo(path.c_str());
  ovxid({"check", "/proc/in/\x1b[7m"});
  EXPECT_EQ(terminal.shown(), "/proc/in/?[7m:1: warning: '0x1' is read as 0 [number-text]\r\n");
}

TEST_F(Check, ShowsValuesWithoutControlCharacters) {
  EXPECT_EQ(found("A:5\x1b[31m\n"), "1: warning: '5\\x1b[31m' is read as 5 [number-text]\n");
}

}  // namespace
