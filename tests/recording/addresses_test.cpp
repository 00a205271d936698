#include "recording/addresses.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "simulation/board.h"

namespace {

using ovxid::recording::ListedAddress;
using ovxid::recording::listedAddresses;

TEST(ListedAddresses, HaveNamesOfUpToFifteenLetters) {
  Board board;
  board.interface("fifteen-letters", "02:42:ac:11:00:02").address("fifteen-letters", "10.0.0.1/8");
  const auto addresses = listedAddresses();
  ASSERT_TRUE(addresses);
  ASSERT_EQ(addresses->size(), 1U);
  EXPECT_EQ(addresses->front().name, "fifteen-letters");
  EXPECT_EQ(addresses->front().address, "10.0.0.1");
}

TEST(ListedAddresses, AreAskedForWithoutStandardInput) {
  Board board;
  board.interface("eth0", "02:42:ac:11:00:02").address("eth0", "10.0.0.1/8");
  const int input = dup(STDIN_FILENO);
  close(STDIN_FILENO);
  const auto addresses = listedAddresses();
  dup2(input, STDIN_FILENO);
  close(input);
  ASSERT_TRUE(addresses);
  EXPECT_EQ(addresses->size(), 1U);
}

TEST(ListedAddresses, DifferByNameAndByAddress) {
  const ListedAddress address{"eth0", "10.0.0.1"};
  EXPECT_TRUE(address == (ListedAddress{"eth0", "10.0.0.1"}));
  EXPECT_FALSE(address == (ListedAddress{"eth1", "10.0.0.1"}));
  EXPECT_FALSE(address == (ListedAddress{"eth0", "10.0.0.2"}));
}

}  // namespace
