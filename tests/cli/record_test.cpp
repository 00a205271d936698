#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "cli/front_end.h"
#include "simulation/system_calls.h"

namespace fs = std::filesystem;

using testing::ContainsRegex;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;

namespace {

constexpr const char* recording = "/proc/recordings/board";

// Each file below a directory, by its path, and its content.
std::map<std::string, std::string> contentsIn(const std::string& directory) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(directory)) {
    if (entry.is_regular_file()) {
      std::ostringstream content;
      content << std::ifstream(entry.path(), std::ios::binary).rdbuf();
      files[entry.path().lexically_relative(directory)] = content.str();
    }
  }
  return files;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

class Record : public FrontEnd {
 protected:
  Record() {
    kernelIs("6.1.55-kestrel2", "aarch64");
    mBoard.directory("/proc/recordings");
  }

  // The files of the recording.
  std::map<std::string, std::string> recorded() {
    EXPECT_EQ(ovxid({"record", recording}), (Outcome{0, "", ""}));
    return contentsIn(recording);
  }
};

TEST_F(Record, WritesDownWhatIsThere) {
  mBoard.property("boardid", bytes("12\0"))
      .property("flag", "")
      .property("io@1/label", "front")
      .cpuinfo("Hardware\t: Kestrel\n")
      .catalogue("Kestrel:12\n");
  std::map<std::string, std::string> files = recorded();
  EXPECT_EQ(files["device-tree/boardid"], bytes("12\0"));
  EXPECT_EQ(files.count("device-tree/flag"), 1);
  EXPECT_EQ(files["device-tree/flag"], "");
  EXPECT_EQ(files["device-tree/io@1/label"], "front");
  EXPECT_EQ(files["cpuinfo"], "Hardware\t: Kestrel\n");
  EXPECT_EQ(files["known_ovx_ids"], "Kestrel:12\n");
  EXPECT_EQ(files["machine"], "release=6.1.55-kestrel2\nmachine=aarch64\n");
  EXPECT_EQ(files["interfaces"], "");
}

TEST_F(Record, LeavesOutWhatIsNotThere) {
  std::map<std::string, std::string> files = recorded();
  files.erase("said");
  EXPECT_THAT(files, ElementsAre(testing::Key("interfaces"), testing::Key("machine")));
}

TEST_F(Record, GivesFilesTheModeThatTheUmaskGives) {
  const mode_t before = umask(027);
  recorded();
  umask(before);
  EXPECT_EQ(fs::status(std::string(recording) + "/machine").permissions(), fs::perms(0640));
}

TEST_F(Record, KeepsTheAddressOfAnInterfaceWithTheLongestName) {
  mBoard.interface("fifteen-letters", "02:42:ac:11:00:0f").property("wan", "fifteen-letters");
  EXPECT_EQ(recorded()["interfaces"], "fifteen-letters - 02:42:ac:11:00:0f\n");
}

TEST_F(Record, KeepsNodesWithoutProperties) {
  mBoard.childNode("empty");
  recorded();
  EXPECT_TRUE(fs::is_directory(std::string(recording) + "/device-tree/empty"));
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
  EXPECT_EQ(linesOf(recorded()["device-tree.order"]), order);
}

TEST_F(Record, EscapesNamesThatAreNoLine) {
  mBoard.property("a\nb\\", "x");
  std::map<std::string, std::string> files = recorded();
  EXPECT_EQ(files["device-tree.order"], "a\\x0ab\\\\\n");
  EXPECT_EQ(files["device-tree/a\nb\\"], "x");
}

TEST_F(Record, WritesDownWhatTheFrontEndSays) {
  mBoard.property("boardid", bytes("12\0")).property("description", "K\xe4strel \n");
  const std::string said = recorded()["said"];
  EXPECT_THAT(said, testing::StartsWith("$ ovxid -v list\n"
                                        "out| OVX_ID=12\n"
                                        "out| OVX_DESC=K\\xe4strel\\x20\n"));
  EXPECT_THAT(said, HasSubstr("\nout| OVX_BOARDID=12\\x00\n"));
  EXPECT_THAT(said, HasSubstr("\nerr| debug: Creating OvxIdentifier...\n"));
  EXPECT_THAT(said, testing::EndsWith("\nexit 0\n"));
}

TEST_F(Record, WritesDownThatTheProcessAborted) {
  mBoard.property("wan", "interface-16byte");
  EXPECT_THAT(recorded()["said"],
              testing::EndsWith("\nerr| ovxid: OVX_WAN: the name of the interface has more than 15 "
                                "bytes\nexit 134\n"));
}

