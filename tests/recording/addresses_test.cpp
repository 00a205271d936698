#include "recording/addresses.h"

#include <gtest/gtest.h>

#include "simulation/board.h"

namespace {

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

}  // namespace
