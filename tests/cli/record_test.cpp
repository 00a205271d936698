#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "cli/front_end.h"
#include "cli/terminal.h"
#include "recording/mac.h"
#include "recording/reader.h"
#include "simulation/system_calls.h"

namespace fs = std::filesystem;

using ovxid::recording::Content;
using ovxid::recording::Entry;
using ovxid::recording::Interface;
using ovxid::recording::Recording;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;

namespace {

constexpr const char* document = "/proc/recordings/board.json";

std::string fileContent(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

// The names in a directory.
std::vector<std::string> namesIn(const std::string& directory) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(directory)) {
    names.push_back(entry.path().filename());
  }
  return names;
}

const Entry& entryNamed(const std::string& name, const std::vector<Entry>& entries) {
  static const Entry none;
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [&](const Entry& each) { return each.name == name; });
  EXPECT_NE(found, entries.end()) << "no entry " << name;
  return found == entries.end() ? none : *found;
}

// The entries in their order, those of nodes behind the names of these.
void appendPaths(const Entry& node, const std::string& path, std::vector<std::string>& paths) {
  for (const Entry& each : node.content) {
    paths.push_back(path + each.name);
    appendPaths(each, path + each.name + "/", paths);
  }
}

// An interface a line: name, address and MAC address.
std::string listOf(const std::vector<Interface>& interfaces) {
  std::string list;
  for (const Interface& each : interfaces) {
    list += each.name + " " + each.address.value_or("-") + " " +
            (each.mac ? ovxid::recording::textOf(*each.mac) : "-") + "\n";
  }
  return list;
}

class Record : public FrontEnd {
 protected:
  Record() {
    kernelIs("6.1.55-kestrel2", "aarch64");
    mBoard.directory("/proc/recordings");
  }

