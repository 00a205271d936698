#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/sockios.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

#include "cli/explanation.h"

// What is remarked on parameters.

namespace {

class ExplainParameters : public ExplainKestrel {};

std::string seenInPart(const std::string& variables) {
  return "Of cells and of lists of texts, programs see only what stands before the first NUL "
         "byte: " +
         variables + ".";
}

TEST_F(ExplainParameters, SaysNothingOfPropertiesThatProgramsSeeAsTheyAre) {
  mBoard.interface("eth0", "02:42:ac:11:00:02").property("wan", bytes("eth0\0"));
  mBoard.property("site", "north gate").property("card@1/relay/label", bytes("left\0"));
  mBoard.property("card@1/rev", "B\n").property("flag", "").property("note", bytes("new\n\0"));
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

// The kernel gives each node a file of this name, which is no property of it.
TEST_F(ExplainParameters, OverlooksTheNamesOfNodes) {
  mBoard.property("name", "or\nvanix").property("radio/name", "radio").property("radio/band", "5");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(ExplainParameters, OverlooksLinksThatLeadNowhere) {
  mBoard.link("a-link", "/nowhere").link("id", "/nowhere");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(ExplainParameters, FollowsLinksToProperties) {
  mBoard.property("site", "hall").link("a-link", "site");
  EXPECT_EQ(explain(), mReport.remarking({"Shells cannot have variables named 'OVX_A-LINK'."}));
}

TEST_F(ExplainParameters, TellsOfANodeThatCannotBeRead) {
  mBoard.property("a-node/key", "x").permissions("/proc/device-tree/orvanix/a-node", 0);
  obeysModes();
  EXPECT_EQ(explain(), mReport.remarking({"'/proc/device-tree/orvanix/a-node' cannot be read: what "
                                          "is in it gives no parameters."}));
}

TEST_F(ExplainParameters, TellsOfAPropertyThatCannotBeRead) {
  // Not even root opens a socket.
  const sockaddr_un secret{AF_UNIX, "/proc/device-tree/orvanix/secret"};
  const int bound = socket(AF_UNIX, SOCK_DGRAM, 0);
  ASSERT_EQ(bind(bound, reinterpret_cast<const sockaddr*>(&secret), sizeof secret), 0);
  EXPECT_EQ(explain(), mReport.remarking({"The property 'secret' cannot be read (No such device or "
                                          "address): it sets 'OVX_SECRET' to ''."}));
  close(bound);
}

TEST_F(Explain, TellsThatTheNodeItselfCannotBeRead) {
  mBoard.property("site", "hall").permissions(nodePath, 0);
  obeysModes();
  EXPECT_THAT(explain().out,
              testing::HasSubstr("\n- '/proc/device-tree/orvanix' cannot be read: what is in it "
                                 "gives no parameters.\n"));
}

TEST_F(ExplainParameters, TellsOfPropertiesThatAreCutAtANewline) {
  mBoard.property("card@1/notice", "first\ns").property("text", "\nx");
  mBoard.property("slots", bytes("\0\0\0\n")).property("mask", bytes("\n\0\0\0"));
  mBoard.property("pins", bytes("\0\0\0\n\0\0\0\0"));
  EXPECT_EQ(
      explain(),
      mReport.remarking(
          {"The property 'mask' is cut at its newline: it sets 'OVX_MASK' to ''.",
           "The property 'card@1/notice' is cut at its newline: it sets 'OVX_NOTICE' to 'first'.",
           "The property 'pins' is cut at its newline: it sets 'OVX_PINS' to '\\0\\0\\0'.",
           "The property 'slots' is cut at its newline: it sets 'OVX_SLOTS' to '\\0\\0\\0'.",
           "The property 'text' is cut at its newline: it sets 'OVX_TEXT' to ''.",
           seenInPart("'OVX_PINS' and 'OVX_SLOTS'")}));
}

TEST_F(ExplainParameters, TellsOfValuesThatProgramsSeeInPart) {
  mBoard.property("gates", bytes("north\0south\0"))
      .property("speed", bytes("\0\0\0\0"))
      .property("site", bytes("hall\0\0"))
      .property("room", "7")
      .property("none", bytes("\0"))
      .property("half", bytes("\0\0"));
  EXPECT_EQ(explain(), mReport.remarking({seenInPart("'OVX_GATES', 'OVX_HALF' and 'OVX_SPEED'")}));
}

TEST_F(ExplainParameters, TellsOfAVariableThatIsSeenInPartOnce) {
  mBoard.property("a/gates", bytes("north\0south\0")).property("b/gates", bytes("north\0west\0"));
  EXPECT_EQ(explain(),
            mReport.remarking(
                {"Programs see one 'OVX_GATES', 'north': it is set by 'a/gates' and 'b/gates'.",
                 seenInPart("'OVX_GATES'")}));
}

TEST_F(ExplainParameters, TellsOfPropertiesThatOverwriteTheIdentity) {
  mBoard.property("id", "7").property("desc", "x");
  EXPECT_EQ(explain(),
            mReport.remarking(
                {"Programs see one 'OVX_DESC', 'x': it is set by the identity and by 'desc'.",
                 "Programs see one 'OVX_ID', '7': it is set by the identity and by 'id'."}));
}

TEST_F(ExplainNode, TellsOfAPropertyThatOverwritesTheNumberZero) {
  identify("0", "0");
  mBoard.property("id", "7");
  EXPECT_EQ(explain(), mReport.remarking({"Programs see one 'OVX_ID', '7': it is set by the "
                                          "identity and by 'id'."}));
}

TEST_F(ExplainNode, TellsWhatANegativeNumberLeavesOut) {
  identify("-12", "-12");
  mBoard.property("desc", "x");
  EXPECT_EQ(explain(), mReport.remarking({"With a number below 0, there is no OVX_ID.",
                                          "Programs see 'OVX_DESC', 'x', which is set by 'desc', "
                                          "not by the identity."}));
  mBoard.remove("/proc/device-tree/orvanix/desc").property("id", "7");
  EXPECT_EQ(explain(), mReport.remarking({"With a number below 0, there is no OVX_DESC.",
                                          "Programs see 'OVX_ID', '7', which is set by 'id', not "
                                          "by the identity."}));
}

TEST_F(ExplainNode, SaysNothingOfWhatIsLeftOutWherePropertiesStandInForTheIdentity) {
  identify("-12", "-12");
  mBoard.property("desc", "x").property("id", "7");
  EXPECT_EQ(explain(),
            mReport.remarking(
                {"Programs see 'OVX_DESC', 'x', which is set by 'desc', not by the identity.",
                 "Programs see 'OVX_ID', '7', which is set by 'id', not by the identity."}));
}

TEST_F(Explain, TellsOfPropertiesThatStandInForTheIdentity) {
  mBoard.property("a/id", "7").property("b/id", "7").property("desc", "x");
  mBoard.property("a/label", "y").property("b/label", "y");
  EXPECT_EQ(explain(),
            mReport.remarking(
                {"The node /orvanix has no boardid.",
                 "Programs see 'OVX_DESC', 'x', which is set by 'desc', not by the "
                 "identity.",
                 "Programs see 'OVX_ID', '7', which is set by 'a/id' and 'b/id', not "
                 "by the identity.",
                 "Programs see one 'OVX_LABEL', 'y': it is set by 'a/label' and 'b/label'."}));
}

TEST_F(ExplainParameters, TellsOfPropertiesThatOverwriteEachOther) {
  mBoard.property("a/label", "x").property("b/label", "x").property("c/LABEL", "x");
  mBoard.property("a/serial", "y").property("serial", "y");
  EXPECT_EQ(explain(),
            mReport.remarking(
                {"Programs see one 'OVX_LABEL', 'x': it is set by 'a/label', 'b/label' and "
                 "'c/LABEL'.",
                 "Programs see one 'OVX_SERIAL', 'y': it is set by 'a/serial' and 'serial'."}));
}

TEST_F(ExplainParameters, TellsThatANameHasAnEqualsSign) {
  mBoard.property("a=b", "x").property("c/a=b", "x");
  EXPECT_EQ(explain(),
            mReport.remarking({"No program sees a variable named 'OVX_A=B', which has a '='."}));
}

TEST_F(ExplainParameters, TellsOfNamesThatNoShellHas) {
  mBoard.property("#cells", "x")
      .property("gpio{1}", "x")
      .property("a.b", "x")
      .property("ok_1", "x");
  EXPECT_EQ(explain(),
            mReport.remarking({"Shells cannot have variables named 'OVX_#CELLS', 'OVX_A.B' and "
                               "'OVX_GPIO{1}'."}));
}

TEST_F(ExplainParameters, TellsOfAPropertyThatIsCalledLikeAParameter) {
  mBoard.property("ovx_site", "hall").property("site/ovx_site", "hall").property("ovx-name", "x");
  EXPECT_EQ(
      explain(),
      mReport.remarking(
          {"Programs see one 'OVX_OVX_SITE', 'hall': it is set by 'ovx_site' and 'site/ovx_site'.",
           "The property 'ovx_site' becomes 'OVX_OVX_SITE': leave out what stands before its name.",
           "Shells cannot have variables named 'OVX_OVX-NAME'."}));
}

TEST_F(ExplainParameters, TellsOfAPropertyThatTheAddressOverwrites) {
  mBoard.interface("eth0", "02:42:ac:11:00:02").property("wan", "eth0").property("wan_id", "x");
  EXPECT_EQ(explain(), mReport.remarking(
                           {"The property 'wan_id' is overwritten by the MAC address of 'eth0'."}));
}

TEST_F(ExplainParameters, TellsThatThereIsNoAddressToOverwriteAProperty) {
  mBoard.property("wan", "eth9").property("wan_id", "x");
  EXPECT_EQ(explain(), mReport.remarking({"The WAN interface 'eth9': No such device."}));
}

TEST_F(ExplainParameters, TellsOfSeveralPropertiesThatNoAddressOverwrites) {
  mBoard.property("a/wan_id", "x").property("b/wan_id", "x");
  EXPECT_EQ(explain(), mReport.remarking({"Programs see one 'OVX_WAN_ID', 'x': it is set by "
                                          "'a/wan_id' and 'b/wan_id'."}));
}

TEST_F(ExplainParameters, TellsOfSeveralPropertiesThatTheAddressOverwritesOnce) {
  mBoard.interface("eth0", "02:42:ac:11:00:02").property("wan", "eth0");
  mBoard.property("a/wan_id", "x").property("b/wan_id", "x");
  EXPECT_EQ(explain(), mReport.remarking(
                           {"The property 'wan_id' is overwritten by the MAC address of 'eth0'."}));
}

TEST_F(ExplainParameters, TellsThatTheWanNamesNoInterface) {
  mBoard.property("wan", bytes("\0"));
  EXPECT_EQ(explain(), mReport.remarking({"OVX_WAN names no interface. There is no OVX_WAN_ID."}));
}

TEST_F(ExplainParameters, TellsThatTheWanInterfaceIsNotThere) {
  mBoard.property("wan", bytes("eth9\0"));
  EXPECT_EQ(explain(), mReport.remarking(
                           {"The WAN interface 'eth9': No such device. There is no OVX_WAN_ID."}));
}

TEST_F(ExplainParameters, TellsWhyTheKernelDoesNotGiveTheAddress) {
  mBoard.interface("eth0", "02:42:ac:11:00:02").property("wan", bytes("eth0\0"));
  kernelRefuses(SYS_ioctl, SIOCGIFHWADDR);
  EXPECT_EQ(explain(),
            mReport.remarking({"The WAN interface 'eth0': Operation not permitted. There is no "
                               "OVX_WAN_ID."}));
}

TEST_F(ExplainParameters, TakesTheFirstOfSeveralInterfacesOfAProperty) {
  mBoard.property("wan", bytes("eth8\0eth9\0"));
  EXPECT_EQ(explain(), mReport.remarking(
                           {seenInPart("'OVX_WAN'"),
                            "The WAN interface 'eth8': No such device. There is no OVX_WAN_ID."}));
}

TEST_F(Explain, SearchesForNoInterfaceOnABoardWithoutTheNumberOfAPc) {
  mBoard.interface("eth0", "02:42:ac:11:00:02").address("eth0", "192.168.7.2");
  kernelRefuses(SYS_ioctl, SIOCGIFHWADDR);
  EXPECT_EQ(explain(), mReport.remarking({noNode}));
}

TEST_F(ExplainParameters, KnowsTheLongestNameOfAnInterface) {
  mBoard.interface("interface-15byt", "02:42:ac:11:00:02").property("wan", "interface-15byt");
  EXPECT_EQ(explain(), mReport.remarkingNothing());
}

TEST_F(ExplainParameters, TellsThatTheNameOfTheWanInterfaceIsTooLong) {
  mBoard.property("wan", "interface-16byte");
  EXPECT_EQ(explain(), mReport.remarking({"The WAN interface 'interface-16byte' has more than 15 "
                                          "bytes: collecting the parameters aborts."}));
}

constexpr const char* noneFound =
    "No interface with an IPv4 address was found besides lo: there is no OVX_WAN.";
constexpr const char* noneSearched =
    "The node /orvanix has no property 'wan': there is no OVX_WAN, and no interface is searched "
    "for.";

TEST_F(Explain, TellsThatNoInterfaceOfAPcHasAnAddress) {
  kernelIs("6.1.55", "x86_64");
  mBoard.address("lo", "127.0.0.1").interface("eth0", "02:42:ac:11:00:02");
  mReport.says("machine", "x86_64: a PC")
      .identifiedBy("machine", "'x86_64 PC', number 64: the machine is x86_64.");
  EXPECT_EQ(explain(), mReport.remarking({noneFound}));
}

TEST_F(Explain, TellsThatAPcWithANodeHasNoWanInterface) {
  kernelIs("6.1.55", "x86_64");
  mBoard.property("site", "hall").interface("eth0", "02:42:ac:11:00:02");
  mBoard.address("eth0", "192.168.7.2");
  mReport.says("machine", "x86_64: a PC")
      .identifiedBy("machine", "'x86_64 PC', number 64: the machine is x86_64.");
  EXPECT_EQ(explain(), mReport.remarking({noneSearched}));
}

TEST_F(Explain, TellsThatNoInterfaceOfABoardWithTheNumberOfAPcHasAnAddress) {
  mBoard.cpuinfo("Hardware: Kestrel\n").catalogue("Kestrel:64\n");
  mReport.says("cpuinfo", "Hardware 'Kestrel' is the name of the board in line 1")
      .says("catalogue", "/etc/known_ovx_ids: 1 board")
      .identifiedBy("cpuinfo", "'Kestrel', number 64: the Hardware line matches line 1.");
  EXPECT_EQ(explain(), mReport.remarking({noneFound}));
}

struct TwoWansCase {
  const char* name;
  const char* first;
  const char* last;
  bool hasWanId;
  std::vector<std::string> remarks;
};

void PrintTo(const TwoWansCase& wans, std::ostream* out) { *out << wans.name; }

class ExplainTwoWans : public ExplainKestrel, public testing::WithParamInterface<TwoWansCase> {
 protected:
  // The kernel chooses which of the properties comes first.
  void set(const std::string& first, const std::string& last) {
    mBoard.property("a/wan", "a").property("b/wan", "b");
    const std::string list = ovxid({"list"}).out;
    const bool isReversed = list.find("OVX_WAN=b") < list.find("OVX_WAN=a");
    mBoard.property("a/wan", isReversed ? last : first);
    mBoard.property("b/wan", isReversed ? first : last);
  }
};

TEST_P(ExplainTwoWans, AreToldApart) {
  mBoard.interface("eth0", "02:42:ac:11:00:02").interface("eth1", "02:42:ac:11:00:03");
  set(GetParam().first, GetParam().last);
  if (GetParam().hasWanId) {
    mBoard.property("wan_id", "x");
  }
  std::vector<std::string> remarks = GetParam().remarks;
  remarks.insert(remarks.begin(), "Programs see one 'OVX_WAN', '" + std::string(GetParam().last) +
                                      "': it is set by 'a/wan' and 'b/wan'.");
  EXPECT_EQ(explain(), mReport.remarking(remarks));
}

constexpr const char* ofEth0 =
    "The MAC address is asked of the first OVX_WAN of the list, 'eth0', but programs see 'eth1'.";
constexpr const char* ofNone =
    "The MAC address is asked of the first OVX_WAN of the list, '', but programs see 'eth1'.";

INSTANTIATE_TEST_SUITE_P(
    Where, ExplainTwoWans,
    testing::Values(
        TwoWansCase{"BothAreTheSame", "eth0", "eth0", false, {}},
        TwoWansCase{"TheyAreDifferent", "eth0", "eth1", false, {ofEth0}},
        TwoWansCase{"TheAddressOverwritesAProperty",
                    "eth0",
                    "eth1",
                    true,
                    {"The property 'wan_id' is overwritten by the MAC address of 'eth0'.", ofEth0}},
        TwoWansCase{"TheFirstIsNotThere",
                    "eth9",
                    "eth1",
                    false,
                    {"The WAN interface 'eth9': No such device. There is no OVX_WAN_ID.",
                     "The MAC address is asked of the first OVX_WAN of the list, 'eth9', but "
                     "programs see 'eth1'."}},
        TwoWansCase{"TheFirstIsEmpty",
                    "",
                    "eth1",
                    false,
                    {"The first OVX_WAN names no interface. There is no OVX_WAN_ID.", ofNone}},
        TwoWansCase{"TheFirstIsEmptyAndAPropertyStandsInForTheAddress",
                    "",
                    "eth1",
                    true,
                    {"The first OVX_WAN names no interface.", ofNone}},
        TwoWansCase{"TheFirstIsTooLong",
                    "interface-16byte",
                    "eth1",
                    false,
                    {"The WAN interface 'interface-16byte' has more than 15 bytes: collecting the "
                     "parameters aborts."}}),
    [](const auto& test) { return test.param.name; });

}  // namespace
