#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>

#include "simulation/board.h"

namespace {

// Keeps a copy of the whole text at each flush.
class FlushRecorder : public std::stringbuf {
 public:
  std::vector<std::string> flushed;

 protected:
  int sync() override {
    flushed.push_back(str());
    return std::stringbuf::sync();
  }
};

TEST(AddParameter, AppendsToTheListInOrder) {
  Board board;
  OvxIdentifier identifier(nullptr);
  identifier.addParameter("OVX_B", "1");
  identifier.addParameter("OVX_A", "2");
  EXPECT_EQ(listing(identifier), "OVX_B=1\nOVX_A=2\n");
}

TEST(AddParameter, KeepsSeveralOfTheSameName) {
  Board board;
  OvxIdentifier identifier(nullptr);
  identifier.addParameter("OVX_A", "1");
  identifier.addParameter("OVX_A", "1");
  EXPECT_EQ(listing(identifier), "OVX_A=1\nOVX_A=1\n");
}

TEST(AddParameter, TransformsNoNameAndNoValue) {
  Board board;
  OvxIdentifier identifier(nullptr);
  identifier.addParameter("", "");
  identifier.addParameter(" lower=case ", " value ");
  EXPECT_EQ(listing(identifier), "=\n lower=case = value \n");
}

TEST(AddParameter, LogsNothing) {
  Board board;
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messagesOf([&] { identifier.addParameter("OVX_A", "1"); }), Messages{});
}

TEST(Listing, OfAnEmptyListWritesNothingAndDoesNotFlush) {
  Board board;
  OvxIdentifier identifier(nullptr);
  FlushRecorder buffer;
  std::ostream out(&buffer);
  identifier.listParams(out);
  EXPECT_EQ(buffer.str(), "");
  EXPECT_EQ(buffer.flushed.size(), 0U);
}

TEST(Listing, FlushesAfterEachRecord) {
  Board board;
  OvxIdentifier identifier(nullptr);
  identifier.addParameter("OVX_A", "1");
  identifier.addParameter("OVX_B", "2");
  FlushRecorder buffer;
  std::ostream out(&buffer);
  identifier.listParams(out);
  EXPECT_EQ(buffer.flushed, (std::vector<std::string>{"OVX_A=1\n", "OVX_A=1\nOVX_B=2\n"}));
}

TEST(Listing, ReturnsTheStreamItWasGiven) {
  Board board;
  OvxIdentifier identifier(nullptr);
  std::ostringstream out;
  EXPECT_EQ(&identifier.listParams(out), &out);
}

TEST(Listing, WritesNulBytesOfAValue) {
  Board board;
  OvxIdentifier identifier(nullptr);
  identifier.addParameter("OVX_A", bytes("a\0b\0"));
  EXPECT_EQ(listing(identifier), bytes("OVX_A=a\0b\0\n"));
}

TEST(Listing, WritesNulBytesOfAName) {
  Board board;
  OvxIdentifier identifier(nullptr);
  identifier.addParameter(bytes("OVX\0A"), "1");
  EXPECT_EQ(listing(identifier), bytes("OVX\0A=1\n"));
}

TEST(Listing, LetsAValueWithANewlineSpanTwoLines) {
  Board board;
  OvxIdentifier identifier(nullptr);
  identifier.addParameter("OVX_A", "one\ntwo");
  EXPECT_EQ(listing(identifier), "OVX_A=one\ntwo\n");
}

TEST(Listing, QuotesNothing) {
  Board board;
  OvxIdentifier identifier(nullptr);
  identifier.addParameter("OVX_DESC", "Tessaryn TQBLITE");
  identifier.addParameter("OVX_A", "\"$x\" '\\");
  EXPECT_EQ(listing(identifier), "OVX_DESC=Tessaryn TQBLITE\nOVX_A=\"$x\" '\\\n");
}

TEST(Listing, AppliesNoWidthOfTheStream) {
  Board board;
  OvxIdentifier identifier(nullptr);
  identifier.addParameter("OVX_A", "1");
  std::ostringstream out;
  out << std::setw(20) << std::setfill('*') << std::left;
  identifier.listParams(out);
  EXPECT_EQ(out.str(), "OVX_A=1\n");
}

TEST(Listing, ChangesNothing) {
  Board board;
  OvxIdentifier identifier(board.logger());
  identifier.addParameter("OVX_A", "1");
  EXPECT_EQ(board.messagesOf([&] {
    EXPECT_EQ(listing(identifier), "OVX_A=1\n");
    EXPECT_EQ(listing(identifier), "OVX_A=1\n");
  }),
            Messages{});
}

}  // namespace
