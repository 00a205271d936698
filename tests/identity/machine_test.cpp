#include <gtest/gtest.h>

#include "identity/determination_messages.h"
#include "simulation/board.h"

namespace {

TEST(Pc, IsTheMachineX86_64WhenTheReleaseHasNoHyphen) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .kernelRelease("5.10.0")
      .machine("x86_64");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true), unameMessages("5.10.0"));
  EXPECT_EQ(report(board, identifier), reportOf("x86_64 PC", 64, ""));
}

TEST(Pc, IsTheMachineX86_64WhenTheReleaseIsEmpty) {
  Board board;
  board.kernelRelease("").machine("x86_64");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true), unameMessages(""));
  EXPECT_EQ(identifier.getHardwareNumber(), 64);
}

TEST(Pc, IsTheMachineX86_64WhenNoAliasMatches) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-amd64").machine("x86_64");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            unameMessages("5.10.0-amd64") + debug("therefore possible alias of machine = 'amd64'") +
                debug("Searching known aliases of Field Node..."));
  EXPECT_EQ(identifier.getHardwareName(), "x86_64 PC");
}

TEST(Pc, ComesBeforeCpuinfo) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .machine("x86_64")
      .cpuinfo("Hardware\t: Field Node\n");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(identifier.getHardwareName(), "x86_64 PC");
}

TEST(Pc, NeedsNoCatalogue) {
  Board board;
  board.catalogue("").kernelRelease("5.10.0-fn2").machine("x86_64");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  EXPECT_EQ(identifier.getHardwareNumber(), 64);
}

struct MachineCase {
  const char* name;
  const char* machine;
};

void PrintTo(const MachineCase& other, std::ostream* out) {
  *out << testing::PrintToString(other.machine);
}

class OtherMachine : public testing::TestWithParam<MachineCase> {};

TEST_P(OtherMachine, IsNoPc) {
  Board board;
  board.machine(GetParam().machine);
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

INSTANTIATE_TEST_SUITE_P(Of, OtherMachine,
                         testing::Values(MachineCase{"NoName", ""},
                                         MachineCase{"TheNameAmd64", "amd64"},
                                         MachineCase{"TheNameI686", "i686"},
                                         MachineCase{"AShorterName", "x86_6"},
                                         MachineCase{"ALongerName", "x86_64v2"},
                                         MachineCase{"ANameInCapitals", "X86_64"},
                                         MachineCase{"ANameBehindABlank", " x86_64"}),
                         [](const auto& test) { return test.param.name; });

TEST(Pc, KeepsTheAliasesOfAnEarlierDetermination) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .kernelRelease("5.10.0-fn1")
      .machine("x86_64");
  OvxIdentifier identifier(board.logger());
  identifier.determineIdentity();
  board.kernelRelease("5.10.0");
  identifier.determineIdentity();
  EXPECT_EQ(report(board, identifier), reportOf("x86_64 PC", 64, "fn1 fn2 "));
}

TEST(FailedUname, WarnsAndGoesOnWithCpuinfoEvenOnAPc) {
  Board board;
  board.catalogue("Field Node:3:fn1:fn2\nBench Unit:9:Field Node\n")
      .kernelRelease("5.10.0-fn1")
      .machine("x86_64")
      .unameFails();
  board.cpuinfo("Hardware\t: Bench Unit\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(determination(board, identifier, true),
            missingNodeMessages() + debug("Attempting to find alias by uname") +
                warn("There was a problem with uname, continuing") + cpuinfoBegins +
                debug("Cpuinfo line: Hardware\t: Bench Unit") + debug("Found Hardware field...") +
                debug("Found possisble alias: 'Bench Unit'") +
                debug("Searching known real names..."));
  EXPECT_EQ(report(board, identifier), reportOf("Bench Unit", 9, "Field Node "));
}

}  // namespace
