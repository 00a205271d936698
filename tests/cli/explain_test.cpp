#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <regex>
#include <sstream>

#include "cli/front_end.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class Explain : public FrontEnd {
 protected:
  Explain() { kernelIs("6.1.55", "aarch64"); }

  // The report, whose remarks come last.
  std::string report() {
    const Outcome outcome = ovxid({"explain"});
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
  }

  void expectRemark(const std::string& remark) {
    EXPECT_THAT(report(), HasSubstr("\n- " + remark + "\n"));
  }
};

TEST_F(Explain, TellsWhatEachSourceSaidAndWhatWouldMakeTheBoardKnown) {
  kernelIs("6.1.55-kestrel2", "aarch64");
  mBoard.directory("/proc/1")
      .directory("/proc/device-tree/orvanix")
      .cpuinfo("processor: 0\nHardware\t: Kestrel Rev B\n");
  mBoard.catalogue("Merlin:1:m1\nHobby\nGos:2\n");
  EXPECT_EQ(
      ovxid({"explain"}),
      (Outcome{1,
               "device tree     /proc/device-tree/orvanix/boardid: No such file or directory\n"
               "kernel release  6.1.55-kestrel2: 'kestrel2' is no alias of the 2 boards in "
               "the catalogue\n"
               "machine         aarch64: not x86_64\n"
               "cpuinfo         Hardware 'Kestrel Rev B': no name and no alias in the "
               "catalogue\n"
               "catalogue       /etc/known_ovx_ids: 2 boards, 1 line passed over ('ovxid "
               "check' tells why)\n"
               "\n"
               "This board is not identified. Either line in /etc/known_ovx_ids would make it "
               "known:\n"
               "  NAME:NUMBER:kestrel2\n"
               "  Kestrel Rev B:NUMBER\n"
               "\n"
               "- The node /orvanix has no boardid.\n",
               ""}));
}

TEST_F(Explain, GivesTheOneLineThatWouldMakeTheBoardKnown) {
  mBoard.cpuinfo("Hardware\t: Kestrel Rev B\n");
  EXPECT_THAT(report(), HasSubstr("This line in /etc/known_ovx_ids would make it known:\n"
                                  "  Kestrel Rev B:NUMBER\n"));
}

// The lines of the report, with a name and the number 7 in them.
std::vector<std::string> linesOf(const std::string& report) {
  std::vector<std::string> lines;
  std::istringstream text(report);
  for (std::string line; std::getline(text, line);) {
    if (line.rfind("  ", 0) == 0) {
      line = std::regex_replace(line.substr(2), std::regex("NAME"), "Some");
      lines.push_back(std::regex_replace(line, std::regex("NUMBER"), "7"));
    }
  }
  return lines;
}

TEST_F(Explain, GivesLinesThatMakeTheBoardKnown) {
  kernelIs("6.1.55-kestrel2", "aarch64");
  mBoard.cpuinfo("Hardware\t: Kestrel Rev B\n");
  const std::vector<std::string> lines = linesOf(report());
  ASSERT_EQ(lines.size(), 2);
  for (const std::string& line : lines) {
    mBoard.catalogue(line + "\n");
    EXPECT_EQ(ovxid({"number"}), (Outcome{0, "7\n", ""}));
  }
}

TEST_F(Explain, EscapesWhatTheCatalogueHasToHold) {
  mBoard.cpuinfo("Hardware:\t\tKestrel\n");
  EXPECT_THAT(report(), HasSubstr("  \\tKestrel:NUMBER\nwhere the escapes stand for the bytes "
                                  "themselves.\n"));
}

TEST_F(Explain, GivesNoLineThatTheCatalogueCannotHold) {
  kernelIs("6.1.55-", "aarch64");
  mBoard.cpuinfo("Hardware\t: Kestrel: Rev B\n");
  EXPECT_THAT(report(), HasSubstr("No line in /etc/known_ovx_ids could make it known:\n"));
}

