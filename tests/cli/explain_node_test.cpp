#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/explanation.h"

// What is remarked on the system and on the node of the device tree.

namespace {

constexpr const char* noBoardid = "The node /orvanix has no boardid.";

TEST_F(Explain, TellsThatProcIsNotMounted) {
  mBoard.remove("/proc/device-tree").remove("/proc/cpuinfo");
  mReport.says("cpuinfo", "/proc/cpuinfo: No such file or directory");
  EXPECT_EQ(explain(), mReport.remarking({"/proc has neither cpuinfo nor a device tree: it is not "
                                          "mounted, or shows processes only."}));
}

TEST_F(Explain, TellsThatThereIsNoDeviceTree) {
  mBoard.remove("/proc/device-tree");
  EXPECT_EQ(explain(), mReport.remarking({"There is no /proc/device-tree: this kernel has no "
                                          "device tree, or a container hides it."}));
}

TEST_F(Explain, TellsThatThereIsNoNode) {
  EXPECT_EQ(explain(), mReport.remarking({"The device tree has no node /orvanix."}));
}

TEST_F(Explain, TellsThatThereIsNoCpuinfo) {
  mBoard.remove("/proc/cpuinfo");
  mReport.says("cpuinfo", "/proc/cpuinfo: No such file or directory");
  EXPECT_EQ(explain(),
            mReport.remarking({"There is no /proc/cpuinfo: a container hides it.", noNode}));
}

TEST_F(Explain, TellsThatTheHardwareLineHasNoColon) {
  mBoard.cpuinfo("Hardware Kestrel\n");
  mReport.says("cpuinfo", "Hardware 'ardware Kestrel': no name and no alias in the catalogue")
      .knownByLine("ardware Kestrel:NUMBER");
  EXPECT_EQ(explain(), mReport.remarking({noNode,
                                          "The Hardware line has no colon: all but its "
                                          "first letter is taken for its value."}));
}

TEST_F(Explain, TellsThatTheCatalogueCannotBeRead) {
  mBoard.directory("/etc/known_ovx_ids");
  mReport.says("catalogue", "/etc/known_ovx_ids: Is a directory");
  EXPECT_EQ(explain(),
            mReport.remarking({noNode, "/etc/known_ovx_ids cannot be read: Is a directory."}));
}

TEST_F(Explain, TellsThatCpuinfoCannotBeRead) {
  mBoard.remove("/proc/cpuinfo").directory("/proc/cpuinfo");
  mReport.says("cpuinfo", "/proc/cpuinfo: Is a directory");
  EXPECT_EQ(explain(),
            mReport.remarking({noNode, "/proc/cpuinfo cannot be read: Is a directory."}));
}

// That a board has what it does not need is not remarked.
TEST_F(ExplainKestrel, MissesNothingThatTheBoardDoesNotNeed) {
  mBoard.remove("/proc/cpuinfo");
  mReport.says("cpuinfo", "/proc/cpuinfo: No such file or directory");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(ExplainKestrel, SaysNothingOfAHardwareLineWithoutAColonThatWasNotTried) {
  mBoard.cpuinfo("Hardware Kestrel\n");
  mReport.says("cpuinfo", "Hardware 'ardware Kestrel': no name and no alias in the catalogue");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

struct BoardidCase {
  const char* name;
  std::string boardid;
  const char* number;
  std::vector<std::string> remarks;
};

void PrintTo(const BoardidCase& boardid, std::ostream* out) { *out << boardid.name; }

class ExplainBoardid : public ExplainNode, public testing::WithParamInterface<BoardidCase> {};

TEST_P(ExplainBoardid, TellsWhatIsMadeOfIt) {
  identify(GetParam().boardid, GetParam().number);
  EXPECT_EQ(explain(), mReport.remarking(GetParam().remarks));
}

constexpr const char* belowZero = "With a number below 0, there is no OVX_ID and no OVX_DESC.";
constexpr const char* further =
    "The boardid is read only as far as its decimal digits go. The number is ";

INSTANTIATE_TEST_SUITE_P(
    Of, ExplainBoardid,
    testing::Values(
        BoardidCase{"ANumber", "12", "12", {}}, BoardidCase{"Zero", bytes("0\0"), "0", {}},
        BoardidCase{"ASign", "+5", "5", {}}, BoardidCase{"BlanksAround", " 12\n", "12", {}},
        BoardidCase{"TheLargest", bytes("2147483647\0"), "2147483647", {}},
        BoardidCase{"BelowZero", bytes("-3\n"), "-3", {belowZero}},
        BoardidCase{"TheSmallest", "-2147483648", "-2147483648", {belowZero}},
        BoardidCase{"Nothing", "", "-1", {"The boardid is empty. The number is -1.", belowZero}},
        BoardidCase{
            "Blanks", " \n", "-1", {"The boardid is white space. The number is -1.", belowZero}},
        BoardidCase{
            "Letters", "kestrel", "0", {"The boardid is no decimal number. The number is 0."}},
        BoardidCase{"ASignAlone", "-", "0", {"The boardid is no decimal number. The number is 0."}},
        BoardidCase{"OneTooMuch",
                    "2147483648",
                    "2147483647",
                    {"The boardid is out of range. The number is 2147483647."}},
        BoardidCase{"TooLittle",
                    bytes("-2147483649\0"),
                    "-2147483648",
                    {"The boardid is out of range. The number is -2147483648.", belowZero}},
        BoardidCase{"FarTooMuch",
                    "99999999999999999999999",
                    "2147483647",
                    {"The boardid is out of range. The number is 2147483647."}},
        BoardidCase{"Hexadecimal", bytes("0x11\0"), "0", {further + std::string("0.")}},
        BoardidCase{"AList", bytes("12\0rev\0"), "12", {further + std::string("12.")}},
        BoardidCase{"APc",
                    "64",
                    "64",
                    {"The boardid is 64, the number that means a PC.",
                     "The node /orvanix has no property 'wan': there is no OVX_WAN, and no "
                     "interface is searched for."}},
        BoardidCase{"ACell",
                    bytes("\0\0\0\x0c"),
                    "0",
                    {"The boardid is of cells, but is read as text: write boardid = \"12\" in the "
                     "device tree. The number is 0."}},
        BoardidCase{"ACellOfFourBytes",
                    bytes("\0\x01\x02\xff"),
                    "0",
                    {"The boardid is of cells, but is read as text: write boardid = \"66303\" in "
                     "the device tree. The number is 0."}},
        BoardidCase{"SeveralCells",
                    bytes("\0\0\0\0\0\0\0\x0c"),
                    "0",
                    {"The boardid is of cells, but is read as text. The number is 0."}}),
    [](const auto& test) { return test.param.name; });

struct DescriptionCase {
  const char* name;
  std::string description;
  const char* seen;
  std::vector<std::string> remarks;
};

void PrintTo(const DescriptionCase& description, std::ostream* out) { *out << description.name; }

class ExplainDescription : public ExplainNode,
                           public testing::WithParamInterface<DescriptionCase> {};

TEST_P(ExplainDescription, TellsWhatIsMadeOfIt) {
  identify("12", "12", GetParam().description, GetParam().seen);
  EXPECT_EQ(explain(), mReport.remarking(GetParam().remarks));
}

constexpr const char* emptyDescription = "The description is empty, and so is the name.";
constexpr const char* firstLine = "Only the first line of the description is the name.";
constexpr const char* firstText =
    "Programs see the name only as far as the first NUL byte of the description.";
constexpr const char* cut =
    "The property 'description' is cut at its newline: it sets 'OVX_DESCRIPTION' to 'Kestrel'.";

INSTANTIATE_TEST_SUITE_P(
    Of, ExplainDescription,
    testing::Values(
        DescriptionCase{"ANewlineAtTheEnd", bytes("Kestrel\n\0"), "Kestrel", {}},
        DescriptionCase{"Nothing", "", "", {emptyDescription}},
        DescriptionCase{"ANul", bytes("\0"), "", {emptyDescription}},
        DescriptionCase{"TwoNuls", bytes("\0\0"), "", {emptyDescription}},
        DescriptionCase{"NulsAtTheEnd", bytes("Kestrel\0\0"), "Kestrel", {}},
        DescriptionCase{"TwoLines", "Kestrel\nB", "Kestrel", {firstLine, cut}},
        DescriptionCase{
            "TwoLinesThatEnd", bytes("Kestrel\nRev B\n\0"), "Kestrel", {firstLine, cut}},
        DescriptionCase{"TwoTexts", bytes("Kestrel\0Rev B\0"), "Kestrel", {firstText}},
        DescriptionCase{"TwoTextsAndANul", bytes("Kestrel\0Rev B\0\0"), "Kestrel", {firstText}},
        DescriptionCase{"ACell",
                        bytes("\0\0\0\x0c"),
                        "",
                        {"The description is of cells, but is read as text: the name is empty."}}),
    [](const auto& test) { return test.param.name; });

// Of a boardid, no more is kept than people need.
TEST_F(ExplainNode, ShowsTheBeginningOfALongBoardid) {
  mBoard.property("boardid", std::string(70000, ' ') + "12").property("description", "Kestrel");
  const Outcome outcome = explain();
  EXPECT_THAT(outcome.out, testing::HasSubstr("This board is 'Kestrel', number 12"));
}

TEST_F(ExplainNode, TellsThatTheDescriptionIsMissing) {
  identify("12", "12");
  mBoard.remove("/proc/device-tree/orvanix/description");
  mReport.says("device tree", "boardid '12', description: No such file or directory")
      .identifiedBy("device tree", "'Unknown', number 12: the device tree says so.");
  EXPECT_EQ(explain(),
            mReport.remarking({"There is no description, so the name stays 'Unknown'."}));
}

TEST_F(ExplainKestrel, TellsOfADescriptionThatCannotBeRead) {
  mBoard.permissions("/proc/device-tree/orvanix/description", 0);
  obeysModes();
  mReport.says("device tree", "boardid '12\\0', description: Permission denied")
      .identifiedBy("device tree", "'Unknown', number 12: the device tree says so.");
  EXPECT_EQ(
      explain(),
      mReport.remarking({"/proc/device-tree/orvanix/description cannot be read: Permission denied.",
                         "The property 'description' cannot be read (Permission denied): it sets "
                         "'OVX_DESCRIPTION' to ''."}));
}

TEST_F(ExplainKestrel, TellsThatADirectoryIdentifiesTheBoard) {
  mBoard.remove("/proc/device-tree/orvanix/boardid").childNode("boardid");
  mReport.says("device tree", "/proc/device-tree/orvanix/boardid: Is a directory")
      .identifiedBy("device tree", "'Kestrel', number -1: the device tree says so.");
  EXPECT_EQ(explain(),
            mReport.remarking({"/proc/device-tree/orvanix/boardid cannot be read: Is a directory.",
                               "That there is a boardid identifies the board, whatever it is.",
                               belowZero}));
}

TEST_F(Explain, TellsThatTheBoardidCannotBeRead) {
  mBoard.property("boardid", "12").property("description", "Kestrel");
  mBoard.permissions("/proc/device-tree/orvanix/boardid", 0);
  obeysModes();
  mReport.says("device tree", "/proc/device-tree/orvanix/boardid: Permission denied");
  EXPECT_EQ(explain(), mReport.remarking(
                           {"/proc/device-tree/orvanix/boardid cannot be read: Permission denied.",
                            "The property 'boardid' cannot be read (Permission denied): it sets "
                            "'OVX_BOARDID' to ''."}));
}

TEST_F(Explain, TellsThatTheNodeHasNoBoardid) {
  mBoard.property("site", "north gate");
  EXPECT_EQ(explain(), mReport.remarking({noBoardid}));
}

TEST_F(Explain, TellsThatTheDescriptionAloneDoesNotIdentify) {
  mBoard.property("description", "Kestrel");
  EXPECT_EQ(explain(),
            mReport.remarking({"The description does not identify a board without a boardid."}));
}

TEST_F(Explain, MissesNoBoardidOnABoardThatIsIdentified) {
  mBoard.property("site", "north gate").cpuinfo("Hardware: Kestrel\n").catalogue("Kestrel:12\n");
  mReport.says("cpuinfo", "Hardware 'Kestrel' is the name of the board in line 1")
      .says("catalogue", "/etc/known_ovx_ids: 1 board")
      .identifiedBy("cpuinfo", "'Kestrel', number 12: the Hardware line matches line 1.");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(Explain, TellsOfAMisspeltNode) {
  mBoard.directory("/proc/device-tree/orvanics").directory("/proc/device-tree/cpus");
  EXPECT_EQ(explain(),
            mReport.remarking(
                {noNode, "The device tree has a node 'orvanics', but 'orvanix' is looked for."}));
}

TEST_F(Explain, TellsOfMisspeltProperties) {
  mBoard.property("boardID", "12").property("descripton", "Kestrel").property("site", "gate");
  EXPECT_EQ(explain(),
            mReport.remarking(
                {noBoardid, "The node has a property 'boardID', but 'boardid' is looked for.",
                 "The node has a property 'descripton', but 'description' is looked for."}));
}

TEST_F(ExplainKestrel, TellsOfNoPropertyThatIsCalledAlmostAsOneThatIsThere) {
  mBoard.property("board-id", bytes("3\0")).property("descriptions", bytes("Merlin\0"));
  EXPECT_EQ(explain(), mReport.remarking({"Shells cannot have variables named 'OVX_BOARD-ID'."}));
}

}  // namespace
