#include "simulation/system_calls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "simulation/board.h"

namespace {

using Calls = std::vector<std::string>;

// What it takes to make an identifier on this board and to ask it for the number.
Calls identification() {
  return systemCallsOf([] { OvxIdentifier(nullptr).getHardwareNumber(); });
}

const std::string openCatalogue = "openat /etc/known_ovx_ids";
const std::string openBoardid = "openat /proc/device-tree/orvanix/boardid";
const std::string openDescription = "openat /proc/device-tree/orvanix/description";
const std::string openCpuinfo = "openat /proc/cpuinfo";

TEST(SystemCalls, ByTheDeviceTreeReadTheTwoFilesToTheirEnds) {
  Board board;
  board.property("boardid", bytes("7\0")).property("description", bytes("Field Node\0"));
  // A number ends at its NUL, but that a line ends with the file only the file's end tells.
  EXPECT_EQ(identification(), (Calls{openCatalogue, openBoardid, "read", "close", openDescription,
                                     "read", "read", "close"}));
}

TEST(SystemCalls, ByTheKernelReleaseReadTheCatalogueAndAskForTheNameOnce) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-fn1");
  EXPECT_EQ(identification(),
            (Calls{openCatalogue, "read", "read", "close", openBoardid, openDescription, "uname"}));
}

TEST(SystemCalls, ByTheMachineReadNothing) {
  Board board;
  board.machine("x86_64");
  EXPECT_EQ(identification(), (Calls{openCatalogue, openBoardid, openDescription, "uname"}));
}

TEST(SystemCalls, ByCpuinfoReadItNoFurtherThanTheHardwareLine) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").cpuinfo("processor\t: 0\nHardware\t: Field Node\n");
  EXPECT_EQ(identification(), (Calls{openCatalogue, "read", "read", "close", openBoardid,
                                     openDescription, "uname", openCpuinfo, "read", "close"}));
}

TEST(SystemCalls, OfAnUnknownBoardReadCpuinfoToItsEnd) {
  Board board;
  board.cpuinfo("processor\t: 0\n");
  EXPECT_EQ(identification(), (Calls{openCatalogue, openBoardid, openDescription, "uname",
                                     openCpuinfo, "read", "read", "close"}));
}

TEST(SystemCalls, AfterAFailedUnameAskForTheNameNoMore) {
  Board board;
  board.unameFails();
  const Calls calls = identification();
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "uname"), 1);
}

TEST(SystemCalls, OfACatalogueWithoutANewlineAtItsEndReadTheEndOnce) {
  Board board;
  board.catalogue("Field Node:3:fn1");
  EXPECT_EQ(systemCallsOf([] { OvxIdentifier(nullptr); }),
            (Calls{openCatalogue, "read", "read", "close"}));
}

TEST(SystemCalls, OfACatalogueOf64KilobytesReadItInOnePart) {
  Board board;
  board.catalogue(std::string(65535, 'x') + "\n");
  EXPECT_EQ(systemCallsOf([] { OvxIdentifier(nullptr); }),
            (Calls{openCatalogue, "read", "read", "close"}));
}

TEST(SystemCalls, OfAQueryAfterASuccessfulOneAreNone) {
  Board board;
  board.property("boardid", "7");
  OvxIdentifier identifier(nullptr);
  identifier.getHardwareNumber();
  EXPECT_EQ(systemCallsOf([&] { identifier.getHardwareName(); }), Calls{});
}

TEST(SystemCalls, OfAPropertyOpenItOnceAndReadItToItsEnd) {
  Board board;
  board.property("wifi", "yes");
  OvxIdentifier identifier(nullptr);
  const Calls calls = systemCallsOf([&] { identifier.parse_params(); });
  const auto open = std::find(calls.begin(), calls.end(), "openat /proc/device-tree/orvanix/wifi");
  ASSERT_GE(calls.end() - open, 4) << testing::PrintToString(calls);
  EXPECT_EQ(Calls(open, open + 4), (Calls{*open, "read", "read", "close"}));
  EXPECT_EQ(std::count(calls.begin(), calls.end(), *open), 1);
}

}  // namespace