TEST_F(Explain, TellsOfTheDeviceTree) {
  kernelIs("6.1.55-k2", "x86_64");
  mBoard.property("boardid", bytes("12\0")).property("description", bytes("Kestrel\0"));
  mBoard.catalogue("Merlin:1:k2\n").cpuinfo("Hardware\t: Merlin\n");
  EXPECT_EQ(
      ovxid({"explain"}),
      (Outcome{0,
               "device tree     boardid '12\\0', description 'Kestrel\\0'\n"
               "kernel release  not tried (6.1.55-k2: 'k2' is an alias of 'Merlin' in line "
               "1)\n"
               "machine         not tried (x86_64: a PC)\n"
               "cpuinfo         not tried (Hardware 'Merlin' is the name of the board in line "
               "1)\n"
               "catalogue       /etc/known_ovx_ids: 1 board\n"
               "\n"
               "This board is 'Kestrel', number 12: the device tree says so.\n"
               "\n"
               "- The end of the release 'k2' would match 'Merlin' in line 1.\n"
               "- The Hardware value 'Merlin' would match 'Merlin' in line 1.\n",
               ""}));
}

TEST_F(Explain, TellsOfTheKernelRelease) {
  kernelIs("6.1.55-k2", "x86_64");
  mBoard.catalogue("Gos:3\nMerlin:1:k2\nHobby:4:k2\n");
  const std::string text = report();
  EXPECT_THAT(text, HasSubstr("kernel release  6.1.55-k2: 'k2' is an alias of 'Merlin' in line 2\n"
                              "machine         not tried (x86_64: a PC)\n"
                              "cpuinfo         not tried (/proc/cpuinfo: No such file or "
                              "directory)\n"));
  EXPECT_THAT(text, HasSubstr("This board is 'Merlin', number 1: the kernel's release matches an "
                              "alias in line 2.\n\n"
                              "- The end of the release 'k2' would match 'Hobby' in line 3.\n"));
}

TEST_F(Explain, TellsOfAPc) {
  kernelIs("6.1.55", "x86_64");
  const std::string text = report();
  EXPECT_THAT(text, HasSubstr("kernel release  6.1.55: no '-' with an alias behind it\n"
                              "machine         x86_64: a PC\n"));
  EXPECT_THAT(text, HasSubstr("This board is 'x86_64 PC', number 64: the machine is x86_64.\n"));
}

TEST_F(Explain, TellsOfAHardwareValueThatIsAName) {
  mBoard.cpuinfo("Hardware\t: Merlin\n").catalogue("Gos:3:Merlin\nMerlin:1\n");
  const std::string text = report();
  EXPECT_THAT(text, HasSubstr("Hardware 'Merlin' is the name of the board in line 2\n"));
  EXPECT_THAT(text,
              HasSubstr("This board is 'Merlin', number 1: the Hardware line matches line 2.\n"
                        "\n- The Hardware value 'Merlin' would match 'Gos' in line 1.\n"));
}

TEST_F(Explain, TellsOfAHardwareValueThatIsAnAliasOfTheBuiltInTable) {
  mBoard.cpuinfo("Hardware\t: ostart\n");
  const std::string text = report();
  EXPECT_THAT(text, HasSubstr("Hardware 'ostart' is an alias of 'Orvanix Starter Kit' in the "
                              "built-in table\n"
                              "catalogue       /etc/known_ovx_ids: No such file or directory; the "
                              "built-in table of 3 boards stands in for it\n"));
  EXPECT_THAT(text, HasSubstr("the Hardware line matches the built-in table.\n"));
}

TEST_F(Explain, TellsThatTheHardwareLineEndsAtItsColon) {
  mBoard.cpuinfo("Hardware\t:\n");
  EXPECT_EQ(ovxid({"explain"}).status, 1);
  EXPECT_THAT(report(), HasSubstr("cpuinfo         /proc/cpuinfo: the Hardware line ends at its "
                                  "colon, which ends the search\n"));
}

TEST_F(Explain, TellsThatThereIsNoHardwareLine) {
  mBoard.cpuinfo("processor: 0\n");
  EXPECT_THAT(report(), HasSubstr("cpuinfo         /proc/cpuinfo: no line begins with Hardware\n"));
}