TEST_F(Record, NotesWhatMayNotBeRead) {
  mBoard.property("secret", "x").property("open", "y").cpuinfo("Hardware: K\n");
  mBoard.permissions("/proc/cpuinfo", 0).permissions(std::string(nodePath) + "/secret", 0);
  obeysModes();
  std::map<std::string, std::string> files = recorded();
  EXPECT_THAT(files["machine"], testing::EndsWith("\nunreadable=device-tree/secret\n"
                                                  "unreadable=cpuinfo\n"));
  EXPECT_EQ(files.count("device-tree/secret") + files.count("cpuinfo"), 0);
  EXPECT_EQ(files["device-tree/open"], "y");
}

TEST_F(Record, NotesNodesThatMayNotBeRead) {
  mBoard.property("closed/secret", "x").permissions(std::string(nodePath) + "/closed", 0);
  obeysModes();
  EXPECT_THAT(recorded()["machine"], testing::EndsWith("\nunreadable=device-tree/closed\n"));
  EXPECT_TRUE(fs::is_empty(std::string(recording) + "/device-tree/closed"));
}

TEST_F(Record, NotesNodesOfWhichOnlyTheNamesMayBeRead) {
  mBoard.property("closed/secret", "x").permissions(std::string(nodePath) + "/closed", 0400);
  obeysModes();
  EXPECT_THAT(recorded()["machine"], testing::EndsWith("\nunreadable=device-tree/closed\n"));
  EXPECT_TRUE(fs::is_empty(std::string(recording) + "/device-tree/closed"));
}

TEST_F(Record, KeepsADirectoryInThePlaceOfAFile) {
  mBoard.directory(cataloguePath);
  recorded();
  EXPECT_TRUE(fs::is_directory(std::string(recording) + "/known_ovx_ids"));
}

TEST_F(Record, NotesThatTheKernelDidNotTell) {
  kernelIs("", "");
  EXPECT_EQ(recorded()["machine"], "unreadable=uname\n");
}

TEST_F(Record, ListsTheAddressesInTheOrderOfTheKernel) {
  mBoard.interface("wan0", "02:42:ac:11:00:0f").interface("eth0", "02:42:ac:11:00:ff");
  mBoard.address("eth0", "10.0.0.1/8").labelledAddress("eth0:b", "10.0.0.2/8");
  mBoard.address("wan0", "192.168.7.1/24");
  EXPECT_EQ(recorded()["interfaces"],
            "wan0 192.168.7.1 02:42:ac:11:00:0f\n"
            "eth0 10.0.0.1 02:42:ac:11:00:ff\n"
            "eth0:b 10.0.0.2 02:42:ac:11:00:ff\n");
}

TEST_F(Record, ListsTheWanInterfaceThatHasNoAddress) {
  mBoard.interface("eth0", "02:42:ac:11:00:0f").interface("eth1", "02:42:ac:11:00:10");
  mBoard.property("wan", bytes("eth0\0"));
  EXPECT_EQ(recorded()["interfaces"], "eth0 - 02:42:ac:11:00:0f\n");
}

TEST_F(Record, ListsTheWanInterfaceOnceThatHasAnAddress) {
  mBoard.interface("eth0", "02:42:ac:11:00:0f").property("wan", bytes("eth0\0"));
  mBoard.address("eth0", "10.0.0.1/8").labelledAddress("eth0:b", "10.0.0.2/8");
  EXPECT_EQ(recorded()["interfaces"],
            "eth0 10.0.0.1 02:42:ac:11:00:0f\neth0:b 10.0.0.2 02:42:ac:11:00:0f\n");
}

TEST_F(Record, LeavesOutAWanInterfaceThatIsNotThere) {
  mBoard.property("wan", bytes("eth0\0"));
  EXPECT_EQ(recorded()["interfaces"], "");
}

TEST_F(Record, ListsAnyNumberOfAddresses) {
  std::string list;
  for (int number = 1; number <= 40; ++number) {
    const std::string address = "127.0.0." + std::to_string(number);
    mBoard.address("lo", address + "/8");
    list += "lo " + address + " 00:00:00:00:00:00\n";
  }
  EXPECT_EQ(recorded()["interfaces"], list);
}

TEST_F(Record, ListsAnInterfaceWhoseMacAddressTheKernelDoesNotTell) {
  mBoard.address("lo", "127.0.0.1/8");
  kernelRefuses(SYS_ioctl, SIOCGIFHWADDR);
  EXPECT_EQ(recorded()["interfaces"], "lo 127.0.0.1 -\n");
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
  EXPECT_EQ(ovxid({"record", recording}),
            (Outcome{4, "", "ovxid: interfaces: Operation not permitted\n"}));
  EXPECT_FALSE(fs::exists(recording));
}

