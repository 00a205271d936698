#include <gtest/gtest.h>
#include <ovxid/parameters.h>

#include "simulation/board.h"

static bool operator==(const ovx_param& left, const ovx_param& right) {
  return left.name == right.name && left.value == right.value;
}

static void PrintTo(const ovx_param& parameter, std::ostream* out) {
  *out << "[" << parameter.name << "]=[" << parameter.value << "]";
}

namespace {

using Parameters = std::vector<ovx_param>;

class ParametersTest : public testing::Test {
 protected:
  Board mBoard;
  OvxIdentifier mIdentifier{nullptr};
};

TEST_F(ParametersTest, OfANewIdentifierAreNone) {
  EXPECT_EQ(ovxid::parameters(mIdentifier), Parameters{});
}

TEST_F(ParametersTest, AreInTheOrderOfTheListWithEveryByte) {
  const Parameters list{
      {"B", bytes("b\0\xff")}, {"A", ""}, {"", "a"}, {"B", "=c="}, {bytes("N\0"), "\n"},
      {"N", "two\nlines\n"}};
  for (const ovx_param& parameter : list) {
    mIdentifier.addParameter(parameter.name, parameter.value);
  }
  EXPECT_EQ(ovxid::parameters(mIdentifier), list);
}

TEST_F(ParametersTest, AreThoseOfTheBoard) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  OvxIdentifier identifier(nullptr);
  identifier.getHardwareNumber();
  identifier.parse_params();
  const Parameters list = ovxid::parameters(identifier);
  ASSERT_GE(list.size(), 2U);
  EXPECT_EQ(list[0], (ovx_param{"OVX_ID", "7"}));
  EXPECT_EQ(list[1], (ovx_param{"OVX_DESC", "Field Node"}));
}

TEST_F(ParametersTest, EndANameAtItsFirstEqualsSign) {
  mIdentifier.addParameter("A=B", "c");
  EXPECT_EQ(ovxid::parameters(mIdentifier), (Parameters{{"A", "B=c"}}));
}

TEST(Environment, OfNoParametersIsEmpty) { EXPECT_EQ(ovxid::environment({}), Parameters{}); }

TEST(Environment, HasTheLastValueOfEqualNamesInThePlaceOfTheFirst) {
  EXPECT_EQ(ovxid::environment({{"A", "1"}, {"B", "2"}, {"A", "3"}}),
            (Parameters{{"A", "3"}, {"B", "2"}}));
}

TEST(Environment, CutsNamesAndValuesAtTheirFirstNul) {
  EXPECT_EQ(ovxid::environment({{bytes("A\0x"), bytes("1\0x")}, {"A", "2"}}),
            (Parameters{{"A", "2"}}));
}

TEST(Environment, LeavesOutNamesThatNoVariableCanHave) {
  EXPECT_EQ(ovxid::environment({{"", "1"}, {bytes("\0A"), "1"}, {"A=B", "1"}, {"=", "1"}}),
            Parameters{});
}

}  // namespace