TEST_F(Explain, TellsThatProcIsNotMounted) {
  expectRemark(
      "/proc has neither cpuinfo nor a device tree: it is not mounted, or shows processes only.");
}

TEST_F(Explain, TellsThatThereIsNoDeviceTree) {
  mBoard.cpuinfo("");
  expectRemark(
      "There is no /proc/device-tree: this kernel has no device tree, or a container hides it.");
}

TEST_F(Explain, TellsThatThereIsNoNode) {
  mBoard.cpuinfo("").directory("/proc/device-tree");
  expectRemark("The device tree has no node /orvanix.");
}

TEST_F(Explain, TellsThatAFileCannotBeRead) {
  mBoard.directory("/etc/known_ovx_ids");
  expectRemark("/etc/known_ovx_ids cannot be read: Is a directory.");
}

TEST_F(Explain, TellsOfCells) {
  mBoard.property("boardid", bytes("\0\0\0\x0c"));
  expectRemark(
      "The boardid is of cells, but is read as text: write boardid = \"12\" in the device "
      "tree. The number is 0.");
}

TEST_F(Explain, GivesNoAdviceForSeveralCells) {
  mBoard.property("boardid", bytes("\0\0\0\0\0\0\0\x0c"));
  expectRemark("The boardid is of cells, but is read as text. The number is 0.");
}

TEST_F(Explain, TellsThatADirectoryIdentifiesTheBoard) {
  mBoard.directory("/proc/device-tree/orvanix/boardid");
  expectRemark("That there is a boardid identifies the board, whatever it is.");
}

TEST_F(Explain, TellsWhatANegativeNumberLeavesOut) {
  mBoard.property("boardid", "-5").property("description", "Kestrel");
  expectRemark("With a number below 0, there is no OVX_ID and no OVX_DESC.");
}

TEST_F(Explain, TellsThatTheDescriptionIsEmpty) {
  mBoard.property("boardid", "5").property("description", bytes("\0"));
  expectRemark("The description is empty, and so is the name.");
}

TEST_F(Explain, SaysNothingOfADescriptionThatANewlineEnds) {
  mBoard.property("boardid", "5").property("description", bytes("Kestrel\n\0"));
  EXPECT_THAT(report(), Not(HasSubstr("\n- Only the first")));
  EXPECT_THAT(report(), Not(HasSubstr("is cut")));
}

TEST_F(Explain, TellsThatTheHardwareLineHasNoColon) {
  mBoard.cpuinfo("Hardware Kestrel\n");
  expectRemark("The Hardware line has no colon: all but its first letter is taken for its value.");
}

TEST_F(Explain, TellsThatANameHasAnEqualsSign) {
  mBoard.property("a=b", "x").property("c/a=b", "x");
  EXPECT_THAT(report(), Not(HasSubstr("Programs see")));
  expectRemark("No program sees a variable named 'OVX_A=B', which has a '='.");
}

TEST_F(Explain, SaysNothingOfTheSameBoardInTheCatalogue) {
  kernelIs("6.1.55-k2", "aarch64");
  mBoard.property("boardid", "12").property("description", "Kestrel");
  mBoard.catalogue("Kestrel:12:k2\n");
  EXPECT_THAT(report(), Not(HasSubstr("would match")));
}

TEST_F(Explain, TellsOfANearMissOnce) {
  kernelIs("6.1.55-k2", "aarch64");
  mBoard.catalogue("Kestrel:1:K2:K2\n");
  const std::string text = report();
  EXPECT_THAT(text, HasSubstr("'k2' differs"));
  EXPECT_EQ(text.find("'k2' differs"), text.rfind("'k2' differs"));
}

TEST_F(Explain, KnowsNoBreakSpaces) {
  kernelIs("6.1.55-k2", "aarch64");
  mBoard.catalogue("Kestrel:1:k2\xc2\xa0\n");
  expectRemark("'k2' differs from the alias 'k2\\xc2\\xa0' in line 1 only in blanks.");
}