INSTANTIATE_TEST_SUITE_P(The, RecordWithout,
                         testing::Values(Refusal{"Socket", SYS_socket, SOCK_DGRAM | SOCK_CLOEXEC},
                                         Refusal{"List", SYS_ioctl, SIOCGIFCONF}),
                         [](const auto& test) { return test.param.name; });

TEST_F(Record, LeavesOutTheSerialNumberOfTheMachine) {
  mBoard.cpuinfo(
      "Hardware\t: Kestrel\nRevision\t: 00a1\nSerial\t\t: 00000000fa12cd07\nModel: 12ab\n");
  EXPECT_EQ(recorded()["cpuinfo"],
            "Hardware\t: Kestrel\nRevision\t: 00a1\nSerial\t\t: 0000000000000000\nModel: 12ab\n");
}

TEST_F(Record, LeavesOutTheSerialNumberInMessages) {
  mBoard.cpuinfo(
      "Serial\t\t: 00000000fa12cd07\nprocessor 0: identification = 0133E8,  machine = 2964\n"
      "identification  : 0133E8\n");
  std::map<std::string, std::string> files = recorded();
  EXPECT_EQ(files["cpuinfo"],
            "Serial\t\t: 0000000000000000\nprocessor 0: identification = 000000,  machine = 2964\n"
            "identification  : 000000\n");
  EXPECT_THAT(files["said"], HasSubstr("Serial\\t\\t: 0000000000000000\n"));
  EXPECT_THAT(files["said"], Not(HasSubstr("fa12cd07")));
  EXPECT_THAT(files["said"], Not(HasSubstr("0133E8")));
}

TEST_F(Record, KeepsWhatIsOnlyCalledLikeASerialNumber) {
  const std::string cpuinfo =
      "Serial\nSerial bus\t: a1\nNumber\t: a2\nthe identification = a3\nprocessor\t: 4\n"
      "Hardware\t: Serial Board\n";
  mBoard.cpuinfo(cpuinfo).catalogue("Serial ab:7:identification = ab\n");
  std::map<std::string, std::string> files = recorded();
  EXPECT_EQ(files["cpuinfo"], cpuinfo);
  EXPECT_THAT(files["said"], HasSubstr("Searching known aliases of Serial ab...\n"));
  EXPECT_THAT(files["said"], HasSubstr("Found possisble alias: 'Serial Board'\n"));
}

TEST_F(Record, SaysTheSameWithClosedStreams) {
  mBoard.property("flag", "");
  const std::string said = recorded()["said"];
  fs::remove_all(recording);
  outputClosed();
  EXPECT_EQ(recorded()["said"], said);
}

class RecordNoMac : public Record {
 protected:
  std::map<std::string, std::string> recorded() {
    EXPECT_EQ(ovxid({"record", "--no-mac", recording}), (Outcome{0, "", ""}));
    return contentsIn(recording);
  }
};

TEST_F(RecordNoMac, MakesUpAddressesOfTheSamePattern) {
  mBoard.interface("eth0", "02:42:ac:11:0f:7f").address("eth0", "10.0.0.1/8");
  mBoard.labelledAddress("eth0:b", "10.0.0.2/8");
  const std::vector<std::string> lines = linesOf(recorded()["interfaces"]);
  ASSERT_EQ(lines.size(), 2);
  const std::string mac = lines[0].substr(lines[0].rfind(' ') + 1);
  EXPECT_THAT(mac, MatchesRegex("0[02468ace]:[1-7].:[89a-f].:[1-7].:0.:[1-7]."));
  EXPECT_NE(mac, "02:42:ac:11:0f:7f");
  EXPECT_EQ(lines[1], "eth0:b 10.0.0.2 " + mac);
}

TEST_F(RecordNoMac, HasTheMadeUpAddressInTheListing) {
  mBoard.interface("eth0", "02:42:ac:11:0f:7f").property("wan", bytes("eth0\0"));
  std::map<std::string, std::string> files = recorded();
  EXPECT_THAT(files["said"], Not(HasSubstr("242ffac11f7f")));
  EXPECT_THAT(files["said"],
              ContainsRegex("\nout\\| OVX_WAN_ID=[02468ace][1-7].ff[89a-f].[1-7]..[1-7].\n"));
  EXPECT_THAT(files["interfaces"], Not(HasSubstr("02:42:ac")));
}

// A line of the name of a property is not the WAN interface.
TEST_F(RecordNoMac, KeepsAListingThatHasNoAddress) {
  mBoard.interface("eth0", "02:42:ac:11:0f:7f").property("a\novx_wan", "eth0");
  EXPECT_THAT(recorded()["said"], HasSubstr("\nout| OVX_A\nout| OVX_WAN=eth0\nerr|"));
}

TEST_F(RecordNoMac, KeepsTheAddressOfTheLoopback) {
  mBoard.address("lo", "127.0.0.1/8");
  EXPECT_EQ(recorded()["interfaces"], "lo 127.0.0.1 00:00:00:00:00:00\n");
}

