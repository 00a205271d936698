#include "recording/writer.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <random>

#include "recording/reader.h"

namespace {

using namespace std::string_literals;
using ovxid::recording::Content;
using ovxid::recording::documentOf;
using ovxid::recording::Entry;
using ovxid::recording::readDocument;
using ovxid::recording::Recording;

// A board of which all is known that a recording may have.
Recording board() {
  Recording recording;
  recording.version = "1.1.0";
  recording.release = "6.1";
  recording.machine = "mips";
  recording.cpuinfo = {"Hardware: K\nSerial: 0\n\nend", 0, 0};
  recording.catalogue = {"K:12\n\xe4\n", 0, 0};
  recording.model = "Kestrel";
  recording.compatible = {"orvanix,kestrel", "\xff"};
  recording.hasDeviceTree = true;
  const Entry flag{"flag", false, {}, {}};
  const Entry label{"label", false, {"front\0"s, 0, 0}, {}};
  const Entry closed{"\xe4", false, {{}, EACCES, 0}, {}};
  const Entry shut{"shut", true, {{}, EPERM, 0}, {}};
  recording.node = Entry{"", true, {}, {flag, {"io@1", true, {}, {label, closed}}, shut}};
  recording.interfaces = {{"lo", "127.0.0.1", ovxid::MacAddress{}},
                          {"eth0", std::nullopt, ovxid::MacAddress{2, 0, 0, 0, 0, 9}},
                          {"eth1", "10.0.0.1", std::nullopt}};
  recording.interfaceRoom = 25;
  recording.said = ovxid::recording::Said{1, "OVX_ID=12\n", "debug: a\n\ndebug: b\n"};
  return recording;
}

TEST(Writer, WritesADocumentForPeople) {
  EXPECT_EQ(documentOf(board()), R"({
 "format": 1,
 "ovxid": "1.1.0",
 "release": "6.1",
 "machine": "mips",
 "model": "Kestrel",
 "compatible": [
  "orvanix,kestrel",
  {
   "hex": "ff"
  }
 ],
 "device_tree": true,
 "node": [
  {
   "name": "flag",
   "value": ""
  },
  {
   "name": "io@1",
   "content": [
    {
     "name": "label",
     "value": "front\u0000"
    },
    {
     "name": {
      "hex": "e4"
     },
     "value": {
      "open_error": "EACCES"
     }
    }
   ]
  },
  {
   "name": "shut",
   "content": {
    "open_error": "EPERM"
   }
  }
 ],
 "cpuinfo": [
  "Hardware: K\n",
  "Serial: 0\n",
  "\n",
  "end"
 ],
 "catalogue": [
  "K:12\n",
  {
   "hex": "e40a"
  }
 ],
 "interfaces": [
  {
   "name": "lo",
   "address": "127.0.0.1",
   "mac": "00:00:00:00:00:00"
  },
  {
   "name": "eth0",
   "mac": "02:00:00:00:00:09"
  },
  {
   "name": "eth1",
   "address": "10.0.0.1"
  }
 ],
 "interface_room": 25,
 "said": {
  "out": [
   "OVX_ID=12\n"
  ],
  "err": [
   "debug: a\n",
   "\n",
   "debug: b\n"
  ],
  "status": 1
 }
}
)");
}

TEST(Writer, LeavesOutWhatThereIsNot) {
  Recording recording;
  recording.version = "1.1.0";
  recording.unameError = EPERM;
  recording.cpuinfo = {{}, 0, EISDIR};
  EXPECT_EQ(documentOf(recording), R"({
 "format": 1,
 "ovxid": "1.1.0",
 "uname": {
  "error": "EPERM"
 },
 "device_tree": false,
 "cpuinfo": {
  "read_error": "EISDIR"
 },
 "interfaces": [],
 "interface_room": 0
}
)");
}

TEST(Writer, WritesWhatTheReaderGivesBack) {
  const std::string document = documentOf(board());
  EXPECT_EQ(documentOf(readDocument(document)), document);
}

// What the reader makes of what the writer writes.
std::string throughADocument(const std::string& bytes, Content Recording::*file) {
  Recording recording;
  recording.*file = {bytes, 0, 0};
  return (readDocument(documentOf(recording)).*file).bytes;
}

TEST(Writer, LosesNoByteOfAFile) {
  std::mt19937 random(1);  // NOLINT(cert-msc51-cpp): the same bytes each time
  // Of few values, so that there are lines, NUL bytes, and characters of UTF-8, whole and cut.
  const std::string alphabet = "a\n\0\r\"\\\x7f\xc3\xa4\xe2\x82\xac\xf0\xff\xfe\x80"s;
  for (int i = 0; i < 2000; ++i) {
    std::string bytes(random() % 24, '\0');
    for (char& byte : bytes) {
      byte = i % 2 == 0 ? alphabet[random() % alphabet.size()] : static_cast<char>(random() % 256);
    }
    ASSERT_EQ(throughADocument(bytes, &Recording::cpuinfo), bytes);
    ASSERT_EQ(throughADocument(bytes, &Recording::catalogue), bytes);
  }
}

TEST(Writer, LosesNoByteOfPropertiesAndNames) {
  Recording recording;
  recording.hasDeviceTree = true;
  recording.node = Entry{"", true, {}, {}};
  for (int byte = 1; byte < 256; ++byte) {
    if (byte != '/') {
      const auto each = static_cast<char>(byte);
      recording.node->content.push_back(
          {"x"s + each, false, {{each, '\0', each, static_cast<char>(byte ^ 0x80)}, 0, 0}, {}});
    }
  }
  const Recording read = readDocument(documentOf(recording));
  ASSERT_EQ(read.node->content.size(), 254U);
  for (std::size_t i = 0; i < 254; ++i) {
    EXPECT_EQ(read.node->content[i].name, recording.node->content[i].name);
    EXPECT_EQ(read.node->content[i].value.bytes, recording.node->content[i].value.bytes);
  }
}

TEST(Writer, LosesNothingThatWasSaid) {
  Recording recording;
  recording.said = ovxid::recording::Said{134, "a\xff\n\nb\0c"s, "\n"};
  const Recording read = readDocument(documentOf(recording));
  EXPECT_EQ(read.said->out, recording.said->out);
  EXPECT_EQ(read.said->err, recording.said->err);
  EXPECT_EQ(read.said->status, 134);
}

}  // namespace