// A NUL byte ends the message that would tell the value.
TEST_F(Explain, KnowsTheBoardOfAHardwareValueWithANul) {
  mBoard.cpuinfo(bytes("Hardware: Kestrel\0\n")).catalogue(bytes("Other:1\nKestrel\0:5:x\n"));
  EXPECT_THAT(report(), HasSubstr("number 5: the Hardware line matches line 2.\n"));
}

TEST_F(Explain, KnowsOneOfSeveralBoardsOfOneNameAndNumber) {
  kernelIs("6.1.55-k3", "aarch64");
  mBoard.catalogue("Kestrel:1:k2\nKestrel:1:k3\n");
  EXPECT_THAT(report(), HasSubstr("matches an alias in line 2.\n"));
}

TEST_F(Explain, PrintsTheMessagesOfTheIdentificationOnly) {
  mBoard.catalogue("Kestrel:1\n");
  const std::string messages = ovxid({"-v", "explain"}).err;
  const std::string read = "debug: Found hardware identity: Board number 1(Kestrel)\n";
  EXPECT_THAT(messages, HasSubstr(read));
  EXPECT_EQ(messages.find(read), messages.rfind(read));
}

TEST_F(Explain, TellsOfANodeThatCannotBeRead) {
  mBoard.property("secret/key", "x").permissions("/proc/device-tree/orvanix/secret", 0);
  obeysModes();
  expectRemark(
      "'/proc/device-tree/orvanix/secret' cannot be read: what is in it gives no "
      "parameters.");
}

TEST_F(Explain, TellsOfADescriptionThatCannotBeRead) {
  mBoard.property("boardid", "12").property("description", "x");
  mBoard.permissions("/proc/device-tree/orvanix/description", 0);
  obeysModes();
  expectRemark("/proc/device-tree/orvanix/description cannot be read: Permission denied.");
  EXPECT_THAT(report(), Not(HasSubstr("There is no description")));
  EXPECT_THAT(report(), HasSubstr("boardid '12', description: Permission denied\n"));
}

TEST_F(Explain, TellsThatCpuinfoCannotBeRead) {
  mBoard.directory("/proc/cpuinfo");
  expectRemark("/proc/cpuinfo cannot be read: Is a directory.");
}

TEST_F(Explain, SaysNothingOfAPropertyThatOverwritesNoIdentity) {
  mBoard.property("id", "7").property("desc", "x").property("wan_id", "y");
  EXPECT_THAT(report(), Not(HasSubstr("Programs see")));
}

TEST_F(Explain, SaysNothingOfSeveralPropertiesThatTheAddressOverwrites) {
  mBoard.property("a/wan_id", "x").property("b/wan_id", "y");
  EXPECT_THAT(report(), Not(HasSubstr("Programs see")));
}

TEST_F(Explain, TellsThatADescriptionOverwritesTheIdentity) {
  mBoard.property("boardid", "12").property("description", "Kestrel").property("desc", "x");
  expectRemark("Programs see one 'OVX_DESC', 'x': it is set by the identity and by 'desc'.");
}

TEST_F(Explain, KnowsBoardsOfOneNameApart) {
  kernelIs("6.1.55-k3", "aarch64");
  mBoard.catalogue("Kestrel:1:k2\nKestrel:2:k3\n").cpuinfo("Hardware: Kestrel\n");
  const std::string text = report();
  EXPECT_THAT(text, HasSubstr("number 2: the kernel's release matches an alias in line 2.\n"));
  EXPECT_THAT(text, HasSubstr("- The Hardware value 'Kestrel' would match 'Kestrel' in line 1.\n"));
}

TEST_F(Explain, ReadsASignOfTheNumber) {
  mBoard.property("boardid", "+5").property("description", "Kestrel");
  EXPECT_THAT(report(), Not(HasSubstr("The boardid")));
}

TEST_F(Explain, KnowsAHardwareValueThatANulBegins) {
  mBoard.cpuinfo(bytes("Hardware: \0k\n")).catalogue(bytes("\0k:5\n"));
  EXPECT_THAT(report(), HasSubstr("number 5: the Hardware line matches line 1.\n"));
}

