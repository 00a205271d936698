#include <gtest/gtest.h>

#include <csignal>

#include "cli/front_end.h"

namespace {

TEST_F(FrontEnd, ListsTheParametersByteForByte) {
  mBoard.property("compatible", bytes("a,b\0c,d\0"));
  EXPECT_EQ(ovxid({"list"}), (Outcome{0, bytes("OVX_COMPATIBLE=a,b\0c,d\0\n"), ""}));
}

TEST_F(FrontEnd, ListsWithoutACommandToo) {
  mBoard.property("wifi", "yes");
  EXPECT_EQ(ovxid({}), (Outcome{0, "OVX_WIFI=yes\n", ""}));
}

TEST_F(FrontEnd, ListsTheFourParametersOfAPcWithOneInterface) {
  kernelIs("5.10.0", "x86_64");
  mBoard.interface("eth0", "02:42:ac:11:00:02").address("eth0", "10.0.0.1/24");
  EXPECT_EQ(ovxid({}).out, "OVX_ID=64\nOVX_DESC=x86_64 PC\nOVX_WAN=eth0\nOVX_WAN_ID=242ffac1102\n");
}

TEST_F(FrontEnd, ListsAnUnknownBoardWithoutComplaint) {
  EXPECT_EQ(ovxid({"list"}), (Outcome{0, "", ""}));
}

TEST_F(FrontEnd, LetsTheLibraryReportAMissingWanInterface) {
  mBoard.property("wan", bytes("eth7\0"));
  EXPECT_EQ(ovxid({"list"}),
            (Outcome{0, bytes("OVX_WAN=eth7\0\n"), "ioctl(wan_mac): No such device\n"}));
}

TEST_F(FrontEnd, PrintsTheNameUpToItsFirstNul) {
  mBoard.property("boardid", bytes("7\0")).property("description", bytes("Field\0Node\0"));
  EXPECT_EQ(ovxid({"name"}), (Outcome{0, "Field\n", ""}));
}

TEST_F(FrontEnd, GetsAParameterUpToItsFirstNul) {
  mBoard.property("compatible", bytes("a,b\0c,d\0"));
  EXPECT_EQ(ovxid({"get", "OVX_COMPATIBLE"}), (Outcome{0, "a,b\n", ""}));
}

TEST_F(FrontEnd, GetsTheLastOfEqualNames) {
  mBoard.property("boardid", "7").property("description", "Field Node").property("id", "12");
  EXPECT_EQ(ovxid({"get", "OVX_ID"}), (Outcome{0, "12\n", ""}));
}

TEST_F(FrontEnd, GetsAnEmptyParameter) {
  mBoard.property("spare", "");
  EXPECT_EQ(ovxid({"get", "OVX_SPARE"}), (Outcome{0, "\n", ""}));
}

TEST_F(FrontEnd, FailsToGetAParameterThatIsNotThere) {
  mBoard.property("spare", "");
  EXPECT_EQ(ovxid({"get", "OVX_WAN"}),
            (Outcome{1, "", "ovxid: OVX_WAN: the board has no such parameter\n"}));
  EXPECT_EQ(ovxid({"get", ""}), (Outcome{1, "", "ovxid: '': the board has no such parameter\n"}));
}

TEST_F(FrontEnd, SuggestsTheParameterThatIsMeant) {
  mBoard.property("site", "hall").property("room", "7");
  const std::string why = ": the board has no such parameter, did you mean '";
  EXPECT_EQ(ovxid({"get", "OVX_STIE"}).err, "ovxid: OVX_STIE" + why + "OVX_SITE'?\n");
  EXPECT_EQ(ovxid({"get", "site"}).err, "ovxid: site" + why + "OVX_SITE'?\n");
}

TEST_F(FrontEnd, TellsBeforeItAbortsThatTheNameOfTheInterfaceIsTooLong) {
  mBoard.property("wan", "sixteen-letters-");
  const Outcome outcome{128 + SIGABRT, "",
                        "ovxid: OVX_WAN: the name of the interface has more than 15 bytes\n"};
  EXPECT_EQ(ovxid({"list"}), outcome);
  EXPECT_EQ(ovxid({"get", "OVX_WAN"}), outcome);
  EXPECT_EQ(ovxid({"run", "true"}), outcome);
}

TEST_F(FrontEnd, PrintsTheNumber) {
  mBoard.property("boardid", "7").property("description", "Field Node");
  EXPECT_EQ(ovxid({"number"}), (Outcome{0, "7\n", ""}));
}

TEST_F(FrontEnd, PrintsTheNameOfAnUnknownBoardAndFails) {
  EXPECT_EQ(ovxid({"name"}), (Outcome{1, "Unknown\n", "ovxid: board: not identified\n"}));
}

TEST_F(FrontEnd, PrintsTheNumberOfAnUnknownBoardAndFails) {
  EXPECT_EQ(ovxid({"number"}), (Outcome{1, "-1\n", "ovxid: board: not identified\n"}));
}

TEST_F(FrontEnd, CountsABoardWithoutNameAndNumberAsIdentified) {
  mBoard.property("boardid", "");
  EXPECT_EQ(ovxid({"name"}), (Outcome{0, "Unknown\n", ""}));
  EXPECT_EQ(ovxid({"number"}), (Outcome{0, "-1\n", ""}));
}

TEST_F(FrontEnd, CountsANegativeNumberAsIdentified) {
  mBoard.property("boardid", "-7");
  EXPECT_EQ(ovxid({"number"}), (Outcome{0, "-7\n", ""}));
}

struct ExceptionCase {
  const char* name;
  Arguments arguments;
};

void PrintTo(const ExceptionCase& exception, std::ostream* out) {
  *out << testing::PrintToString(exception.arguments);
}

class Exception : public FrontEnd, public testing::WithParamInterface<ExceptionCase> {};

TEST_P(Exception, OfTheHardwareLineIsOneClearLine) {
  mBoard.cpuinfo("Hardware\t:\n");
  EXPECT_EQ(ovxid(GetParam().arguments),
            (Outcome{1, "", "ovxid: /proc/cpuinfo: the Hardware line ends at its colon\n"}));
}

INSTANTIATE_TEST_SUITE_P(
    In, Exception,
    testing::Values(ExceptionCase{"NoCommand", {}}, ExceptionCase{"List", {"list"}},
                    ExceptionCase{"Get", {"get", "OVX_ID"}}, ExceptionCase{"Name", {"name"}},
                    ExceptionCase{"Number", {"number"}}, ExceptionCase{"Run", {"run", "echo", "a"}},
                    ExceptionCase{"Shell", {"shell", "-c", "echo a"}}),
    [](const auto& test) { return test.param.name; });

}  // namespace
