// Asking recorded boards, and other catalogues.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "cli/front_end.h"
#include "recording/reader.h"

namespace fs = std::filesystem;

using ovxid::recording::Recording;
using testing::HasSubstr;

namespace {

std::string documentIn(const fs::path& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

std::vector<std::string> recordedBoards() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(OVXID_BOARDS)) {
    if (fs::exists(entry.path() / "recording.json")) {
      names.push_back(entry.path().filename());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

class RecordedBoard : public FrontEnd, public testing::WithParamInterface<std::string> {
 protected:
  fs::path mFile = fs::path(OVXID_BOARDS) / GetParam() / "recording.json";
};

TEST_P(RecordedBoard, SaysWhatItSaid) {
  const Recording recording = ovxid::recording::readDocument(documentIn(mFile));
  const ovxid::recording::Said& said = recording.said.value();
  EXPECT_EQ(ovxid({"-v", "list", "--board", mFile}), (Outcome{said.status, said.out, said.err}));
}

std::string nameOf(const testing::TestParamInfo<std::string>& test) {
  std::string name = test.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Of, RecordedBoard, testing::ValuesIn(recordedBoards()), nameOf);

class BoardFile : public FrontEnd {
 protected:
  BoardFile() {
    kernelIs("6.1.55-kestrel2", "aarch64");
    mBoard.directory("/proc/in");
  }

  // Records the board as it is now.
  void record() { ASSERT_EQ(ovxid({"record", "--output", file}).status, 0); }

  static constexpr const char* file = "/proc/in/board.json";
};

TEST_F(BoardFile, IsAskedByEveryCommandThatAsks) {
  mBoard.property("boardid", bytes("12\0")).property("description", bytes("Kestrel\0"));
  record();
  mBoard.property("boardid", bytes("13\0"));
  EXPECT_EQ(ovxid({"number", "--board", file}), (Outcome{0, "12\n", ""}));
  EXPECT_EQ(ovxid({"--board", file, "name"}), (Outcome{0, "Kestrel\n", ""}));
  EXPECT_EQ(ovxid({"get", "--board", file, "OVX_ID"}), (Outcome{0, "12\n", ""}));
  EXPECT_THAT(ovxid({"--board", file}).out, HasSubstr("OVX_ID=12\n"));
  EXPECT_THAT(ovxid({"explain", "--board", file}).out, HasSubstr("number 12: the device tree"));
}

TEST_F(BoardFile, ExplainsItselfAsTheBoardDoes) {
  mBoard.property("boardid", "x7").property("closed/secret", "x").property("wan", "eth7");
  mBoard.property("two", "lines\nof text").cpuinfo("Hardware\t: Kestrel\n").catalogue("#\nK:1:x\n");
  mBoard.permissions(std::string(nodePath) + "/closed", 0);
  obeysModes();
  const Outcome here = ovxid({"explain"});
  mBoard.permissions("/proc/in", 0777);
  record();
  EXPECT_EQ(ovxid({"explain", "--board", file}), here);
}

TEST_F(BoardFile, MayComeByStandardInput) {
  mBoard.property("boardid", "12");
  record();
  inputFrom(file);
  EXPECT_EQ(ovxid({"number", "--board", "-"}), (Outcome{0, "12\n", ""}));
}

TEST_F(BoardFile, HasTheRoomOfItsKernelsListOfInterfaces) {
  kernelIs("6.1.55", "x86_64");
  for (int number = 1; number <= 30; ++number) {
    mBoard.address("lo", "127.0.0." + std::to_string(number) + "/8");
  }
  mBoard.interface("eth0", "02:42:ac:11:00:0f").address("eth0", "10.0.0.1/8");
  record();
  std::string recording = documentIn(file);
  const std::string room = "\"interface_room\": ";
  const auto at = recording.find(room) + room.size();
  recording.replace(at, recording.find(',', at) - at, "25");
  mBoard.file("/proc/in/of-64-bits", recording);
  recording.replace(at, 2, "32");
  mBoard.file("/proc/in/of-32-bits", recording);
  EXPECT_EQ(ovxid({"get", "OVX_WAN", "--board", "/proc/in/of-32-bits"}).out, "eth0\n");
  EXPECT_EQ(ovxid({"get", "OVX_WAN", "--board", "/proc/in/of-64-bits"}).status, 1);
}

TEST_F(BoardFile, TakesAnotherCatalogue) {
  mBoard.catalogue("Merlin:7:kestrel2\n");
  record();
  mBoard.file("/proc/in/known", "Kestrel:12:kestrel2\n");
  EXPECT_EQ(ovxid({"name", "--catalogue", "/proc/in/known"}), (Outcome{0, "Kestrel\n", ""}));
  EXPECT_EQ(ovxid({"name", "--board", file}), (Outcome{0, "Merlin\n", ""}));
  EXPECT_EQ(ovxid({"--catalogue", "/proc/in/known", "name", "--board", file}),
            (Outcome{0, "Kestrel\n", ""}));
}

class CompiledTree : public BoardFile {
 protected:
  // Compiles what is in the root of a device tree.
  void compile(const std::string& root) {
    mBoard.file("/proc/in/tree.dts", "/dts-v1/;\n/ {\n" + root + "\n};\n");
    ASSERT_EQ(ovxid({"run", "dtc", "-q", "-o", tree, "/proc/in/tree.dts"}), (Outcome{0, "", ""}));
  }

  static constexpr const char* tree = "/proc/in/tree.dtb";
};

TEST_F(CompiledTree, IsAskedLikeARecording) {
  compile("orvanix { boardid = \"12\"; description = \"Kestrel\"; io@1 { label = \"a\"; }; };");
  EXPECT_EQ(ovxid({"list", "--board", tree}),
            (Outcome{0,
                     bytes("OVX_ID=12\nOVX_DESC=Kestrel\0\nOVX_BOARDID=12\0\n"
                           "OVX_DESCRIPTION=Kestrel\0\nOVX_LABEL=a\0\n"),
                     ""}));
}

TEST_F(CompiledTree, TellsThatNothingElseIsKnown) {
  compile("orvanix@1 { boardid = \"12\"; };");
  const Outcome outcome = ovxid({"explain", "--board", tree});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, HasSubstr("\nkernel release  uname: No data available\n"));
  EXPECT_THAT(outcome.out, HasSubstr("\ncpuinfo         /proc/cpuinfo: No data available\n"));
  EXPECT_THAT(outcome.out, HasSubstr("\n- The device tree has no node /orvanix.\n"));
}

TEST_F(CompiledTree, HasInterfacesThatAreNotKnown) {
  compile("orvanix { boardid = \"12\"; wan = \"eth0\"; };");
  EXPECT_EQ(ovxid({"get", "OVX_WAN_ID", "--board", tree}),
            (Outcome{1, "",
                     "ioctl(wan_mac): No data available\n"
                     "ovxid: OVX_WAN_ID: the board has no such parameter, did you mean "
                     "'OVX_WAN'?\n"}));
}

TEST_F(CompiledTree, IsRefusedWhenItIsCut) {
  compile("orvanix { boardid = \"12\"; };");
  mBoard.file(tree, documentIn(tree).substr(0, 90));
  EXPECT_EQ(ovxid({"name", "--board", tree}),
            (Outcome{4, "", "ovxid: /proc/in/tree.dtb: a device tree: FDT_ERR_TRUNCATED\n"}));
}

TEST_F(BoardFile, IsRefusedWhenItIsNone) {
  mBoard.file("/proc/in/text", "Kestrel\n").file("/proc/in/archive", "\x1f\x8b");
  const auto complaint = [&](const std::string& path) {
    const Outcome outcome = ovxid({"name", "--board", path});
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.out, "");
    return outcome.err;
  };
  EXPECT_EQ(complaint("/proc/in/none"), "ovxid: /proc/in/none: No such file or directory\n");
  EXPECT_EQ(complaint("/proc/in"),
            "ovxid: /proc/in: a folder: a board is one file, as 'ovxid record' writes it\n");
  EXPECT_EQ(complaint("/proc/in/text"), "ovxid: /proc/in/text: line 1, column 1: no JSON\n");
  EXPECT_EQ(complaint("/proc/in/archive"),
            "ovxid: /proc/in/archive: an archive, and no recording: unpack it first\n");
}

TEST_F(BoardFile, IsRefusedWhenItIsTooLarge) {
  mBoard.file("/proc/in/large", std::string((16U << 20) + 1, ' '));
  const Outcome outcome{4, "", "ovxid: /proc/in/large: File too large\n"};
  EXPECT_EQ(ovxid({"name", "--board", "/proc/in/large"}), outcome);
  EXPECT_EQ(ovxid({"name", "--catalogue", "/proc/in/large"}), outcome);
}

TEST_F(BoardFile, IsNoOptionOfACommandThatDoesNotAsk) {
  EXPECT_EQ(ovxid({"--board", file, "run", "true"}),
            (Outcome{2, "", "ovxid: --board: is no option of 'run' (see 'ovxid help run')\n"}));
  EXPECT_EQ(
      ovxid({"--catalogue", file, "shell"}),
      (Outcome{2, "", "ovxid: --catalogue: is no option of 'shell' (see 'ovxid help shell')\n"}));
}

}  // namespace