TEST_F(Explain, ShowsLettersOfAnyScript) {
  mBoard.cpuinfo("Hardware: \xc3\xa4\xe2\x82\xac\xc2\x85\xe3\x80\x81\xf0\x9f\x92\xa1\n");
  EXPECT_THAT(report(), HasSubstr("Hardware '\xc3\xa4\xe2\x82\xac\\xc2\\x85\xe3\x80\x81"
                                  "\xf0\x9f\x92\xa1'"));
}

TEST_F(Explain, ShowsBackslashesAndWhatDoesNotShow) {
  mBoard.cpuinfo("Hardware: a\\0\xc2\xa0\xef\xbb\xbf\xe2\x80\x8b\n");
  EXPECT_THAT(report(), HasSubstr(R"(Hardware 'a\\0\xc2\xa0\xef\xbb\xbf\xe2\x80\x8b')"));
}

struct BoardidCase {
  const char* name;
  std::string boardid;
  const char* remark;
};

void PrintTo(const BoardidCase& boardid, std::ostream* out) { *out << boardid.remark; }

class ExplainBoardid : public Explain, public testing::WithParamInterface<BoardidCase> {};

TEST_P(ExplainBoardid, TellsWhatIsMadeOfIt) {
  mBoard.property("boardid", GetParam().boardid).property("description", "Kestrel");
  expectRemark(GetParam().remark);
}

INSTANTIATE_TEST_SUITE_P(
    Of, ExplainBoardid,
    testing::Values(
        BoardidCase{"Nothing", "", "The boardid is empty. The number is -1."},
        BoardidCase{"Blanks", " \n", "The boardid is white space. The number is -1."},
        BoardidCase{"Letters", "kestrel", "The boardid is no decimal number. The number is 0."},
        BoardidCase{"TooMuch", bytes("99999999999\0"),
                    "The boardid is out of range. The number is 2147483647."},
        BoardidCase{"TooLittle", bytes("-99999999999\0"),
                    "The boardid is out of range. The number is -2147483648."},
        BoardidCase{"FarTooMuch", "99999999999999999999999",
                    "The boardid is out of range. The number is 2147483647."},
        BoardidCase{"Hexadecimal", bytes("0x11\0"),
                    "The boardid is read only as far as its decimal digits go. The number is 0."}),
    [](const auto& test) { return test.param.name; });

TEST_F(Explain, SaysNothingOfTheLargestNumber) {
  mBoard.property("boardid", bytes("2147483647\0")).property("description", "Kestrel");
  EXPECT_THAT(report(), Not(HasSubstr("The boardid")));
}

TEST_F(Explain, SaysNothingOfANumber) {
  mBoard.property("boardid", bytes("-3\n")).property("description", bytes("Kestrel\0"));
  EXPECT_THAT(report(), Not(HasSubstr("The boardid")));
}

TEST_F(Explain, TellsThatTheDescriptionIsMissing) {
  mBoard.property("boardid", "12");
  expectRemark("There is no description, so the name stays 'Unknown'.");
}

TEST_F(Explain, TellsThatTheDescriptionAloneDoesNotIdentify) {
  mBoard.property("description", "Kestrel");
  expectRemark("The description does not identify a board without a boardid.");
}

TEST_F(Explain, TellsThatTheDescriptionHasMoreLines) {
  mBoard.property("boardid", "12").property("description", "Kestrel\nRev B");
  expectRemark("Only the first line of the description is the name.");
}

TEST_F(Explain, TellsOfNearMissesOfTheRelease) {
  kernelIs("6.1.55-k2", "aarch64");
  mBoard.catalogue("Kestrel:1:K2:k3\r\nk2:2: k2\nMerlin:3:k2\r\n");
  expectRemark("'k2' differs from the alias 'K2' in line 1 only in case.");
  expectRemark("'k2' differs from the alias ' k2' in line 2 only in blanks.");
  expectRemark("'k2' differs from the alias 'k2\\r' in line 3 only in a carriage return.");
  expectRemark(
      "'k2' is the name of the board in line 2, but a release is compared with aliases "
      "only.");
}

