#include <gtest/gtest.h>

#include <stdexcept>

#include "simulation/board.h"
#include "simulation/locale.h"

namespace {

TEST(Collection, OfAKnownBoardBeginsWithItsNumberAndName) {
  Board board;
  board.catalogue("Tessaryn TQB:3:tqb\n").kernelRelease("5.10.0-tqb");
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  EXPECT_EQ(listing(identifier), "OVX_ID=3\nOVX_DESC=Tessaryn TQB\n");
}

TEST(Collection, OfAnUnknownBoardBeginsWithTheDeviceTree) {
  Board board;
  board.property("wifi", "yes");
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  EXPECT_EQ(listing(identifier), "OVX_WIFI=yes\n");
}

TEST(Collection, OfAnUnknownBoardWithoutANodeIsEmpty) {
  Board board;
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  EXPECT_EQ(listing(identifier), "");
}

TEST(Collection, CountsNumberZeroAsKnown) {
  Board board;
  board.catalogue("Field Node:0:fn1\n").kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  EXPECT_EQ(listing(identifier), "OVX_ID=0\nOVX_DESC=Field Node\n");
}

TEST(Collection, LeavesOutANegativeNumberAndItsNameThoughTheBoardIsKnown) {
  Board board;
  board.catalogue("Field Node:-7:fn1\n").kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  EXPECT_EQ(identifier.getHardwareName(), "Field Node");
  EXPECT_EQ(listing(identifier), "");
}

TEST(Collection, WritesTheNumberWithoutGroupingInEveryLocale) {
  Board board;
  board.catalogue("Field Node:1234567:fn1\n").kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(nullptr);
  const GroupingLocale grouping;
  identifier.loadParams();
  EXPECT_EQ(listing(identifier), "OVX_ID=1234567\nOVX_DESC=Field Node\n");
}

TEST(Collection, KeepsTheNulByteOfTheName) {
  Board board;
  board.property("boardid", "7").property("description", bytes("Field Node\0"));
  OvxIdentifier identifier(nullptr);
  identifier.getHardwareName();
  board.remove(nodePath);
  identifier.parse_params();
  EXPECT_EQ(listing(identifier), bytes("OVX_ID=7\nOVX_DESC=Field Node\0\n"));
}

TEST(Collection, DoesNotDetermineTheIdentity) {
  Board board;
  board.property("boardid", "7");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messagesOf([&] { identifier.parse_params(); }), Messages{});
  EXPECT_EQ(listing(identifier), "OVX_BOARDID=7\n");
}

TEST(Collection, TakesNumberAndNameAsTheyStandOnAnUndeterminedIdentifierToo) {
  Board board;
  board.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(nullptr);
  identifier.determineIdentity();
  board.remove(nodePath).cpuinfo("Hardware\t:\n");
  EXPECT_THROW(identifier.determineIdentity(), std::out_of_range);
  identifier.parse_params();
  EXPECT_EQ(listing(identifier), "OVX_ID=7\nOVX_DESC=Field Node\n");
}

TEST(Collection, OfAPcWithoutANodeSearchesTheWanInterface) {
  Board board;
  board.machine("x86_64").address("lo", "127.0.0.1/8");
  board.interface("eth0", "02:42:ac:11:00:02").address("eth0", "10.0.0.1/24");
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  EXPECT_EQ(listing(identifier),
            "OVX_ID=64\nOVX_DESC=x86_64 PC\nOVX_WAN=eth0\nOVX_WAN_ID=242ffac1102\n");
}

TEST(Collection, OfAPcWithANodeDoesNotSearchTheWanInterface) {
  Board board;
  board.machine("x86_64").node();
  board.interface("eth0", "02:42:ac:11:00:02").address("eth0", "10.0.0.1/24");
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  EXPECT_EQ(listing(identifier), "OVX_ID=64\nOVX_DESC=x86_64 PC\n");
}

