#include <gtest/gtest.h>

#include <limits>

#include "simulation/board.h"
#include "simulation/locale.h"

namespace {

constexpr const char* tooFewValues =
    "' is not valid known board identification description line (it must contain at least two "
    "colon separated values)";
constexpr const char* noBoardNumber =
    "' is not valid known board identification description line (the second value needs to be a "
    "board number)";

struct AcceptedLine {
  const char* name;
  std::string line;
  HardwareIdentity identity;
  std::string message;
};

void PrintTo(const AcceptedLine& accepted, std::ostream* out) {
  *out << testing::PrintToString(accepted.line);
}

class Accepted : public testing::TestWithParam<AcceptedLine> {};

TEST_P(Accepted, FillsTheRecord) {
  Board board;
  OvxIdentifier identifier(board.logger());
  HardwareIdentity record{"", {}, -99};
  const Messages messages =
      board.messagesOf([&] { EXPECT_TRUE(identifier.parseIdentityLine(record, GetParam().line)); });
  EXPECT_EQ(record.name, GetParam().identity.name);
  EXPECT_EQ(record.number, GetParam().identity.number);
  EXPECT_EQ(record.aliases, GetParam().identity.aliases);
  EXPECT_EQ(messages,
            (Messages{debug("Found hardware identity: Board number " + GetParam().message)}));
}

INSTANTIATE_TEST_SUITE_P(
    Line, Accepted,
    testing::Values(
        AcceptedLine{"WithAliases",
                     "Harbor Bridge Mk2:12:hbm2:HB-MK2",
                     {"Harbor Bridge Mk2", {"hbm2", "HB-MK2"}, 12},
                     "12(Harbor Bridge Mk2)"},
        AcceptedLine{"WithLeadingDoubledAndTrailingColons",
                     "::Field Node:::-7:",
                     {"Field Node", {}, -7},
                     "-7(Field Node)"},
        AcceptedLine{"WithDoubledColonsBetweenAliases",
                     "Field Node:7::fn1:::fn2",
                     {"Field Node", {"fn1", "fn2"}, 7},
                     "7(Field Node)"},
        AcceptedLine{"WithItsNameAsAnAlias", "fn1:3:fn1:fn1", {"fn1", {"fn1", "fn1"}, 3}, "3(fn1)"},
        AcceptedLine{"WithTextAfterTheNumber",
                     "Field Node:7 mains",
                     {"Field Node", {}, 7},
                     "7 mains(Field Node)"},
        AcceptedLine{"WithBlanksAroundTheValues",
                     "Field Node: 7 : fn1",
                     {"Field Node", {" fn1"}, 7},
                     " 7 (Field Node)"},
        AcceptedLine{"WithABlankBeforeTheFirstColon",
                     " Field Node :7",
                     {" Field Node ", {}, 7},
                     "7( Field Node )"},
        AcceptedLine{"WithAllKindsOfWhiteSpaceBeforeTheNumber",
                     "Field Node: \t\n\v\f\r7",
                     {"Field Node", {}, 7},
                     " \t\n\v\f\r7(Field Node)"},
        AcceptedLine{"WithAPlusSign", "Field Node:+5", {"Field Node", {}, 5}, "+5(Field Node)"},
        AcceptedLine{
            "WithAHexadecimalNumber", "Field Node:0x1F", {"Field Node", {}, 0}, "0x1F(Field Node)"},
        AcceptedLine{
            "WithLeadingZeros", "Field Node:010", {"Field Node", {}, 10}, "010(Field Node)"},
        AcceptedLine{"WithTheLargestNumber",
                     "Field Node:2147483647",
                     {"Field Node", {}, 2147483647},
                     "2147483647(Field Node)"},
        AcceptedLine{"WithTheSmallestNumber",
                     "Field Node:-2147483648",
                     {"Field Node", {}, std::numeric_limits<std::int32_t>::min()},
                     "-2147483648(Field Node)"},
        AcceptedLine{
            "ThatLooksLikeAComment", "#Field Node:3", {"#Field Node", {}, 3}, "3(#Field Node)"},
        AcceptedLine{"WithACarriageReturnAfterAnAlias",
                     "Field Node:5:fn\r",
                     {"Field Node", {"fn\r"}, 5},
                     "5(Field Node)"},
        AcceptedLine{"WithACarriageReturnAfterTheNumber",
                     "Field Node:5\r",
                     {"Field Node", {}, 5},
                     "5\r(Field Node)"},
        AcceptedLine{"WithTheSameAliasTwice",
                     "Field Node:5:fn:fn",
                     {"Field Node", {"fn", "fn"}, 5},
                     "5(Field Node)"},
        AcceptedLine{
            "OfBytesThatAreNoText", "\xff\x01:5:\xc3", {"\xff\x01", {"\xc3"}, 5}, "5(\xff\x01)"},
        AcceptedLine{"WithANulByteInAnAlias",
                     bytes("Field Node:5:f\0n"),
                     {"Field Node", {bytes("f\0n")}, 5},
                     "5(Field Node)"},
        AcceptedLine{"WithPercentSigns", "%s%n:5:%d", {"%s%n", {"%d"}, 5}, "5(%s%n)"}),
    [](const auto& test) { return test.param.name; });

struct RejectedLine {
  const char* name;
  std::string line;
};

void PrintTo(const RejectedLine& rejected, std::ostream* out) {
  *out << testing::PrintToString(rejected.line);
}

class TooShort : public testing::TestWithParam<RejectedLine> {};

TEST_P(TooShort, LineLeavesTheRecordUntouched) {
  Board board;
  OvxIdentifier identifier(board.logger());
  HardwareIdentity record{"Bench Unit", {"bu"}, 9};
  const Messages messages = board.messagesOf(
      [&] { EXPECT_FALSE(identifier.parseIdentityLine(record, GetParam().line)); });
  EXPECT_EQ(messages, (Messages{warn("The line:'" + GetParam().line + tooFewValues)}));
  EXPECT_EQ(record.name, "Bench Unit");
  EXPECT_EQ(record.number, 9);
  EXPECT_EQ(record.aliases, std::vector<std::string>{"bu"});
}

INSTANTIATE_TEST_SUITE_P(Rejected, TooShort,
                         testing::Values(RejectedLine{"Empty", ""},
                                         RejectedLine{"OfColonsOnly", ":::"},
                                         RejectedLine{"OfANameAlone", "Field Node"},
                                         RejectedLine{"OfANameAndAColon", "Field Node:"},
                                         RejectedLine{"OfColonsAndAName", "::Field Node"},
                                         RejectedLine{"OfABlank", " "}),
                         [](const auto& test) { return test.param.name; });

class NoNumber : public testing::TestWithParam<RejectedLine> {};

TEST_P(NoNumber, ReplacesTheNameOfTheRecordOnly) {
  Board board;
  OvxIdentifier identifier(board.logger());
  HardwareIdentity record{"Bench Unit", {"bu"}, 9};
  const Messages messages = board.messagesOf(
      [&] { EXPECT_FALSE(identifier.parseIdentityLine(record, GetParam().line)); });
  EXPECT_EQ(messages, (Messages{warn("The line:'" + GetParam().line + noBoardNumber)}));
  EXPECT_EQ(record.name, "Field Node");
  EXPECT_EQ(record.number, 9);
  EXPECT_EQ(record.aliases, std::vector<std::string>{"bu"});
}

INSTANTIATE_TEST_SUITE_P(
    Rejected, NoNumber,
    testing::Values(RejectedLine{"AboveTheRange", "Field Node:2147483648"},
                    RejectedLine{"BelowTheRange", "Field Node:-2147483649"},
                    RejectedLine{"FarAboveTheRange", "Field Node:99999999999999999999999"},
                    RejectedLine{"OfADigitBehindTheLargestNumber", "Field Node:21474836470"},
                    RejectedLine{"OfADigitBehindTheSmallestNumber", "Field Node:-21474836480"},
                    RejectedLine{"OfALetterAndADigit", "Field Node:x7"},
                    RejectedLine{"OfLettersBeforeAnAlias", "Field Node:x:fn1"},
                    RejectedLine{"OfABlank", "Field Node: :fn1"},
                    RejectedLine{"OfASignAlone", "Field Node:-"},
                    RejectedLine{"OfASignApartFromItsDigits", "Field Node:- 7"},
                    RejectedLine{"OfTwoSigns", "Field Node:+-7"}),
    [](const auto& test) { return test.param.name; });

TEST(CatalogueLine, KeepsTheNulBytesOfItsName) {
  Board board;
  OvxIdentifier identifier(board.logger());
  HardwareIdentity record{};
  EXPECT_TRUE(identifier.parseIdentityLine(record, bytes("Field\0Node:3")));
  EXPECT_EQ(record.name, bytes("Field\0Node"));
  EXPECT_EQ(record.number, 3);
}

TEST(CatalogueLine, AppendsItsAliasesToThoseTheRecordHas) {
  Board board;
  OvxIdentifier identifier(board.logger());
  HardwareIdentity record{"Bench Unit", {"bu"}, 9};
  EXPECT_TRUE(identifier.parseIdentityLine(record, "Field Node:3:fn1:bu"));
  EXPECT_EQ(record.name, "Field Node");
  EXPECT_EQ(record.number, 3);
  EXPECT_EQ(record.aliases, (std::vector<std::string>{"bu", "fn1", "bu"}));
}

TEST(CatalogueLine, IsReadTheSameWayWithoutALogger) {
  Board board;
  OvxIdentifier identifier(nullptr);
  HardwareIdentity record{};
  EXPECT_TRUE(identifier.parseIdentityLine(record, "Field Node:3:fn1"));
  EXPECT_EQ(record.number, 3);
  EXPECT_FALSE(identifier.parseIdentityLine(record, "Field Node"));
}

TEST(CatalogueLine, IsReadTheSameWayInEveryLocale) {
  Board board;
  OvxIdentifier identifier(board.logger());
  HardwareIdentity record{};
  const GroupingLocale grouping;
  EXPECT_TRUE(identifier.parseIdentityLine(record, "Field Node:1.234"));
  EXPECT_EQ(record.number, 1);
}

}  // namespace