TEST_F(Explain, TellsOfNearMissesOfTheHardwareLine) {
  mBoard.cpuinfo("Hardware\t: Kestrel\n");
  mBoard.catalogue(bytes("kestrel:1\nMerlin:2:Kestrel\0\nGos:3:KESTREL \n"));
  expectRemark("'Kestrel' differs from the name of the board in line 1 only in case.");
  expectRemark("'Kestrel' differs from the alias 'Kestrel\\0' in line 2 only in a NUL byte.");
  expectRemark("'Kestrel' differs from the alias 'KESTREL ' in line 3 only in case and blanks.");
}

TEST_F(Explain, SaysNothingOfNearMissesOfASourceThatWasNotTried) {
  kernelIs("6.1.55-k2", "aarch64");
  mBoard.property("boardid", "12").catalogue("Kestrel:1:K2\n");
  EXPECT_THAT(report(), Not(HasSubstr("differs")));
}

TEST_F(Explain, TellsOfAPropertyThatCannotBeRead) {
  // Not even root opens a socket.
  mBoard.node();
  const sockaddr_un secret{AF_UNIX, "/proc/device-tree/orvanix/secret"};
  const int bound = socket(AF_UNIX, SOCK_DGRAM, 0);
  ASSERT_EQ(bind(bound, reinterpret_cast<const sockaddr*>(&secret), sizeof secret), 0);
  expectRemark(
      "The property 'secret' cannot be read (No such device or address): 'OVX_SECRET' is "
      "empty.");
  close(bound);
}

TEST_F(Explain, TellsOfAPropertyThatIsCut) {
  mBoard.property("card@1/notice", "first\nsecond");
  expectRemark("The property 'card@1/notice' is cut at its newline: 'OVX_NOTICE' is 'first'.");
}

TEST_F(Explain, TellsOfCellsThatAreCut) {
  mBoard.property("slots", bytes("\0\0\0\n")).property("mask", bytes("\n\0\0\0"));
  expectRemark("The property 'slots' is cut at its newline: 'OVX_SLOTS' is '\\0\\0\\0'.");
  expectRemark("The property 'mask' is cut at its newline: 'OVX_MASK' is ''.");
}

TEST_F(Explain, TellsOfPropertiesThatOverwriteTheIdentity) {
  mBoard.property("boardid", "12").property("description", "Kestrel").property("id", "7");
  expectRemark("Programs see one 'OVX_ID', '7': it is set by the identity and by 'id'.");
}

TEST_F(Explain, TellsOfPropertiesThatOverwriteEachOther) {
  mBoard.property("a/label", "x").property("b/label", "x").property("c/label", "x");
  expectRemark(
      "Programs see one 'OVX_LABEL', 'x': it is set by 'a/label', 'b/label' and "
      "'c/label'.");
}

TEST_F(Explain, TellsOfAPropertyThatTheAddressOverwrites) {
  mBoard.interface("eth0", "02:42:ac:11:00:02").property("wan", "eth0").property("wan_id", "x");
  expectRemark("The property 'wan_id' is overwritten by the MAC address of 'eth0'.");
  EXPECT_THAT(report(), Not(HasSubstr("Programs see")));
}

TEST_F(Explain, TellsThatThereIsNoAddressToOverwriteAProperty) {
  mBoard.property("wan", "eth9").property("wan_id", "x");
  expectRemark("The WAN interface 'eth9': No such device.");
}

TEST_F(Explain, TellsThatTheAddressIsOfAnotherInterface) {
  mBoard.interface("eth0", "02:42:ac:11:00:02").interface("eth1", "02:42:ac:11:00:03");
  mBoard.property("a/wan", "eth0").property("b/wan", "eth1");
  EXPECT_THAT(report(), testing::ContainsRegex("OVX_WAN_ID is the MAC address of 'eth[01]', which "
                                               "is not the interface that programs see"));
}

