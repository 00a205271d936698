#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <sstream>

#include "cli/explanation.h"

namespace {

TEST_F(Explain, TellsWhatEachSourceSaidAndWhatWouldMakeTheBoardKnown) {
  kernelIs("6.1.55-kestrel2", "aarch64");
  mBoard.node().cpuinfo("processor: 0\nHardware\t: Kestrel Rev B\n");
  mBoard.catalogue("Merlin:1:m1\nHobby\nGos:2\n");
  EXPECT_EQ(
      explain(),
      (Outcome{1,
               "device tree     /proc/device-tree/orvanix/boardid: No such file or directory\n"
               "kernel release  6.1.55-kestrel2: 'kestrel2' is no alias of the 2 boards in "
               "the catalogue\n"
               "machine         aarch64: not x86_64\n"
               "cpuinfo         Hardware 'Kestrel Rev B': no name and no alias in the "
               "catalogue\n"
               "catalogue       /etc/known_ovx_ids: 2 boards, 1 line passed over ('ovxid "
               "check' tells why)\n"
               "\n"
               "This board is not identified. Either line in /etc/known_ovx_ids would make it "
               "known:\n"
               "  NAME:NUMBER:kestrel2\n"
               "  Kestrel Rev B:NUMBER\n"
               "\n"
               "- The node /orvanix has no boardid.\n",
               ""}));
}

TEST_F(Explain, TellsOfTheDeviceTree) {
  kernelIs("6.1.55-k2", "x86_64");
  mBoard.property("boardid", bytes("12\0")).property("description", bytes("Kestrel\0"));
  mBoard.catalogue("Merlin:1:k2\n").cpuinfo("Hardware\t: Merlin\n");
  EXPECT_EQ(
      explain(),
      (Outcome{0,
               "device tree     boardid '12\\0', description 'Kestrel\\0'\n"
               "kernel release  not tried (6.1.55-k2: 'k2' is an alias of 'Merlin' in line "
               "1)\n"
               "machine         not tried (x86_64: a PC)\n"
               "cpuinfo         not tried (Hardware 'Merlin' is the name of the board in line "
               "1)\n"
               "catalogue       /etc/known_ovx_ids: 1 board\n"
               "\n"
               "This board is 'Kestrel', number 12: the device tree says so.\n"
               "\n"
               "- The end of the release 'k2' would match 'Merlin' in line 1.\n"
               "- The Hardware value 'Merlin' would match 'Merlin' in line 1.\n",
               ""}));
}

TEST_F(Explain, TellsOfTheKernelRelease) {
  kernelIs("6.1.55-k2", "x86_64");
  mBoard.catalogue("Gos:3\nMerlin:1:k2\n");
  mReport.says("kernel release", "6.1.55-k2: 'k2' is an alias of 'Merlin' in line 2")
      .says("machine", "x86_64: a PC")
      .says("catalogue", "/etc/known_ovx_ids: 2 boards")
      .identifiedBy("kernel release",
                    "'Merlin', number 1: the kernel's release matches an alias in line 2.");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, TellsOfAPc) {
  kernelIs("6.1.55", "x86_64");
  mBoard.interface("eth0", "02:42:ac:11:00:02").address("eth0", "192.168.7.2");
  mReport.says("machine", "x86_64: a PC")
      .identifiedBy("machine", "'x86_64 PC', number 64: the machine is x86_64.");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, TellsOfAPcWhoseReleaseHasAHyphen) {
  kernelIs("6.1.55-kestrel2", "x86_64");
  mBoard.interface("eth0", "02:42:ac:11:00:02").address("eth0", "192.168.7.2");
  mReport
      .says("kernel release",
            "6.1.55-kestrel2: 'kestrel2' is no alias of the 3 boards in the catalogue")
      .says("machine", "x86_64: a PC")
      .identifiedBy("machine", "'x86_64 PC', number 64: the machine is x86_64.");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, TellsOfAHardwareValueThatIsAName) {
  mBoard.cpuinfo("Hardware\t: Merlin\n").catalogue("Gos:3:m2\nMerlin:1\n");
  mReport.says("cpuinfo", "Hardware 'Merlin' is the name of the board in line 2")
      .says("catalogue", "/etc/known_ovx_ids: 2 boards")
      .identifiedBy("cpuinfo", "'Merlin', number 1: the Hardware line matches line 2.");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, TellsOfAHardwareValueThatIsAnAliasOfTheBuiltInTable) {
  mBoard.cpuinfo("Hardware\t: ostart\n");
  mReport
      .says("cpuinfo",
            "Hardware 'ostart' is an alias of 'Orvanix Starter Kit' in the built-in table")
      .identifiedBy("cpuinfo",
                    "'Orvanix Starter Kit', number 3: the Hardware line matches the "
                    "built-in table.");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, TellsThatTheHardwareLineEndsAtItsColon) {
  mBoard.cpuinfo("Hardware\t:\n");
  mReport.says("cpuinfo",
               "/proc/cpuinfo: the Hardware line ends at its colon, which ends the search");
  EXPECT_EQ(explain(), mReport.remarking({noNode}));
}

TEST_F(Explain, KnowsThatThereIsADeviceTreeThatMayNotBeRead) {
  mBoard.directory("/proc/device-tree").permissions("/proc/device-tree", 0);
  obeysModes();
  EXPECT_THAT(explain().out, testing::HasSubstr("\n- The device tree has no node /orvanix.\n"));
}

// Only a search that comes to it is ended by it.
TEST_F(ExplainKestrel, TellsOfAHardwareLineThatIsNotTriedThatItEndsAtItsColon) {
  mBoard.cpuinfo("Hardware\t:\n");
  mReport.says("cpuinfo",
               "/proc/cpuinfo: the Hardware line ends at its colon, which ends the search");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, TellsThatTheReleaseEndsInAHyphen) {
  kernelIs("6.1-", "mips");
  mReport.says("kernel release", "6.1-: nothing stands behind its last '-'")
      .says("machine", "mips: not x86_64");
  EXPECT_EQ(explain(), mReport.remarking({noNode}));
}

TEST_F(Explain, TellsThatUnameFailed) {
  kernelIs("", "");
  mReport.says("kernel release", "uname: Bad address").says("machine", "uname: Bad address");
  EXPECT_EQ(explain(), mReport.remarking({noNode}));
}

TEST_F(Explain, CountsTheBoardsOfTheCatalogue) {
  kernelIs("6.1.55-kestrel2", "aarch64");
  mReport.knownByLine("NAME:NUMBER:kestrel2");
  const std::string passedOver = " passed over ('ovxid check' tells why)";
  for (const auto& [content, boards, lines] :
       {std::array<std::string, 3>{"", "0 boards", ""},
        {"Gos:3", "1 board", ""},
        {"Gos\nMerlin:1\nGos", "1 board", ", 2 lines" + passedOver},
        {"Gos\n", "0 boards", ", 1 line" + passedOver},
        {"Gos:3\nMerlin:1\n", "2 boards", ""}}) {
    mBoard.catalogue(content);
    std::string release = "6.1.55-kestrel2: 'kestrel2' is no alias of the ";
    release.append(boards).append(" in the catalogue");
    std::string catalogue = "/etc/known_ovx_ids: ";
    catalogue.append(boards).append(lines);
    mReport.says("kernel release", release).says("catalogue", catalogue);
    EXPECT_EQ(explain(), mReport.remarking({noNode})) << content;
  }
}

// What a search in the catalogue finds stands in a line of the file, of which some hold no board.
TEST_F(Explain, CountsTheLinesOfTheCatalogue) {
  kernelIs("6.1.55-k3", "aarch64");
  mBoard.catalogue("# boards\n\nKestrel:1:k3\n");
  mReport.says("kernel release", "6.1.55-k3: 'k3' is an alias of 'Kestrel' in line 3")
      .says("catalogue",
            "/etc/known_ovx_ids: 1 board, 2 lines passed over ('ovxid check' tells why)")
      .identifiedBy("kernel release",
                    "'Kestrel', number 1: the kernel's release matches an alias in line 3.");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, KnowsOneOfSeveralBoardsOfOneNameAndNumber) {
  kernelIs("6.1.55-k3", "aarch64");
  mBoard.catalogue("Kestrel:1:k2\nKestrel:1:k3\n");
  mReport.says("kernel release", "6.1.55-k3: 'k3' is an alias of 'Kestrel' in line 2")
      .says("catalogue", "/etc/known_ovx_ids: 2 boards")
      .identifiedBy("kernel release",
                    "'Kestrel', number 1: the kernel's release matches an alias in line 2.");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

// A NUL byte ends the message that would tell the value.
TEST_F(Explain, KnowsTheBoardOfAHardwareValueWithANul) {
  mBoard.cpuinfo(bytes("Hardware: Kestrel\0\n")).catalogue(bytes("Other:1\nKestrel\0:5:x\n"));
  mReport.says("cpuinfo", "Hardware 'Kestrel\\0' is the name of the board in line 2")
      .says("catalogue", "/etc/known_ovx_ids: 2 boards")
      .identifiedBy("cpuinfo", "'Kestrel', number 5: the Hardware line matches line 2.");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, KnowsTheBoardOfAnAliasWithANulByNameAndNumber) {
  mBoard.cpuinfo(bytes("Hardware: k\0\n"));
  mBoard.catalogue(bytes("Gos:2\nKestrel:1\nKestrel:2:k\0\n"));
  mReport.says("cpuinfo", "Hardware 'k\\0' is an alias of 'Kestrel' in line 3")
      .says("catalogue", "/etc/known_ovx_ids: 3 boards")
      .identifiedBy("cpuinfo", "'Kestrel', number 2: the Hardware line matches line 3.");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, KnowsAHardwareValueThatANulBegins) {
  mBoard.cpuinfo(bytes("Hardware: \0k\n")).catalogue(bytes("\0k:5\n"));
  mReport.says("cpuinfo", "Hardware '\\0k' is the name of the board in line 1")
      .says("catalogue", "/etc/known_ovx_ids: 1 board")
      .identifiedBy("cpuinfo", "'', number 5: the Hardware line matches line 1.");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

struct HardwareCase {
  const char* name;
  std::string line;
  const char* shown;
  const char* catalogueLine;
  bool isEscaped;
};

void PrintTo(const HardwareCase& hardware, std::ostream* out) { *out << hardware.shown; }

class ExplainHardware : public Explain, public testing::WithParamInterface<HardwareCase> {};

TEST_P(ExplainHardware, GivesTheLineThatWouldMakeTheBoardKnown) {
  mBoard.cpuinfo("processor: 0\n" + GetParam().line + "\nHardware: another\n");
  mReport
      .says("cpuinfo", std::string("Hardware '") + GetParam().shown +
                           "': no name and no alias in the catalogue")
      .knownByLine(GetParam().catalogueLine +
                   std::string(GetParam().isEscaped
                                   ? "\nwhere the escapes stand for the bytes themselves."
                                   : ""));
  EXPECT_EQ(explain(), mReport.remarking({noNode}));
}

INSTANTIATE_TEST_SUITE_P(
    Of, ExplainHardware,
    testing::Values(
        HardwareCase{"AName", "Hardware\t: Kestrel Rev B", "Kestrel Rev B", "Kestrel Rev B:NUMBER",
                     false},
        HardwareCase{"ATab", "Hardware:\t\tKestrel", "\\tKestrel", "\\tKestrel:NUMBER", true},
        HardwareCase{"ABlankBefore", "Hardware:  Kestrel", " Kestrel", "NAME:NUMBER:\\x20Kestrel",
                     true},
        HardwareCase{"ABlankBehind", "Hardware: Kestrel ", "Kestrel ", "NAME:NUMBER:Kestrel\\x20",
                     true},
        HardwareCase{"BlanksOnBothSides", "Hardware:  Kestrel 2  ", " Kestrel 2  ",
                     "NAME:NUMBER:\\x20Kestrel 2\\x20\\x20", true},
        HardwareCase{"NothingButBlanks", "Hardware:   ", "  ", "NAME:NUMBER:\\x20\\x20", true},
        HardwareCase{"LettersOfAnyScript",
                     "Hardware: \xc3\xa4\xe2\x82\xac\xc2\x85\xe3\x80\x81\xf0\x9f\x92\xa1",
                     "\xc3\xa4\xe2\x82\xac\\xc2\\x85\xe3\x80\x81\xf0\x9f\x92\xa1",
                     "\xc3\xa4\xe2\x82\xac\\xc2\\x85\xe3\x80\x81\xf0\x9f\x92\xa1:NUMBER", true},
        HardwareCase{"WhatDoesNotShow", "Hardware: a\\0\xc2\xa0\xef\xbb\xbf\xe2\x80\x8b",
                     R"(a\\0\xc2\xa0\xef\xbb\xbf\xe2\x80\x8b)",
                     R"(a\\0\xc2\xa0\xef\xbb\xbf\xe2\x80\x8b:NUMBER)", true}),
    [](const auto& test) { return test.param.name; });

// A value, what is shown of it, and whether that is all.
struct LongCase {
  const char* name;
  std::string value;
  std::string shown;
  bool isCut;
};

void PrintTo(const LongCase& value, std::ostream* out) { *out << value.name; }

class ExplainLong : public ExplainNode, public testing::WithParamInterface<LongCase> {
 protected:
  std::string shown() const {
    const std::string size = std::to_string(GetParam().value.size());
    return "'" + GetParam().shown + "'" + (GetParam().isCut ? "... (" + size + " bytes)" : "");
  }
};

TEST_P(ExplainLong, IsShownInPartInARemark) {
  identify("12", "12");
  mBoard.property("a/label", GetParam().value).property("b/label", GetParam().value);
  EXPECT_EQ(explain(), mReport.remarking({"Programs see one 'OVX_LABEL', " + shown() +
                                          ": it is set by 'a/label' and 'b/label'."}));
}

TEST_P(ExplainLong, IsShownInPartInARowAndInALineForTheCatalogue) {
  mBoard.cpuinfo("Hardware: " + GetParam().value + "\n");
  mReport.says("cpuinfo", "Hardware " + shown() + ": no name and no alias in the catalogue")
      .knownByLine(GetParam().shown +
                   (GetParam().isCut
                        ? "...:NUMBER\nwhere '...' stands for the rest of the long value."
                        : ":NUMBER"));
  EXPECT_EQ(explain(), mReport.remarking({noNode}));
}

INSTANTIATE_TEST_SUITE_P(
    Value, ExplainLong,
    testing::Values(LongCase{"Of200Bytes", std::string(200, 'x'), std::string(200, 'x'), false},
                    LongCase{"Of201Bytes", std::string(201, 'x'), std::string(200, 'x'), true},
                    LongCase{"Of64KiB", std::string(65536, 'x'), std::string(200, 'x'), true},
                    LongCase{"ThatEndsInALetterOfTwoBytes", std::string(198, 'x') + "\xc3\xa4",
                             std::string(198, 'x') + "\xc3\xa4", false},
                    LongCase{"ThatGoesOnInALetterOfTwoBytes", std::string(199, 'x') + "\xc3\xa4",
                             std::string(199, 'x'), true}),
    [](const auto& test) { return test.param.name; });

TEST_F(Explain, EscapesWhatItShowsOfALongValue) {
  mBoard.cpuinfo("Hardware: " + std::string(300, '\x01') + "\n");
  std::string beginning;
  for (int i = 0; i < 200; ++i) {
    beginning += "\\x01";
  }
  mReport
      .says("cpuinfo",
            "Hardware '" + beginning + "'... (300 bytes): no name and no alias in the catalogue")
      .knownByLine(beginning +
                   "...:NUMBER\nwhere the escapes stand for the bytes themselves.\n"
                   "where '...' stands for the rest of the long value.");
  EXPECT_EQ(explain(), mReport.remarking({noNode}));
}

TEST_F(Explain, GivesTheLineOfTheReleaseAlone) {
  kernelIs("6.1.55-kestrel2", "aarch64");
  mBoard.cpuinfo("Hardware: Kestrel: Rev B\n");
  mReport
      .says("kernel release",
            "6.1.55-kestrel2: 'kestrel2' is no alias of the 3 boards in the catalogue")
      .says("cpuinfo", "Hardware 'Kestrel: Rev B': no name and no alias in the catalogue")
      .knownByLine("NAME:NUMBER:kestrel2");
  EXPECT_EQ(explain(), mReport.remarking({noNode}));
}

TEST_F(Explain, GivesNoLineThatTheCatalogueCannotHold) {
  kernelIs("6.1.55-k:2", "aarch64");
  mBoard.cpuinfo("Hardware\t: Kestrel: Rev B\n");
  mReport.says("kernel release", "6.1.55-k:2: 'k:2' is no alias of the 3 boards in the catalogue")
      .says("cpuinfo", "Hardware 'Kestrel: Rev B': no name and no alias in the catalogue")
      .notIdentified(
          "No line in /etc/known_ovx_ids could make it known:\n"
          "it takes a boardid in its device tree, or a kernel release that ends in '-' and an "
          "alias.\n"
          "(The end of the release has a colon, which no value in a catalogue can have.)\n"
          "(The Hardware value has a colon, which no value in a catalogue can have.)\n");
  EXPECT_EQ(explain(), mReport.remarking({noNode}));
}

TEST_F(Explain, GivesNoLineForAnEmptyHardwareValue) {
  mBoard.cpuinfo("Hardware\t: \n");
  mReport.says("cpuinfo", "Hardware '': no name and no alias in the catalogue");
  EXPECT_EQ(explain(), mReport.remarking({noNode}));
}

// The lines that the report gives, with a name and the number 7 in them.
std::vector<std::string> linesOf(const std::string& report) {
  std::vector<std::string> lines;
  std::istringstream text(report);
  for (std::string line; std::getline(text, line);) {
    if (line.rfind("  ", 0) == 0) {
      lines.push_back(line.substr(2));
      for (const auto& [word, value] : {std::pair("NAME", "Some"), {"NUMBER", "7"}}) {
        const auto at = lines.back().find(word);
        if (at != std::string::npos) {
          lines.back().replace(at, std::strlen(word), value);
        }
      }
    }
  }
  return lines;
}

TEST_F(Explain, GivesLinesThatMakeTheBoardKnown) {
  kernelIs("6.1.55-kestrel2", "aarch64");
  mBoard.cpuinfo("Hardware\t: Kestrel Rev B\n");
  const std::vector<std::string> lines = linesOf(explain().out);
  ASSERT_EQ(lines.size(), 2);
  for (const std::string& line : lines) {
    mBoard.catalogue(line + "\n");
    EXPECT_EQ(ovxid({"number"}), (Outcome{0, "7\n", ""}));
  }
}

TEST_F(Explain, PrintsTheMessagesOfTheIdentificationOnly) {
  mBoard.property("boardid", "12").property("wan", "eth9").catalogue("Merlin:1\n");
  EXPECT_EQ(ovxid({"-v", "explain"}).err, ovxid({"-v", "number"}).err);
}

}  // namespace