  Recording recorded(const Arguments& options = {}) {
    Arguments arguments = {"record"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const Outcome outcome = ovxid(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    return ovxid::recording::readDocument(outcome.out);
  }
};

TEST_F(Record, WritesDownWhatIsThere) {
  mBoard.property("boardid", bytes("12\0"))
      .property("flag", "")
      .property("io@1/label", "front")
      .cpuinfo("Hardware\t: Kestrel\n")
      .catalogue("Kestrel:12\n");
  const Recording recording = recorded();
  const std::vector<Entry>& node = recording.node.value().content;
  EXPECT_EQ(entryNamed("boardid", node).value.bytes, bytes("12\0"));
  EXPECT_EQ(entryNamed("flag", node).value.bytes, "");
  EXPECT_EQ(entryNamed("label", entryNamed("io@1", node).content).value.bytes, "front");
  EXPECT_EQ(recording.cpuinfo.bytes, "Hardware\t: Kestrel\n");
  EXPECT_EQ(recording.catalogue.bytes, "Kestrel:12\n");
  EXPECT_EQ(recording.release, "6.1.55-kestrel2");
  EXPECT_EQ(recording.machine, "aarch64");
  EXPECT_THAT(recording.interfaces, IsEmpty());
}

TEST_F(Record, TellsWhatIsNotThere) {
  const Recording recording = recorded();
  EXPECT_FALSE(recording.hasDeviceTree);
  EXPECT_FALSE(recording.node);
  EXPECT_EQ(recording.cpuinfo.openError, ENOENT);
  EXPECT_EQ(recording.catalogue.openError, ENOENT);
}

TEST_F(Record, TellsThatThereIsADeviceTreeWithoutTheNode) {
  mBoard.directory("/proc/device-tree");
  const Recording recording = recorded();
  EXPECT_TRUE(recording.hasDeviceTree);
  EXPECT_FALSE(recording.node);
}

TEST_F(Record, TellsPeopleTheModel) {
  mBoard.file("/proc/device-tree/model", bytes("Kestrel Rev B\0"))
      .file("/proc/device-tree/compatible", bytes("orvanix,kestrel\0orvanix,board\0"));
  const Recording recording = recorded();
  EXPECT_EQ(recording.model, "Kestrel Rev B");
  EXPECT_THAT(recording.compatible, ElementsAre("orvanix,kestrel", "orvanix,board"));
}

TEST_F(Record, TellsTheRoomOfTheListOfInterfaces) {
  EXPECT_EQ(recorded().interfaceRoom, 1024 / sizeof(ifreq));
}

TEST_F(Record, WritesAFileThatOthersCannotRead) {
  EXPECT_EQ(ovxid({"record", "--output", document}), (Outcome{0, "", ""}));
  EXPECT_EQ(fs::status(document).permissions(), fs::perms(0600));
  EXPECT_EQ(fileContent(document), ovxid({"record"}).out);
}

TEST_F(Record, KeepsTheAddressOfAnInterfaceWithTheLongestName) {
  mBoard.interface("fifteen-letters", "02:42:ac:11:00:0f").property("wan", "fifteen-letters");
  EXPECT_EQ(listOf(recorded().interfaces), "fifteen-letters - 02:42:ac:11:00:0f\n");
}

TEST_F(Record, KeepsNodesWithoutProperties) {
  mBoard.childNode("empty");
  const Recording recording = recorded();
  EXPECT_TRUE(entryNamed("empty", recording.node.value().content).isNode);
}

TEST_F(Record, KeepsTheOrderOfDirectories) {
  for (const char* path : {"one", "two", "sub/three", "sub/four", "five"}) {
    mBoard.property(path, path);
  }
  std::vector<std::string> order;
  for (const auto& entry : fs::recursive_directory_iterator(nodePath)) {
    order.push_back(entry.path().lexically_relative(nodePath));
  }
  ASSERT_EQ(order.size(), 6);
  std::vector<std::string> recordedOrder;
  appendPaths(recorded().node.value(), "", recordedOrder);
  EXPECT_EQ(recordedOrder, order);
}

TEST_F(Record, KeepsEveryByteOfAName) {
  mBoard.property("a\nb\\\xe4", "x");
  const Recording recording = recorded();
  EXPECT_EQ(entryNamed("a\nb\\\xe4", recording.node.value().content).value.bytes, "x");
}

TEST_F(Record, WritesDownWhatTheFrontEndSays) {
  mBoard.property("boardid", bytes("12\0")).property("description", "K\xe4strel \n");
  const Outcome listing = ovxid({"-v", "list"});
  const Recording recording = recorded();
  EXPECT_EQ((Outcome{recording.said->status, recording.said->out, recording.said->err}), listing);
  EXPECT_THAT(recording.said->out, testing::StartsWith("OVX_ID=12\nOVX_DESC=K\xe4strel \n"));
}

TEST_F(Record, WritesDownThatTheNameOfTheInterfaceIsTooLong) {
  mBoard.property("wan", "interface-16byte");
  const Recording recording = recorded();
  EXPECT_EQ(recording.said->status, 134);
  EXPECT_THAT(
      recording.said->err,
      testing::EndsWith("\novxid: OVX_WAN: the name of the interface has more than 15 bytes\n"));
}

TEST_F(Record, TellsWhatMayNotBeRead) {
  mBoard.property("secret", "x").property("open", "y").cpuinfo("Hardware: K\n");
  mBoard.permissions("/proc/cpuinfo", 0).permissions(std::string(nodePath) + "/secret", 0);
  obeysModes();
  const Recording recording = recorded();
  const std::vector<Entry>& node = recording.node.value().content;
  EXPECT_EQ(recording.cpuinfo.openError, EACCES);
  EXPECT_EQ(entryNamed("secret", node).value.openError, EACCES);
  EXPECT_EQ(entryNamed("open", node).value.bytes, "y");
}

class RecordClosedNode : public Record, public testing::WithParamInterface<unsigned> {};

TEST_P(RecordClosedNode, TellsThatItMayNotBeRead) {
  mBoard.property("closed/secret", "x");
  mBoard.permissions(std::string(nodePath) + "/closed", GetParam());
  obeysModes();
  const Recording recording = recorded();
  const Entry& closed = entryNamed("closed", recording.node.value().content);
  EXPECT_TRUE(closed.isNode);
  EXPECT_EQ(closed.value.openError, EACCES);
  EXPECT_THAT(closed.content, IsEmpty());
}

// Of the second, the names may be read.
INSTANTIATE_TEST_SUITE_P(Of, RecordClosedNode, testing::Values(0, 0400));

TEST_F(Record, KeepsADirectoryInThePlaceOfAFile) {
  mBoard.directory(cataloguePath);
  EXPECT_EQ(recorded().catalogue.readError, EISDIR);
}

TEST_F(Record, TellsThatTheKernelDidNotTell) {
  kernelIs("", "");
  EXPECT_EQ(recorded().unameError, EFAULT);
}

TEST_F(Record, RefusesAPropertyOfTooManyBytes) {
  mBoard.property("large", std::string((1U << 20) + 1, 'x'));
  EXPECT_EQ(ovxid({"record"}),
            (Outcome{4, "",
                     "ovxid: /proc/device-tree/orvanix/large: a recording holds no more than "
                     "1048576 bytes of a property\n"}));
}

TEST_F(Record, RefusesACatalogueOfTooManyBytes) {
  mBoard.catalogue(std::string((16U << 20) + 1, 'x'));
  EXPECT_EQ(
      ovxid({"record"}),
      (Outcome{4, "",
               "ovxid: /etc/known_ovx_ids: a recording holds no more than 16777216 bytes of a "
               "file\n"}));
}

// Each byte of these stands in the document by six.
TEST_F(Record, RefusesABoardWhoseDocumentNobodyWouldRead) {
  mBoard.catalogue(std::string(3U << 20, '\1') + "\n");
  EXPECT_EQ(ovxid({"record"}),
            (Outcome{4, "", "ovxid: board: a recording holds no more than 16777216 bytes\n"}));
}

TEST_F(Record, HidesTheAddressBehindAPropertyThatLooksTheSame) {
  mBoard.interface("eth0", "02:42:ac:11:0f:7f").property("wan", bytes("eth0\0"));
  mBoard.property("wan_id", "242ffac11f7f");
  const std::string listing = recorded({"--no-mac"}).said->out;
  const std::string line = "OVX_WAN_ID=242ffac11f7f\n";
  EXPECT_NE(listing.find(line), std::string::npos);
  EXPECT_EQ(listing.find(line), listing.rfind(line));
  EXPECT_NE(listing.substr(listing.size() - line.size()), line);
}

TEST_F(Record, RefusesTooManyProperties) {
  mBoard.node();
  for (int number = 0; number <= 100000; ++number) {
    const std::string path = std::string(nodePath) + "/" + std::to_string(number);
    close(creat(path.c_str(), 0644));
  }
  const Outcome outcome = ovxid({"record"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_THAT(outcome.err,
              testing::EndsWith(": a recording holds no more than 100000 properties\n"));
}

TEST_F(Record, RefusesNodesThatAreTooDeep) {
  std::string path;
  for (int depth = 0; depth < 64; ++depth) {
    path += "n/";
  }
  mBoard.property(path + "deep", "x");
  EXPECT_THAT(ovxid({"record"}).err,
              testing::EndsWith("/n: a recording holds no more than 64 levels of nodes\n"));
}

TEST_F(Record, ListsTheAddressesInTheOrderOfTheKernel) {
  mBoard.interface("wan0", "02:42:ac:11:00:0f").interface("eth0", "02:42:ac:11:00:ff");
  mBoard.address("eth0", "10.0.0.1/8").labelledAddress("eth0:b", "10.0.0.2/8");
  mBoard.address("wan0", "192.168.7.1/24");
  EXPECT_EQ(listOf(recorded().interfaces),
            "wan0 192.168.7.1 02:42:ac:11:00:0f\n"
            "eth0 10.0.0.1 02:42:ac:11:00:ff\n"
            "eth0:b 10.0.0.2 02:42:ac:11:00:ff\n");
}

TEST_F(Record, ListsTheWanInterfaceThatHasNoAddress) {
  mBoard.interface("eth0", "02:42:ac:11:00:0f").interface("eth1", "02:42:ac:11:00:10");
  mBoard.property("wan", bytes("eth0\0"));
  EXPECT_EQ(listOf(recorded().interfaces), "eth0 - 02:42:ac:11:00:0f\n");
}

TEST_F(Record, ListsTheWanInterfaceOnceThatHasAnAddress) {
  mBoard.interface("eth0", "02:42:ac:11:00:0f").property("wan", bytes("eth0\0"));
  mBoard.address("eth0", "10.0.0.1/8").labelledAddress("eth0:b", "10.0.0.2/8");
  EXPECT_EQ(listOf(recorded().interfaces),
            "eth0 10.0.0.1 02:42:ac:11:00:0f\neth0:b 10.0.0.2 02:42:ac:11:00:0f\n");
}

TEST_F(Record, LeavesOutAWanInterfaceThatIsNotThere) {
  mBoard.property("wan", bytes("eth0\0"));
  EXPECT_EQ(listOf(recorded().interfaces), "");
}

TEST_F(Record, ListsAnyNumberOfAddresses) {
  std::string list;
  for (int number = 1; number <= 40; ++number) {
    const std::string address = "127.0.0." + std::to_string(number);
    mBoard.address("lo", address + "/8");
    list += "lo " + address + " 00:00:00:00:00:00\n";
  }
  EXPECT_EQ(listOf(recorded().interfaces), list);
}

TEST_F(Record, ListsAnInterfaceWhoseMacAddressTheKernelDoesNotTell) {
  mBoard.address("lo", "127.0.0.1/8");
  kernelRefuses(SYS_ioctl, SIOCGIFHWADDR);
  EXPECT_EQ(listOf(recorded().interfaces), "lo 127.0.0.1 -\n");
}

struct Refusal {
  const char* name;
  long call;
  unsigned argument;
};

void PrintTo(const Refusal& refusal, std::ostream* out) { *out << refusal.name; }

class RecordWithout : public Record, public testing::WithParamInterface<Refusal> {};

TEST_P(RecordWithout, TellsThatTheInterfacesAreMissing) {
  kernelRefuses(GetParam().call, GetParam().argument);
  EXPECT_EQ(ovxid({"record"}), (Outcome{4, "", "ovxid: interfaces: Operation not permitted\n"}));
}

INSTANTIATE_TEST_SUITE_P(The, RecordWithout,
                         testing::Values(Refusal{"Socket", SYS_socket, SOCK_DGRAM | SOCK_CLOEXEC},
                                         Refusal{"List", SYS_ioctl, SIOCGIFCONF}),
                         [](const auto& test) { return test.param.name; });

TEST_F(Record, LeavesOutTheSerialNumberOfTheMachine) {
  mBoard.cpuinfo(
      "Hardware\t: Kestrel\nRevision\t: 00a1\nSerial\t\t: 00000000fa12cd07\nModel: 12ab\n");
  EXPECT_EQ(recorded().cpuinfo.bytes,
            "Hardware\t: Kestrel\nRevision\t: 00a1\nSerial\t\t: 0000000000000000\nModel: 12ab\n");
}

TEST_F(Record, LeavesOutTheSerialNumberInMessages) {
  mBoard.cpuinfo(
      "Serial\t\t: 00000000fa12cd07\nprocessor 0: identification = 0133E8,  machine = 2964\n"
      "identification  : 0133E8\n");
  const Recording recording = recorded();
  EXPECT_EQ(recording.cpuinfo.bytes,
            "Serial\t\t: 0000000000000000\nprocessor 0: identification = 000000,  machine = 2964\n"
            "identification  : 000000\n");
  EXPECT_THAT(recording.said->err, HasSubstr("Serial\t\t: 0000000000000000\n"));
  EXPECT_THAT(recording.said->err, Not(HasSubstr("fa12cd07")));
  EXPECT_THAT(recording.said->err, Not(HasSubstr("0133E8")));
}

TEST_F(Record, KeepsTheBytesOfMessagesThatATerminalWouldNotShow) {
  mBoard.cpuinfo("Serial\t\t: 00000000fa12cd07\nHardware\t: Kestrel\x1b\n");
  const Recording inAFile = recorded();
  const Terminal terminal;
  messagesTo(terminal.path());
  EXPECT_EQ(recorded().said->err, inAFile.said->err);
}

TEST_F(Record, KeepsWhatIsOnlyCalledLikeASerialNumber) {
  const std::string cpuinfo =
      "Serial\nSerial bus\t: a1\nNumber\t: a2\nthe identification = a3\nprocessor\t: 4\n"
      "Hardware\t: Serial Board\n";
  mBoard.cpuinfo(cpuinfo).catalogue("Serial ab:7:identification = ab\n");
  const Recording recording = recorded();
  EXPECT_EQ(recording.cpuinfo.bytes, cpuinfo);
  EXPECT_THAT(recording.said->err, HasSubstr("Searching known aliases of Serial ab...\n"));
  EXPECT_THAT(recording.said->err, HasSubstr("Found possisble alias: 'Serial Board'\n"));
}

TEST_F(Record, LeavesOutASerialNumberOfAnyField) {
  mBoard.cpuinfo(
      "Serial Number : 8{8\nsystem serial : K-99,x\nSYSTEM SERIAL NUMBER\t: kes7\nserialno: 5\n");
  EXPECT_EQ(recorded().cpuinfo.bytes,
            "Serial Number : 0{0\nsystem serial : 0-00,x\nSYSTEM SERIAL NUMBER\t: 0000\n"
            "serialno: 0\n");
}

class RecordNoMac : public Record {
 protected:
  Recording recorded() { return Record::recorded({"--no-mac"}); }
};

TEST_F(RecordNoMac, MakesUpAddressesOfTheSamePattern) {
  mBoard.interface("eth0", "02:42:ac:11:0f:7f").address("eth0", "10.0.0.1/8");
  mBoard.labelledAddress("eth0:b", "10.0.0.2/8");
  const std::vector<Interface> interfaces = recorded().interfaces;
  ASSERT_EQ(interfaces.size(), 2);
  const std::string mac = ovxid::recording::textOf(interfaces[0].mac.value());
  EXPECT_THAT(mac, MatchesRegex("0[02468ace]:[1-7].:[89a-f].:[1-7].:0.:[1-7]."));
  EXPECT_NE(mac, "02:42:ac:11:0f:7f");
  EXPECT_EQ(interfaces[1].mac, interfaces[0].mac);
}

TEST_F(RecordNoMac, HasTheMadeUpAddressInTheListing) {
  mBoard.interface("eth0", "02:42:ac:11:0f:7f").property("wan", bytes("eth0\0"));
  const Recording recording = recorded();
  EXPECT_THAT(recording.said->out, Not(HasSubstr("242ffac11f7f")));
  const std::string& listing = recording.said->out;
  EXPECT_THAT(listing.substr(listing.find("OVX_WAN_ID=")),
              MatchesRegex("OVX_WAN_ID=[02468ace][1-7].ff[89a-f].[1-7]..[1-7].\n"));
  EXPECT_THAT(listOf(recording.interfaces), Not(HasSubstr("02:42:ac")));
}

// A line of the name of a property is not the WAN interface.
TEST_F(RecordNoMac, KeepsAListingThatHasNoAddress) {
  mBoard.interface("eth0", "02:42:ac:11:0f:7f").property("a\novx_wan", "eth0");
  EXPECT_EQ(recorded().said->out, "OVX_A\nOVX_WAN=eth0\n");
}

TEST_F(RecordNoMac, KeepsTheAddressOfTheLoopback) {
  mBoard.address("lo", "127.0.0.1/8");
  EXPECT_EQ(listOf(recorded().interfaces), "lo 127.0.0.1 00:00:00:00:00:00\n");
}

TEST_F(Record, LeavesNothingBehindWhenTheDiskIsFull) {
  mBoard.cpuinfo(std::string(100000, 'c'));
  ASSERT_EQ(mount("tests", "/proc/recordings", "tmpfs", 0, "size=65536"), 0);
  EXPECT_EQ(ovxid({"record", "--output", document}),
            (Outcome{3, "", "ovxid: /proc/recordings/board.json: No space left on device\n"}));
  EXPECT_THAT(namesIn("/proc/recordings"), IsEmpty());
}

TEST_F(Record, TakesNoOperand) {
  EXPECT_EQ(ovxid({"record", "board-12"}),
            (Outcome{2, "",
                     "ovxid: board-12: too many arguments for 'record' (see 'ovxid help "
                     "record')\n"}));
}

}  // namespace