// The kernel gives each node a file of this name, which is no property of it.
TEST_F(Explain, OverlooksTheNamesOfNodes) {
  mBoard.property("name", "or\nvanix").property("radio/name", "radio").property("radio/band", "5");
  EXPECT_THAT(report(), Not(HasSubstr("name")));
}

TEST_F(Explain, TellsThatUnameFailed) {
  kernelIs("", "");
  EXPECT_THAT(report(), HasSubstr("kernel release  uname: Bad address\n"
                                  "machine         uname: Bad address\n"));
}

TEST_F(Explain, TellsThatTheReleaseEndsInAHyphen) {
  kernelIs("6.1-", "mips");
  EXPECT_THAT(report(), HasSubstr("kernel release  6.1-: nothing stands behind its last '-'\n"));
}

TEST_F(Explain, TellsThatNoCatalogueHoldsAColon) {
  mBoard.cpuinfo("Hardware: A:B\n");
  EXPECT_THAT(report(), HasSubstr("(The Hardware value has a colon, which no value in a catalogue "
                                  "can have.)\n"));
}

TEST_F(Explain, TellsThatThereIsNoCpuinfo) {
  mBoard.directory("/proc/device-tree");
  EXPECT_THAT(report(), HasSubstr("- There is no /proc/cpuinfo: a container hides it.\n"
                                  "- The device tree has no node /orvanix.\n"));
}

TEST_F(Explain, TellsOfAMisspeltNode) {
  mBoard.directory("/proc/device-tree/orvanics").directory("/proc/device-tree/cpus");
  expectRemark("The device tree has a node 'orvanics', but 'orvanix' is looked for.");
}

TEST_F(Explain, TellsOfMisspeltProperties) {
  mBoard.property("boardID", "12").property("descripton", "Kestrel").property("wan", "eth0");
  expectRemark(
      "The node has a property 'boardID', but 'boardid' is looked for.\n"
      "- The node has a property 'descripton', but 'description' is looked for.");
}

TEST_F(Explain, TellsThatTheNodeHasNoBoardid) {
  mBoard.property("site", "north gate");
  expectRemark("The node /orvanix has no boardid.");
}

TEST_F(Explain, MissesNoBoardidOnABoardThatIsIdentified) {
  mBoard.property("site", "north gate").cpuinfo("Hardware: Kestrel\n").catalogue("Kestrel:12\n");
  EXPECT_THAT(report(), Not(HasSubstr("boardid.")));
}

TEST_F(Explain, TellsThatTheDescriptionIsOfCells) {
  mBoard.property("boardid", "12").property("description", bytes("\0\0\0\x0c"));
  expectRemark("The description is of cells, but is read as text: the name is empty.");
}

TEST_F(Explain, TellsThatTheBoardidMeansAPc) {
  mBoard.property("boardid", "64").property("description", "Kestrel");
  expectRemark("The boardid is 64, the number that means a PC.");
}

TEST_F(Explain, TellsWhichReleasesHaveTheSameEnd) {
  kernelIs("5.15.148-vx-7b", "mips");
  expectRemark(
      "Of the release, only what follows the last '-' counts: any kernel that ends in '-7b' "
      "matches the alias '7b'.");
}

TEST_F(Explain, TellsThatManyReleasesEndInANumber) {
  kernelIs("6.1.0-13", "mips");
  mBoard.catalogue("Kestrel:12:13\n");
  expectRemark(
      "Of the release, only what follows the last '-' counts: any kernel that ends in '-13' "
      "matches the alias '13'.");
}

TEST_F(Explain, SaysNothingOfOtherReleasesWhereTheEndTellsEnough) {
  kernelIs("6.1.55-kestrel2", "mips");
  EXPECT_THAT(report(), Not(HasSubstr("Of the release")));
}

TEST_F(Explain, SaysNothingOfOtherReleasesWhereAnotherSourceDecided) {
  kernelIs("6.1.0-13", "mips");
  mBoard.property("boardid", "12").property("description", "Kestrel");
  EXPECT_THAT(report(), Not(HasSubstr("Of the release")));
}

