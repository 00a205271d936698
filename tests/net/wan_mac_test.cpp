#include <gtest/gtest.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <iostream>

#include "simulation/board.h"
#include "simulation/child.h"
#include "simulation/descriptors.h"
#include "simulation/kernel.h"

namespace {

class WanMac : public testing::Test {
 protected:
  // The parameters that are added to a list in which OVX_WAN is this interface.
  std::string addedFor(const std::string& interface) {
    OvxIdentifier identifier(nullptr);
    identifier.addParameter("OVX_WAN", interface);
    const std::string before = listing(identifier);
    identifier.add_wan_mac();
    return listing(identifier).substr(before.size());
  }

  Board mBoard;
};

struct MacCase {
  const char* name;
  const char* mac;
  const char* text;
};

void PrintTo(const MacCase& mac, std::ostream* out) { *out << mac.mac; }

class WanMacText : public WanMac, public testing::WithParamInterface<MacCase> {};

TEST_P(WanMacText, IsUnpaddedHexadecimalWithHighBytesSignExtended) {
  mBoard.interface("eth0", GetParam().mac);
  EXPECT_EQ(addedFor("eth0"), std::string("OVX_WAN_ID=") + GetParam().text + "\n");
}

INSTANTIATE_TEST_SUITE_P(Of, WanMacText,
                         testing::Values(MacCase{"LowBytes", "00:1a:2b:3c:4d:5e", "01a2b3c4d5e"},
                                         MacCase{"OneHighByte", "02:42:ac:11:00:02", "242ffac1102"},
                                         MacCase{"HighBytes", "b8:27:eb:12:34:56",
                                                 "ffb827ffeb123456"}),
                         [](const auto& test) { return test.param.name; });

TEST_F(WanMac, OfTheLoopbackIsSixZeros) { EXPECT_EQ(addedFor("lo"), "OVX_WAN_ID=000000\n"); }

// Linux gives no interface the broadcast address, so this answer does not come from the real
// kernel.
TEST_F(WanMac, OfSixHighBytesHasTwentyFourDigits) {
  mBoard.kernelAnswersMac({0xff, 0xff, 0xff, 0xff, 0xff, 0xff});
  EXPECT_EQ(addedFor("lo"), "OVX_WAN_ID=ffffffffffffffffffffffff\n");
}

TEST_F(WanMac, SignExtendsEveryByteFrom0x80On) {
  mBoard.interface("eth0", "02:42:ac:11:00:02");
  for (int byte = 0; byte < 256; ++byte) {
    std::array<char, 20> mac{};
    std::snprintf(mac.data(), mac.size(), "02:00:00:00:00:%02x", static_cast<unsigned>(byte));
    mBoard.mac("eth0", mac.data());
    std::array<char, 5> digits{};
    std::snprintf(
        digits.data(), digits.size(), "%x",
        byte < 0x80 ? static_cast<unsigned>(byte) : 0xff00U + static_cast<unsigned>(byte));
    EXPECT_EQ(addedFor("eth0"), std::string("OVX_WAN_ID=20000") + digits.data() + "\n");
  }
}

TEST_F(WanMac, IsNotAskedWithoutAWanInterface) {
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(standardErrorOf([&] { identifier.add_wan_mac(); }), "");
  EXPECT_EQ(listing(identifier), "");
}

TEST_F(WanMac, IsNotThatOfAParameterOfALongerName) {
  OvxIdentifier identifier(nullptr);
  identifier.addParameter("OVX_WAN2", "lo");
  identifier.add_wan_mac();
  EXPECT_EQ(listing(identifier), "OVX_WAN2=lo\n");
}

TEST_F(WanMac, IsNotThatOfAParameterOfOtherCase) {
  OvxIdentifier identifier(nullptr);
  identifier.addParameter("ovx_wan", "lo");
  identifier.add_wan_mac();
  EXPECT_EQ(listing(identifier), "ovx_wan=lo\n");
}

TEST_F(WanMac, IsNotThatOfAParameterWhoseNameGoesOnBehindANulByte) {
  OvxIdentifier identifier(nullptr);
  identifier.addParameter(bytes("OVX_WAN\0x"), "lo");
  identifier.add_wan_mac();
  EXPECT_EQ(listing(identifier), bytes("OVX_WAN\0x=lo\n"));
}

TEST_F(WanMac, IsThatOfTheFirstWanInterfaceOfTheList) {
  mBoard.interface("eth0", "02:00:00:00:00:01").interface("eth1", "02:00:00:00:00:02");
  OvxIdentifier identifier(nullptr);
  identifier.addParameter("OVX_WAN", "eth1");
  identifier.addParameter("OVX_WAN", "eth0");
  identifier.add_wan_mac();
  EXPECT_EQ(listing(identifier), "OVX_WAN=eth1\nOVX_WAN=eth0\nOVX_WAN_ID=200002\n");
}

TEST_F(WanMac, IsAskedForTheNameUpToItsFirstNulByte) {
  mBoard.interface("eth0", "02:42:ac:11:00:02");
  EXPECT_EQ(addedFor(bytes("eth0\0")), "OVX_WAN_ID=242ffac1102\n");
  EXPECT_EQ(addedFor(bytes("eth0\0and far more than sixteen bytes")), "OVX_WAN_ID=242ffac1102\n");
}

TEST_F(WanMac, OfALabelIsAskedForByTheLabelAsItStands) {
  mBoard.interface("eth0", "02:42:ac:11:00:02").labelledAddress("eth0:1", "10.0.0.1/24");
  EXPECT_EQ(addedFor("eth0:1"), "OVX_WAN_ID=242ffac1102\n");
  EXPECT_EQ(kernel.askedInterface, "eth0:1");
}

TEST_F(WanMac, OfAMissingInterfaceIsReportedAndNotAdded) {
  EXPECT_EQ(standardErrorOf([&] { EXPECT_EQ(addedFor("eth7"), ""); }),
            "ioctl(wan_mac): No such device\n");
}

TEST_F(WanMac, OfAnEmptyNameIsReportedAndNotAdded) {
  EXPECT_EQ(standardErrorOf([&] { EXPECT_EQ(addedFor(""), ""); }),
            "ioctl(wan_mac): No such device\n");
}

TEST_F(WanMac, WithoutASocketIsReportedAsABadDescriptor) {
  mBoard.socketFails(EMFILE);
  EXPECT_EQ(standardErrorOf([&] { EXPECT_EQ(addedFor("lo"), ""); }),
            "ioctl(wan_mac): Bad file descriptor\n");
}

TEST_F(WanMac, WhoseRequestFailsIsReportedAndNotAdded) {
  mBoard.requestFails(SIOCGIFHWADDR).closeChangesErrno();
  EXPECT_EQ(standardErrorOf([&] { EXPECT_EQ(addedFor("lo"), ""); }),
            "ioctl(wan_mac): Input/output error\n");
}

TEST_F(WanMac, OfANameOfFifteenCharactersIsAdded) {
  mBoard.interface("fifteen-letters", "02:42:ac:11:00:02");
  EXPECT_EQ(addedFor("fifteen-letters"), "OVX_WAN_ID=242ffac1102\n");
}

TEST_F(WanMac, OfANameOfSixteenCharactersAbortsTheProcess) {
  const rlimit noCore{0, 0};
  EXPECT_EXIT(
      {
        setrlimit(RLIMIT_CORE, &noCore);
        addedFor("sixteen-letters!");
      },
      testing::KilledBySignal(SIGABRT), "^$");
}

TEST_F(WanMac, OfANameFarTooLongAbortsTheProcess) {
  const rlimit noCore{0, 0};
  EXPECT_EXIT(
      {
        setrlimit(RLIMIT_CORE, &noCore);
        addedFor(std::string(1000, 'x'));
      },
      testing::KilledBySignal(SIGABRT), "^$");
}

TEST_F(WanMac, IsAskedThroughAnIpv4DatagramSocket) {
  addedFor("lo");
  EXPECT_EQ(kernel.askedSocket, (std::array<int, 3>{AF_INET, SOCK_DGRAM, 0}));
}

TEST_F(WanMac, IsAskedThroughDescriptor0WhenStandardInputIsClosed) {
  const Outcome outcome = inChild([&] {
    close(STDIN_FILENO);
    std::cout << addedFor("lo");
    return 0;
  });
  EXPECT_EQ(outcome, (Outcome{0, "OVX_WAN_ID=000000\n", ""}));
}

TEST_F(WanMac, CalledTwiceIsAddedTwice) {
  OvxIdentifier identifier(nullptr);
  identifier.addParameter("OVX_WAN", "lo");
  identifier.add_wan_mac();
  identifier.add_wan_mac();
  EXPECT_EQ(listing(identifier), "OVX_WAN=lo\nOVX_WAN_ID=000000\nOVX_WAN_ID=000000\n");
}

TEST_F(WanMac, IsNotLogged) {
  OvxIdentifier identifier(mBoard.logger());
  identifier.addParameter("OVX_WAN", "lo");
  EXPECT_EQ(mBoard.messagesOf([&] { identifier.add_wan_mac(); }), Messages{});
}

TEST_F(WanMac, LeavesNoSocketOpen) {
  const auto before = openDescriptors();
  addedFor("lo");
  standardErrorOf([&] { addedFor("eth7"); });
  EXPECT_EQ(openDescriptors(), before);
}

}  // namespace
