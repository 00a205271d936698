#include <gtest/gtest.h>

#include <limits>

#include "identity/determination_messages.h"
#include "simulation/board.h"
#include "simulation/descriptors.h"
#include "simulation/locale.h"
#include "simulation/privileges.h"

namespace {

const std::string boardidPath = std::string(nodePath) + "/boardid";
const std::string descriptionPath = std::string(nodePath) + "/description";

TEST(DeviceTreeIdentity, IsTheNumberOfBoardidAndTheFirstLineOfDescription) {
  Board board;
  board.property("boardid", "7\n").property("description", "Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            (Messages{debug("Attempting to find alias by DT")}));
  EXPECT_EQ(identifier.getHardwareNumber(), 7);
  EXPECT_EQ(identifier.getHardwareName(), "Field Node");
}

TEST(DeviceTreeIdentity, AddsNoAliases) {
  Board board;
  board.property("boardid", "7\n").property("description", "Field Node\n");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier), reportOf("Field Node", 7, ""));
}

TEST(DeviceTreeIdentity, IsNotLookedUpInTheCatalogue) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-fn1");
  board.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(identifier.getHardwareNumber(), 7);
  EXPECT_EQ(board.messages().back(), debug("Aliases: "));
}

TEST(DeviceTreeIdentity, WithoutDescriptionKeepsTheNameUnknown) {
  Board board;
  board.property("boardid", "7");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            (Messages{debug("Attempting to find alias by DT"),
                      debug("Could not open /proc/device-tree/orvanix/description ")}));
  EXPECT_EQ(identifier.getHardwareNumber(), 7);
  EXPECT_EQ(identifier.getHardwareName(), "Unknown");
}

TEST(DeviceTreeIdentity, WithoutBoardidLeavesTheNameToTheNextSource) {
  Board board;
  board.catalogue("Bench Unit:9:bu\n").kernelRelease("5.10.0-bu");
  board.property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            (Messages{debug("Attempting to find alias by DT"),
                      debug("Could not open /proc/device-tree/orvanix/boardid "),
                      debug("Attempting to find alias by uname"), debug("No problems with uname"),
                      debug("uts.release= 5.10.0-bu"),
                      debug("therefore possible alias of machine = 'bu'"),
                      debug("Searching known aliases of Bench Unit..."),
                      debug("Alias: bu is an alias of identity: Bench Unit")}));
  EXPECT_EQ(identifier.getHardwareName(), "Bench Unit");
}

TEST(DeviceTreeIdentity, WithoutBoardidLeavesNoNameOnAnUnknownBoard) {
  Board board;
  board.property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
  EXPECT_EQ(report(board, identifier), reportOfUnknown());
}

struct BoardidCase {
  const char* name;
  std::string content;
  std::int32_t number;
};

void PrintTo(const BoardidCase& boardid, std::ostream* out) {
  *out << testing::PrintToString(boardid.content);
}

class Boardid : public testing::TestWithParam<BoardidCase> {};