TEST(Collection, OfAnyBoardOfNumber64WithoutANodeSearchesTheWanInterface) {
  Board board;
  board.catalogue("Field Node:64:fn1\n").kernelRelease("5.10.0-fn1");
  board.interface("eth0", "02:42:ac:11:00:02").address("eth0", "10.0.0.1/24");
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  EXPECT_EQ(listing(identifier),
            "OVX_ID=64\nOVX_DESC=Field Node\nOVX_WAN=eth0\nOVX_WAN_ID=242ffac1102\n");
}

struct NumberCase {
  const char* name;
  const char* number;
};

void PrintTo(const NumberCase& number, std::ostream* out) { *out << number.number; }

class BoardWithoutANode : public testing::TestWithParam<NumberCase> {};

TEST_P(BoardWithoutANode, DoesNotSearchTheWanInterface) {
  Board board;
  const std::string number = GetParam().number;
  board.catalogue("Field Node:" + number + ":fn1\n").kernelRelease("5.10.0-fn1");
  board.interface("eth0", "02:42:ac:11:00:02").address("eth0", "10.0.0.1/24");
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  EXPECT_EQ(listing(identifier), "OVX_ID=" + number + "\nOVX_DESC=Field Node\n");
}

INSTANTIATE_TEST_SUITE_P(Of, BoardWithoutANode,
                         testing::Values(NumberCase{"ASmallNumber", "2"},
                                         NumberCase{"OneLessThanThePc", "63"},
                                         NumberCase{"OneMoreThanThePc", "65"},
                                         NumberCase{"TheLargestNumber", "2147483647"}),
                         [](const auto& test) { return test.param.name; });

TEST(Collection, OfAPcWithADeviceTreeThatLacksTheNodeSearchesTheWanInterface) {
  Board board;
  board.machine("x86_64").file("/proc/device-tree/model", "PC");
  board.interface("eth0", "02:42:ac:11:00:02").address("eth0", "10.0.0.1/24");
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  EXPECT_EQ(listing(identifier),
            "OVX_ID=64\nOVX_DESC=x86_64 PC\nOVX_WAN=eth0\nOVX_WAN_ID=242ffac1102\n");
}

TEST(Collection, LeavesOutWhatStandsBesideTheNode) {
  Board board;
  board.property("wifi", "yes").file("/proc/device-tree/model", "Field Node");
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  EXPECT_EQ(listing(identifier), "OVX_WIFI=yes\n");
}

TEST(Collection, LogsNothingOnAPc) {
  Board board;
  board.machine("x86_64").interface("eth0", "02:42:ac:11:00:02").address("eth0", "10.0.0.1/24");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(board.messagesOf([&] { identifier.parse_params(); }), Messages{});
}

TEST(Collection, TakesTheWanInterfaceOfTheDeviceTree) {
  Board board;
  board.property("wan", bytes("eth1\0"));
  board.interface("eth1", "02:42:ac:11:00:02");
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  EXPECT_EQ(listing(identifier), bytes("OVX_WAN=eth1\0\nOVX_WAN_ID=242ffac1102\n"));
}

TEST(Collection, GivesThePropertiesIdAndDescAfterTheIdentitysOwn) {
  Board board;
  board.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(nullptr);
  identifier.getHardwareName();
  board.remove(nodePath).property("id", "8");
  identifier.parse_params();
  EXPECT_EQ(listing(identifier), "OVX_ID=7\nOVX_DESC=Field Node\nOVX_ID=8\n");
  board.remove(nodePath).property("desc", "Bench Unit");
  identifier.parse_params();
  EXPECT_EQ(listing(identifier),
            "OVX_ID=7\nOVX_DESC=Field Node\nOVX_ID=8\n"
            "OVX_ID=7\nOVX_DESC=Field Node\nOVX_DESC=Bench Unit\n");
}

TEST(Collection, CalledTwiceAppendsASecondSet) {
  Board board;
  board.machine("x86_64");
  board.interface("eth0", "02:42:ac:11:00:02").address("eth0", "10.0.0.1/24");
  OvxIdentifier identifier(nullptr);
  identifier.loadParams();
  const std::string once = listing(identifier);
  identifier.loadParams();
  EXPECT_EQ(listing(identifier), once + once);
}

}  // namespace