TEST_F(Explain, ShowsTheBlanksAtTheEndsOfTheHardwareValue) {
  mBoard.cpuinfo("Hardware:  Kestrel 2  \n");
  EXPECT_THAT(report(), HasSubstr("This line in /etc/known_ovx_ids would make it known:\n"
                                  "  NAME:NUMBER:\\x20Kestrel 2\\x20\\x20\n"
                                  "where the escapes stand for the bytes themselves.\n"));
}

TEST_F(Explain, ShowsTheBlankThatBeginsTheHardwareValue) {
  mBoard.cpuinfo("Hardware:  Kestrel\n");
  EXPECT_THAT(report(), HasSubstr("  NAME:NUMBER:\\x20Kestrel\n"));
}

TEST_F(Explain, ShowsTheBlankThatEndsTheHardwareValue) {
  mBoard.cpuinfo("Hardware: Kestrel \n");
  EXPECT_THAT(report(), HasSubstr("  NAME:NUMBER:Kestrel\\x20\n"));
}

TEST_F(Explain, ShowsAHardwareValueOfBlanks) {
  mBoard.cpuinfo("Hardware:   \n");
  EXPECT_THAT(report(), HasSubstr("  NAME:NUMBER:\\x20\\x20\n"));
}

TEST_F(Explain, TellsOfValuesThatProgramsSeeInPart) {
  mBoard.property("gates", bytes("north\0south\0"))
      .property("speed", bytes("\0\0\0\0"))
      .property("site", bytes("hall\0"))
      .property("room", "7")
      .property("none", bytes("\0"));
  expectRemark(
      "Of cells and of lists of texts, programs see only what stands before the first NUL byte: "
      "'OVX_GATES' and 'OVX_SPEED'.");
}

TEST_F(Explain, TellsOfAPropertyThatIsCalledLikeAParameter) {
  mBoard.property("ovx_site", "hall");
  expectRemark(
      "The property 'ovx_site' becomes 'OVX_OVX_SITE': leave out what stands before its "
      "name.");
}

TEST_F(Explain, NamesAliasesThatDifferInAPlus) {
  kernelIs("6.1.55-kestrel2+", "mips");
  mBoard.catalogue("Kestrel:12:kestrel2\n");
  expectRemark("'kestrel2+' differs from the alias 'kestrel2' in line 1 only in a '+'.");
}

TEST_F(Explain, TellsThatTheWanNamesNoInterface) {
  mBoard.property("wan", bytes("\0\0\0\0"));
  expectRemark("OVX_WAN names no interface. There is no OVX_WAN_ID.");
}

TEST_F(Explain, TellsOfNamesThatNoShellHas) {
  mBoard.property("#cells", "x").property("gpio{1}", "x").property("name", "orvanix");
  expectRemark("Shells cannot have variables named 'OVX_#CELLS' and 'OVX_GPIO{1}'.");
}

TEST_F(Explain, TellsThatTheWanInterfaceIsNotThere) {
  mBoard.property("wan", bytes("eth9\0"));
  expectRemark("The WAN interface 'eth9': No such device. There is no OVX_WAN_ID.");
}

TEST_F(Explain, TellsThatTheNameOfTheWanInterfaceIsOneByteTooLong) {
  mBoard.property("wan", "interface-16byte");
  expectRemark(
      "The WAN interface 'interface-16byte' has more than 15 bytes: collecting the "
      "parameters aborts.");
}

TEST_F(Explain, TellsThatTheNameOfTheWanInterfaceIsTooLong) {
  mBoard.property("wan", "an-interface-of-20-b");
  expectRemark(
      "The WAN interface 'an-interface-of-20-b' has more than 15 bytes: collecting the "
      "parameters aborts.");
}

TEST_F(Explain, SaysNothingOfAWanInterfaceThatIsThere) {
  mBoard.interface("eth0", "02:42:ac:11:00:02").property("wan", bytes("eth0\0"));
  EXPECT_THAT(report(), Not(HasSubstr("The WAN interface")));
}

}  // namespace