TEST_P(Boardid, DeterminesTheBoard) {
  Board board;
  board.property("boardid", GetParam().content);
  OvxIdentifier identifier(board.logger());
  EXPECT_TRUE(identifier.determineIdentity());
  EXPECT_EQ(identifier.getHardwareNumber(), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    With, Boardid,
    testing::Values(BoardidCase{"NothingLeavesTheNumber", "", -1},
                    BoardidCase{"WhiteSpaceLeavesTheNumber", " \t\r\n\v\f ", -1},
                    BoardidCase{"LettersGivesZero", "abc\n", 0},
                    BoardidCase{"ASignAloneGivesZero", "-\n", 0},
                    BoardidCase{"ANulByteGivesZero", bytes("\0"), 0},
                    BoardidCase{"ANumberAndANulByteGivesTheNumber", bytes("7\0"), 7},
                    BoardidCase{"LeadingWhiteSpaceSkipsIt", "\n\t 12\n", 12},
                    BoardidCase{"APlusSignGivesThePositiveNumber", "+5", 5},
                    BoardidCase{"AMinusSignGivesTheNegativeNumber", "-3", -3},
                    BoardidCase{"TrailingTextIgnoresIt", "7 mains", 7},
                    BoardidCase{"AHexadecimalNumberStopsAtTheX", "0x1F", 0},
                    BoardidCase{"LeadingZerosStaysDecimal", "010", 10},
                    BoardidCase{"TheLargestNumberKeepsIt", "2147483647", 2147483647},
                    BoardidCase{"OneMoreGivesTheLargestNumber", "2147483648", 2147483647},
                    BoardidCase{"TheSmallestNumberKeepsIt", "-2147483648",
                                std::numeric_limits<std::int32_t>::min()},
                    BoardidCase{"OneLessGivesTheSmallestNumber", "-2147483649",
                                std::numeric_limits<std::int32_t>::min()},
                    BoardidCase{"FarTooManyDigitsGivesTheLargestNumber",
                                "99999999999999999999999999", 2147483647}),
    [](const auto& test) { return test.param.name; });

TEST(DeviceTreeIdentity, ReadsTheNumberTheSameWayInEveryLocale) {
  Board board;
  board.property("boardid", "1.234");
  OvxIdentifier identifier(board.logger());
  const GroupingLocale grouping;
  identifier.determineIdentity();
  EXPECT_EQ(identifier.getHardwareNumber(), 1);
}

TEST(DeviceTreeIdentity, CountsWhenBoardidIsADirectory) {
  Board board;
  board.childNode("boardid").property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  EXPECT_TRUE(identifier.determineIdentity());
  EXPECT_EQ(identifier.getHardwareNumber(), -1);
  EXPECT_EQ(identifier.getHardwareName(), "Field Node");
}

TEST(DeviceTreeIdentity, DoesNotCountWhenBoardidMayNotBeRead) {
  Board board;
  board.property("boardid", "7").permissions(boardidPath, 0);
  OvxIdentifier identifier(board.logger());
  const DroppedPrivileges dropped;
  EXPECT_EQ(determination(board, identifier, false).at(1),
            debug("Could not open /proc/device-tree/orvanix/boardid "));
}

TEST(DeviceTreeIdentity, IsPassedOverWhenItFindsNoFreeDescriptor) {
  Board board;
  board.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(board.logger());
  const FreeDescriptors none(0);
  EXPECT_EQ(determination(board, identifier, false),
            unameMessages("5.10.0") + cpuinfoBegins + cpuinfoMissing + failed);
}

struct DescriptionCase {
  const char* name;
  std::string content;
  std::string boardName;
};

void PrintTo(const DescriptionCase& description, std::ostream* out) {
  *out << testing::PrintToString(description.content);
}

class Description : public testing::TestWithParam<DescriptionCase> {};

TEST_P(Description, GivesTheName) {
  Board board;
  board.property("boardid", "7").property("description", GetParam().content);
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(identifier.getHardwareName(), GetParam().boardName);
}

INSTANTIATE_TEST_SUITE_P(
    With, Description,
    testing::Values(DescriptionCase{"ANewlineWithoutIt", "Field Node\n", "Field Node"},
                    DescriptionCase{"NoNewlineWhole", "Field Node", "Field Node"},
                    DescriptionCase{"ANulByteAndNoNewlineOfElevenCharacters", bytes("Field Node\0"),
                                    bytes("Field Node\0")},
                    DescriptionCase{"NulBytesInTheMiddleWithThem", bytes("a\0b\nc"), bytes("a\0b")},
                    DescriptionCase{"ACarriageReturnWithIt", "Field Node\r\n", "Field Node\r"},
                    DescriptionCase{"BlanksAroundItWithThem", " Field Node \n", " Field Node "},
                    DescriptionCase{"SeveralLinesAsTheFirst", "Field Node\nsecond\n", "Field Node"},
                    DescriptionCase{"AnEmptyFirstLineEmpty", "\nsecond\n", ""},
                    DescriptionCase{"NothingEmpty", "", ""}),
    [](const auto& test) { return test.param.name; });

TEST(DeviceTreeIdentity, HasAnEmptyNameWhenDescriptionIsADirectory) {
  Board board;
  board.property("boardid", "7").childNode("description");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(identifier.getHardwareName(), "");
}

TEST(DeviceTreeIdentity, KeepsTheNameUnknownWhenDescriptionMayNotBeRead) {
  Board board;
  board.property("boardid", "7")
      .property("description", "Field Node")
      .permissions(descriptionPath, 0);
  OvxIdentifier identifier(board.logger());
  const DroppedPrivileges dropped;
  EXPECT_EQ(determination(board, identifier, true),
            (Messages{debug("Attempting to find alias by DT"),
                      debug("Could not open /proc/device-tree/orvanix/description ")}));
  EXPECT_EQ(identifier.getHardwareName(), "Unknown");
}

}  // namespace
