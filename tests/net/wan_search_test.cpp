#include <fcntl.h>
#include <gtest/gtest.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <iostream>

#include "simulation/board.h"
#include "simulation/child.h"
#include "simulation/descriptors.h"
#include "simulation/kernel.h"

namespace {

constexpr const char* someMac = "02:42:ac:11:00:02";

// The parameters that the search adds to an empty list.
std::string wanFound() {
  OvxIdentifier identifier(nullptr);
  identifier.search_wan();
  return listing(identifier);
}

TEST(WanSearch, ChoosesTheFirstInterfaceThatIsNotLo) {
  Board board;
  board.address("lo", "127.0.0.1/8");
  board.interface("eth0", someMac).address("eth0", "10.0.0.1/24");
  board.interface("eth1", someMac).address("eth1", "10.0.1.1/24");
  EXPECT_EQ(wanFound(), "OVX_WAN=eth0\n");
}

TEST(WanSearch, FollowsTheKernelsOrderAndNotTheAlphabet) {
  Board board;
  board.interface("eth1", someMac).address("eth1", "10.0.1.1/24");
  board.interface("eth0", someMac).address("eth0", "10.0.0.1/24");
  EXPECT_EQ(wanFound(), "OVX_WAN=eth1\n");
}

TEST(WanSearch, TakesAnAddressLabelAsTheName) {
  Board board;
  board.interface("eth0", someMac).labelledAddress("eth0:1", "10.0.0.1/24");
  EXPECT_EQ(wanFound(), "OVX_WAN=eth0:1\n");
}

TEST(WanSearch, TakesALabelOfLoForAnyOtherName) {
  Board board;
  board.address("lo", "127.0.0.1/8").labelledAddress("lo:1", "127.0.0.2/8");
  EXPECT_EQ(wanFound(), "OVX_WAN=lo:1\n");
}

TEST(WanSearch, TakesANameThatBeginsWithLoForAnyOther) {
  Board board;
  board.address("lo", "127.0.0.1/8");
  board.interface("lo0", someMac).address("lo0", "10.0.0.1/24");
  EXPECT_EQ(wanFound(), "OVX_WAN=lo0\n");
}

TEST(WanSearch, TakesLoInCapitalsForAnyOtherName) {
  Board board;
  board.address("lo", "127.0.0.1/8");
  board.interface("LO", someMac).address("LO", "10.0.0.1/24");
  EXPECT_EQ(wanFound(), "OVX_WAN=LO\n");
}

TEST(WanSearch, TakesANameOfFifteenCharactersWhole) {
  Board board;
  board.interface("fifteen-letters", someMac).address("fifteen-letters", "10.0.0.1/24");
  EXPECT_EQ(wanFound(), "OVX_WAN=fifteen-letters\n");
}

TEST(WanSearch, NeverChoosesAnInterfaceWithoutAnIpv4Address) {
  Board board;
  board.interface("eth0", someMac).address("eth0", "fd00::1/64");
  EXPECT_EQ(wanFound(), "");
}

TEST(WanSearch, PassesOverAnInterfaceWithoutAnIpv4Address) {
  Board board;
  board.interface("eth0", someMac);
  board.interface("eth1", someMac).address("eth1", "10.0.1.1/24");
  EXPECT_EQ(wanFound(), "OVX_WAN=eth1\n");
}

TEST(WanSearch, ChoosesAnInterfaceThatIsDown) {
  Board board;
  board.interface("eth0", someMac).address("eth0", "10.0.0.1/24");
  EXPECT_EQ(wanFound(), "OVX_WAN=eth0\n");
}

TEST(WanSearch, OfNoAddressesFindsNothingInSilence) {
  Board board;
  EXPECT_EQ(standardErrorOf([&] { EXPECT_EQ(wanFound(), ""); }), "");
}

TEST(WanSearch, OfLoAloneFindsNothingInSilence) {
  Board board;
  board.address("lo", "127.0.0.1/8").address("lo", "127.0.0.2/8");
  EXPECT_EQ(standardErrorOf([&] { EXPECT_EQ(wanFound(), ""); }), "");
}

TEST(WanSearch, OfLoAloneLeavesNothingToAskTheMacOf) {
  Board board;
  board.address("lo", "127.0.0.1/8");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(standardErrorOf([&] {
              identifier.search_wan();
              identifier.add_wan_mac();
            }),
            "");
  EXPECT_EQ(listing(identifier), "");
}

Board& loopbackAddresses(Board& board, int count) {
  for (int i = 1; i <= count; ++i) {
    board.address("lo", "127.0.1." + std::to_string(i) + "/32");
  }
  return board;
}

// The number of entries that 1024 bytes can hold. On 64-bit machines an entry has 40 bytes.
constexpr int entriesExamined = 1024 / sizeof(ifreq);

TEST(WanSearch, ExaminesTheLastEntryThatFitsTheBuffer) {
  Board board;
  loopbackAddresses(board, entriesExamined - 1);
  board.interface("eth0", someMac).address("eth0", "10.0.0.1/24");
  EXPECT_EQ(wanFound(), "OVX_WAN=eth0\n");
}

TEST(WanSearch, ExaminesNoEntryBeyondTheBuffer) {
  Board board;
  loopbackAddresses(board, entriesExamined);
  board.interface("eth0", someMac).address("eth0", "10.0.0.1/24");
  EXPECT_EQ(wanFound(), "");
}

TEST(WanSearch, AsksForAListOf1024Bytes) {
  Board board;
  wanFound();
  EXPECT_EQ(kernel.askedBytes, 1024);
}

#if defined(__LP64__)
TEST(WanSearch, ExaminesTwentyFiveEntriesOn64Bits) { EXPECT_EQ(entriesExamined, 25); }
#endif

TEST(WanSearch, AsksThroughAnIpv4DatagramSocket) {
  Board board;
  wanFound();
  EXPECT_EQ(kernel.askedSocket, (std::array<int, 3>{AF_INET, SOCK_DGRAM, 0}));
}

TEST(WanSearch, AsksThroughDescriptor0WhenStandardInputIsClosed) {
  Board board;
  board.interface("eth0", someMac).address("eth0", "10.0.0.1/24");
  const Outcome outcome = inChild([] {
    close(STDIN_FILENO);
    std::cout << wanFound();
    return 0;
  });
  EXPECT_EQ(outcome, (Outcome{0, "OVX_WAN=eth0\n", ""}));
}

TEST(WanSearch, LeavesDescriptor0ClosedWhenStandardInputIsClosed) {
  Board board;
  const Outcome outcome = inChild([] {
    close(STDIN_FILENO);
    wanFound();
    std::cout << (fcntl(STDIN_FILENO, F_GETFD) < 0 ? "closed" : "open");
    return 0;
  });
  EXPECT_EQ(outcome, (Outcome{0, "closed", ""}));
}

TEST(WanSearch, CalledTwiceAppendsTwice) {
  Board board;
  board.interface("eth0", someMac).address("eth0", "10.0.0.1/24");
  OvxIdentifier identifier(nullptr);
  identifier.search_wan();
  identifier.search_wan();
  EXPECT_EQ(listing(identifier), "OVX_WAN=eth0\nOVX_WAN=eth0\n");
}

TEST(WanSearch, ReportsAFailedSocket) {
  Board board;
  board.socketFails(EMFILE);
  EXPECT_EQ(standardErrorOf([&] { EXPECT_EQ(wanFound(), ""); }), "socket: Too many open files\n");
}

TEST(WanSearch, WithoutASocketClosesNone) {
  Board board;
  board.socketFails(EMFILE);
  OvxIdentifier identifier(nullptr);
  standardErrorOf([&] {
    kernel.askedClose.reset();
    identifier.search_wan();
    EXPECT_EQ(kernel.askedClose, std::nullopt);
  });
}

TEST(WanSearch, ReportsAFailedRequest) {
  Board board;
  board.interface("eth0", someMac).address("eth0", "10.0.0.1/24").requestFails(SIOCGIFCONF);
  board.closeChangesErrno();
  EXPECT_EQ(standardErrorOf([&] { EXPECT_EQ(wanFound(), ""); }),
            "ioctl(SIOCGIFCONF): Input/output error\n");
}

TEST(WanSearch, LogsNothing) {
  Board board;
  board.interface("eth0", someMac).address("eth0", "10.0.0.1/24");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messagesOf([&] { identifier.search_wan(); }), Messages{});
}

TEST(WanSearch, LeavesNoSocketOpen) {
  Board board;
  board.interface("eth0", someMac).address("eth0", "10.0.0.1/24");
  OvxIdentifier identifier(nullptr);
  const auto before = openDescriptors();
  identifier.search_wan();
  board.requestFails(SIOCGIFCONF);
  standardErrorOf([&] { identifier.search_wan(); });
  EXPECT_EQ(openDescriptors(), before);
}

}  // namespace