TEST_F(Record, RefusesADirectoryThatIsThere) {
  mBoard.file(std::string(recording) + "/note", "kept");
  EXPECT_EQ(ovxid({"record", recording}),
            (Outcome{3, "", "ovxid: /proc/recordings/board: File exists\n"}));
  EXPECT_EQ(contentsIn(recording), (std::map<std::string, std::string>{{"note", "kept"}}));
}

TEST_F(Record, LeavesNothingBehindWhenTheDiskIsFull) {
  mBoard.cpuinfo(std::string(100000, 'c'));
  ASSERT_EQ(mount("tests", "/proc/recordings", "tmpfs", 0, "size=65536"), 0);
  EXPECT_EQ(ovxid({"record", recording}),
            (Outcome{3, "", "ovxid: /proc/recordings/board/said: No space left on device\n"}));
  EXPECT_THAT(contentsIn("/proc/recordings"), IsEmpty());
  EXPECT_FALSE(fs::exists(recording));
}

TEST_F(Record, LeavesNothingBehindWhenNoFileCanBeMade) {
  ASSERT_EQ(mount("tests", "/proc/recordings", "tmpfs", 0, "nr_inodes=2"), 0);
  EXPECT_EQ(ovxid({"record", recording}),
            (Outcome{3, "", "ovxid: /proc/recordings/board/said: No space left on device\n"}));
  EXPECT_FALSE(fs::exists(recording));
}

TEST_F(Record, LeavesNothingBehindWhenItCannotTakeWhatIsSaid) {
  kernelRefuses(SYS_memfd_create, MFD_CLOEXEC);
  EXPECT_EQ(ovxid({"record", recording}),
            (Outcome{125, "", "ovxid: internal error: memfd_create: Operation not permitted\n"}));
  EXPECT_FALSE(fs::exists(recording));
}

class InterruptedRecord : public Record {
 protected:
  InterruptedRecord() { mBoard.property("site", "north gate").catalogue("Kestrel:12\n"); }

  void SetUp() override {
    ASSERT_FALSE(interruptAt(0, 0, [] {}));
    mWhole = contentsIn(recording);
    ASSERT_EQ(mWhole.size(), 6);
    fs::remove_all(recording);
  }

  // Interrupts the recording at this system call, counted from when its directory is there. Whether
  // something of it was missing then.
  bool interruptAt(int number, int signal, const std::function<void()>& prepare) {
    bool isPart = false;
    interrupt(
        signal,
        [&] {
          const bool isTime = fs::exists(recording) && --number == 0;
          isPart = isTime && contentsIn(recording) != mWhole;
          return isTime;
        },
        [&] {
          prepare();
          execl(OVXID_CLI, OVXID_CLI, "record", recording, nullptr);
        });
    return isPart;
  }

  std::map<std::string, std::string> mWhole;
};

TEST_F(InterruptedRecord, LeavesNothingBehindAtAnyCall) {
  int number = 1;
  for (; interruptAt(number, SIGTERM, [] {}); ++number) {
    ASSERT_FALSE(fs::exists(recording)) << "interrupted at " << number;
  }
  EXPECT_GT(number, 20);
}

class RecordInterruptedBy : public InterruptedRecord, public testing::WithParamInterface<int> {
 protected:
  void interruptHalfway(const std::function<void()>& prepare) {
    ASSERT_TRUE(interruptAt(20, GetParam(), prepare));
  }
};

TEST_P(RecordInterruptedBy, LeavesNothingBehind) {
  interruptHalfway([] {});
  EXPECT_FALSE(fs::exists(recording));
}

TEST_P(RecordInterruptedBy, IsWholeWhereTheSignalIsIgnored) {
  interruptHalfway([] { std::signal(GetParam(), SIG_IGN); });
  EXPECT_EQ(contentsIn(recording), mWhole);
}

TEST_P(RecordInterruptedBy, IsWholeWhereTheSignalWaitsAnyway) {
  interruptHalfway([] {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, GetParam());
    sigprocmask(SIG_BLOCK, &signals, nullptr);
  });
  EXPECT_EQ(contentsIn(recording), mWhole);
}

INSTANTIATE_TEST_SUITE_P(Signal, RecordInterruptedBy,
                         testing::Values(SIGHUP, SIGINT, SIGQUIT, SIGTERM),
                         [](const auto& test) { return sigabbrev_np(test.param); });

TEST_F(Record, NeedsADirectory) {
  EXPECT_EQ(ovxid({"record"}),
            (Outcome{2, "", "ovxid: record: DIRECTORY is missing (see 'ovxid help record')\n"}));
}

}  // namespace
