#include "recording/reader.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <map>
#include <string>

#include "recording/limits.h"

namespace {

using namespace std::string_literals;
namespace limit = ovxid::recording::limit;
using ovxid::recording::readDocument;
using ovxid::recording::Recording;
using ovxid::recording::Unreadable;

// A document that has no more than it must, unless a test gives a key another value, or none.
class Document {
 public:
  Document& with(const std::string& key, const std::string& json) {
    mValues[key] = json;
    return *this;
  }
  Document& without(const std::string& key) {
    mValues.erase(key);
    return *this;
  }

  std::string text() const {
    std::string text;
    for (const auto& [key, value] : mValues) {
      text += (text.empty() ? "{" : ",") + quoted(key) + ":" + value;
    }
    return text + "}";
  }
  Recording read() const { return readDocument(text()); }

 private:
  static std::string quoted(const std::string& text) { return '"' + text + '"'; }

  std::map<std::string, std::string> mValues = {
      {"format", "1"},          {"ovxid", R"("1.1.0")"}, {"release", R"("6.1")"},
      {"machine", R"("mips")"}, {"device_tree", "true"}, {"interfaces", "[]"},
      {"interface_room", "25"},
  };
};

std::string refusal(const std::string& document) {
  try {
    readDocument(document);
    return "none";
  } catch (const Unreadable& error) {
    return error.what();
  }
}

std::string refusal(const Document& document) { return refusal(document.text()); }

std::string refusalWith(const std::string& key, const std::string& json) {
  return refusal(Document().with(key, json));
}

std::string times(std::size_t count, const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i) {
    result += (result.empty() ? "" : ",") + text;
  }
  return result;
}

std::string array(const std::string& elements) { return "[" + elements + "]"; }

// A text of so many bytes.
std::string textOf(std::size_t bytes) { return '"' + std::string(bytes, 'a') + '"'; }

std::string propertyCalled(const std::string& name) {
  return R"({"name": )" + name + R"(, "value": ""})";
}

std::string property(const std::string& value) {
  return R"([{"name": "p", "value": )" + value + "}]";
}

std::string propertiesUpTo(std::size_t count) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) {
    all += (i == 0 ? "" : ",") + propertyCalled('"' + std::to_string(i) + '"');
  }
  return array(all);
}

std::string nodesInNodes(std::size_t depth) {
  std::string beginning;
  std::string end;
  for (std::size_t i = 1; i < depth; ++i) {
    beginning += R"([{"name": "n", "content": )";
    end += "}]";
  }
  return beginning + "[]" + end;
}

TEST(Reader, TakesADocumentThatHasNoMoreThanItMust) {
  const Recording recording = Document().read();
  EXPECT_EQ(recording.version, "1.1.0");
  EXPECT_EQ(recording.release, "6.1");
  EXPECT_EQ(recording.machine, "mips");
  EXPECT_EQ(recording.unameError, 0);
  EXPECT_EQ(recording.cpuinfo.openError, ENOENT);
  EXPECT_EQ(recording.catalogue.openError, ENOENT);
  EXPECT_EQ(recording.model, "");
  EXPECT_TRUE(recording.compatible.empty());
  EXPECT_TRUE(recording.hasDeviceTree);
  EXPECT_FALSE(recording.node);
  EXPECT_TRUE(recording.interfaces.empty());
  EXPECT_EQ(recording.interfaceRoom, 25U);
  EXPECT_FALSE(recording.said);
}

TEST(Reader, AsksForEachKeyThatADocumentMustHave) {
  for (const char* key :
       {"ovxid", "release", "machine", "device_tree", "interfaces", "interface_room"}) {
    EXPECT_EQ(refusal(Document().without(key)), "/: has no '"s + key + "'");
  }
  EXPECT_EQ(refusal(Document().without("format")), "/: no recording: there is no 'format'");
}

TEST(Reader, TakesNoKeyThatItDoesNotKnow) {
  EXPECT_EQ(refusalWith("colour", "1"), "/: has a key that is not known");
  EXPECT_EQ(refusalWith("uname", R"({"error": "EPERM", "x": 1})"),
            "/uname: has a key that is not known");
  EXPECT_EQ(refusalWith("node", R"([{"name": "p", "value": "", "x": 1}])"),
            "/node/0: has a key that is not known");
  EXPECT_EQ(refusalWith("interfaces", R"([{"name": "p", "x": ""}])"),
            "/interfaces/0: has a key that is not known");
  EXPECT_EQ(refusalWith("said", R"({"x": ""})"), "/said: has a key that is not known");
  EXPECT_EQ(refusalWith("cpuinfo", R"({"hex": "", "x": 1})"),
            "/cpuinfo: has a key that is not known");
}

TEST(Reader, TakesNoValueBesideAnError) {
  for (const char* error : {"open_error", "read_error"}) {
    EXPECT_EQ(refusalWith("cpuinfo", "{\""s + error + R"(": "EIO", "hex": ""})"),
              "/cpuinfo: has a key that is not known");
  }
  EXPECT_EQ(refusalWith("node", R"([{"name": "n", "value": "", "content": []}])"),
            "/node/0: has a key that is not known");
}

TEST(Reader, TakesNoOtherFormat) {
  EXPECT_EQ(refusalWith("format", "2"),
            "/format: is not 1, the only format that this version of ovxid reads");
  EXPECT_EQ(refusalWith("format", "-1"), "/format: is no number from 0 to 4294967295");
  EXPECT_EQ(refusalWith("format", R"("1")"), "/format: is no number from 0 to 4294967295");
}

TEST(Reader, TakesNoOtherJson) {
  for (const char* json : {"[]", "1", "\"format\"", "null"}) {
    EXPECT_EQ(refusal(json), "/: no recording: there is no 'format'") << json;
  }
}

TEST(Reader, TellsWhereADocumentIsNoJson) {
  EXPECT_EQ(refusal("{\n \"format\": ?"), "line 2, column 12: no JSON");
  EXPECT_EQ(refusal(""), "line 1, column 0: no JSON");
  EXPECT_EQ(refusal("{} x"), "line 1, column 4: no JSON");
  EXPECT_EQ(refusal("[\"\xff\"]"), "line 1, column 3: no JSON");
  EXPECT_EQ(refusal("{\"format\": 1,}"), "line 1, column 14: no JSON");
  EXPECT_EQ(refusal("{\"format\": 1"), "line 1, column 12: no JSON");
}

TEST(Reader, TakesNoNumberBeyondTheRange) {
  EXPECT_EQ(refusal("[1e999]"), "line 1, column 6: a number that is too large");
}

TEST(Reader, TakesNoKeyTwice) {
  EXPECT_EQ(refusal(R"({"format": 1, "format": 1})"), "has a key twice in an object");
  EXPECT_EQ(refusal(R"({"a": {"b": 1, "b": 1}})"), "has a key twice in an object");
  EXPECT_EQ(refusal(R"({"a": {"a": 1}, "b": [{"a": 1}, {"a": 1}]})"),
            "/: no recording: there is no 'format'");
}

TEST(Reader, TakesTheKeysOfAnObjectBehindItsObjects) {
  EXPECT_EQ(refusal(R"({"a": {"b": 1}, "a": 1})"), "has a key twice in an object");
}

TEST(Reader, TakesNoArchive) {
  const std::string archive = "an archive, and no recording: unpack it first";
  for (const std::string& beginning : {"\x1f\x8b"s, "\xfd"s + "7zXZ", "\x28\xb5\x2f\xfd"s,
                                       "PK\x03\x04"s, "BZh9"s, std::string(257, 'a') + "ustar"}) {
    EXPECT_EQ(refusal(beginning), archive) << beginning;
  }
  EXPECT_NE(refusal(std::string(256, 'a') + "ustar"), archive);
}

TEST(Reader, TakesNoDocumentOfMoreBytes) {
  std::string document = Document().text();
  document.resize(limit::document, ' ');
  EXPECT_EQ(refusal(document), "none");
  EXPECT_EQ(refusal(document + " "), "is larger than 16777216 bytes");
}

TEST(Reader, TakesNoMoreValues) {
  // Those of the other keys are there, and the object and the array around.
  const std::string values = times(limit::jsonValues - 9, "1");
  EXPECT_EQ(refusalWith("cpuinfo", array(values)), "/cpuinfo/0: is no text");
  EXPECT_EQ(refusalWith("cpuinfo", array(values + ",1")), "has more than 500000 values");
}

TEST(Reader, CountsValuesOfEveryKind) {
  // With the array around, one too many.
  const std::string kinds = R"(null,true,1,-1,1.5,"",[],{})";
  EXPECT_EQ(refusal(array(times(limit::jsonValues - 8, "1") + "," + kinds)),
            "has more than 500000 values");
}

TEST(Reader, TakesNoDeeperDocument) {
  const auto nested = [](std::size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
  };
  EXPECT_EQ(refusal(nested(136)), "/: no recording: there is no 'format'");
  EXPECT_EQ(refusal(nested(137)), "is deeper than 136 arrays and objects");
  EXPECT_EQ(refusal(nested(1000000)), "is deeper than 136 arrays and objects");
}

TEST(Reader, TakesWhyTheKernelDidNotTellItsNames) {
  const Recording recording = Document()
                                  .without("release")
                                  .without("machine")
                                  .with("uname", R"({"error": "EPERM"})")
                                  .read();
  EXPECT_EQ(recording.unameError, EPERM);
  EXPECT_EQ(refusalWith("uname", "{}"), "/uname: has no 'error'");
  EXPECT_EQ(refusalWith("uname", "1"), "/uname: is no object");
  EXPECT_EQ(refusalWith("uname", R"({"error": "EWHATEVER"})"),
            "/uname/error: is no error that is known");
  EXPECT_EQ(refusalWith("uname", R"({"error": 1})"), "/uname/error: is no text");
}

TEST(Reader, TakesNamesOfAKernelThatHaveRoom) {
  for (const char* key : {"release", "machine"}) {
    EXPECT_EQ(refusalWith(key, textOf(64)), "none");
    EXPECT_EQ(refusalWith(key, textOf(65)), "/"s + key + ": has more than 64 bytes");
    EXPECT_EQ(refusalWith(key, R"("a\u0000b")"), "/"s + key + ": has a NUL byte");
    EXPECT_EQ(refusalWith(key, "null"), "/"s + key + ": is no text");
  }
}

TEST(Reader, TakesTextsAsAWholeAndInParts) {
  const auto cpuinfo = [](const std::string& json) {
    return Document().with("cpuinfo", json).read().cpuinfo.bytes;
  };
  EXPECT_EQ(cpuinfo(R"("a\u0000b\n\u00e4")"), "a\0b\n\xc3\xa4"s);
  EXPECT_EQ(cpuinfo(R"({"hex": "00ff7f80"})"), "\0\xff\x7f\x80"s);
  EXPECT_EQ(cpuinfo(R"(["a\n", {"hex": "ff"}, "b"])"), "a\n\xff"s + "b");
  EXPECT_EQ(cpuinfo("[]"), "");
  EXPECT_EQ(cpuinfo(R"({"hex": ""})"), "");
}

TEST(Reader, TakesNothingElseForAText) {
  for (const char* json : {"1", "null", "true"}) {
    EXPECT_EQ(refusalWith("cpuinfo", json), "/cpuinfo: is no text") << json;
  }
  EXPECT_EQ(refusalWith("cpuinfo", "[[]]"), "/cpuinfo/0: is no text");
  EXPECT_EQ(refusalWith("cpuinfo", "{}"), "/cpuinfo: has no 'hex'");
  for (const char* digits : {"0", "0g", "FF", "0 "}) {
    EXPECT_EQ(refusalWith("cpuinfo", R"({"hex": ")"s + digits + R"("})"),
              "/cpuinfo/hex: is not of pairs of the digits 0 to 9 and a to f")
        << digits;
  }
}

TEST(Reader, TakesWhyAFileCouldNotBeOpenedOrRead) {
  const Recording recording = Document()
                                  .with("cpuinfo", R"({"open_error": "EACCES"})")
                                  .with("catalogue", R"({"read_error": "EISDIR"})")
                                  .read();
  EXPECT_EQ(recording.cpuinfo.openError, EACCES);
  EXPECT_EQ(recording.cpuinfo.readError, 0);
  EXPECT_EQ(recording.catalogue.openError, 0);
  EXPECT_EQ(recording.catalogue.readError, EISDIR);
  EXPECT_EQ(refusalWith("catalogue", R"({"open_error": "X"})"),
            "/catalogue/open_error: is no error that is known");
  EXPECT_EQ(refusalWith("catalogue", R"({"read_error": "X"})"),
            "/catalogue/read_error: is no error that is known");
}

TEST(Reader, TakesWhatTheDeviceTreeTellsPeople) {
  const Recording recording =
      Document().with("model", R"("Kestrel")").with("compatible", R"(["a", {"hex": "ff"}])").read();
  EXPECT_EQ(recording.model, "Kestrel");
  EXPECT_EQ(recording.compatible, (std::vector<std::string>{"a", "\xff"}));
  EXPECT_EQ(refusalWith("compatible", R"("a")"), "/compatible: is no array");
  EXPECT_EQ(refusalWith("compatible", array(times(3001, R"("")"))),
            "/compatible: has more than 3000 elements");
  EXPECT_EQ(refusalWith("compatible", "[1]"), "/compatible/0: is no text");
  EXPECT_EQ(refusalWith("model", textOf(limit::value)), "none");
  EXPECT_EQ(refusalWith("model", textOf(limit::value + 1)), "/model: has more than 1048576 bytes");
  EXPECT_EQ(refusalWith("device_tree", "0"), "/device_tree: is neither true nor false");
}

TEST(Reader, TakesANodeInTheOrderOfTheDocument) {
  const Recording recording = Document()
                                  .with("node", R"([
    {"name": "wan", "value": "eth0\u0000"},
    {"name": "io@1", "content": [{"name": "label", "value": {"hex": "ff"}}]},
    {"name": "closed", "value": {"open_error": "EACCES"}},
    {"name": "shut", "content": {"open_error": "EPERM"}},
    {"name": {"hex": "ff"}, "value": {"read_error": "EIO"}}])")
                                  .read();
  ASSERT_TRUE(recording.node);
  const auto& content = recording.node->content;
  ASSERT_EQ(content.size(), 5U);
  EXPECT_EQ(content[0].name, "wan");
  EXPECT_FALSE(content[0].isNode);
  EXPECT_EQ(content[0].value.bytes, "eth0\0"s);
  EXPECT_EQ(content[1].name, "io@1");
  EXPECT_TRUE(content[1].isNode);
  ASSERT_EQ(content[1].content.size(), 1U);
  EXPECT_EQ(content[1].content[0].name, "label");
  EXPECT_EQ(content[1].content[0].value.bytes, "\xff");
  EXPECT_EQ(content[2].value.openError, EACCES);
  EXPECT_TRUE(content[3].isNode);
  EXPECT_EQ(content[3].value.openError, EPERM);
  EXPECT_EQ(content[4].name, "\xff");
  EXPECT_EQ(content[4].value.readError, EIO);
}

TEST(Reader, TakesANodeThatCannotBeRead) {
  const Recording recording = Document().with("node", R"({"open_error": "EACCES"})").read();
  EXPECT_EQ(recording.node->value.openError, EACCES);
  EXPECT_EQ(refusalWith("node", R"({"read_error": "EIO"})"), "/node: has a key that is not known");
  EXPECT_EQ(refusalWith("node", "{}"), "/node: is no array");
}

TEST(Reader, TakesNoNodeWithoutADeviceTree) {
  EXPECT_EQ(refusal(Document().with("device_tree", "false")), "none");
  EXPECT_EQ(refusal(Document().with("device_tree", "false").with("node", "[]")),
            "/node: is in no device tree");
}

TEST(Reader, TakesNoNameThatLeadsElsewhere) {
  for (const char* name : {R"("")", R"(".")", R"("..")", R"("a/b")", R"("/")", R"("a\u0000b")"}) {
    EXPECT_EQ(refusalWith("node", array(propertyCalled(name))),
              "/node/0/name: is no name of a property or a node")
        << name;
  }
  for (const char* name : {R"("...")", R"(".a")", R"("a b")", R"("a\nb")"}) {
    EXPECT_EQ(refusalWith("node", array(propertyCalled(name))), "none") << name;
  }
}

TEST(Reader, TakesNoNameTwiceInANode) {
  EXPECT_EQ(refusalWith("node", array(times(2, propertyCalled(R"("a")")))),
            "/node/1/name: is that of an entry before it");
  EXPECT_EQ(refusalWith("node", R"([{"name": "a", "value": ""},
                                    {"name": "b", "content": [{"name": "a", "value": ""}]}])"),
            "none");
}

TEST(Reader, TakesNoLongerNames) {
  EXPECT_EQ(refusalWith("node", array(propertyCalled(textOf(4095)))), "none");
  EXPECT_EQ(refusalWith("node", array(propertyCalled(textOf(4096)))),
            "/node/0/name: has more than 4095 bytes");
}

TEST(Reader, TakesNoEntryWithoutNameOrContent) {
  EXPECT_EQ(refusalWith("node", "[1]"), "/node/0: is no object");
  EXPECT_EQ(refusalWith("node", R"([{"value": ""}])"), "/node/0: has no 'name'");
  EXPECT_EQ(refusalWith("node", R"([{"name": "a"}])"), "/node/0: has no 'content'");
  EXPECT_EQ(refusalWith("node", R"([{"name": "a", "content": "x"}])"),
            "/node/0/content: is no array");
}

TEST(Reader, TakesNoPropertyOfMoreBytes) {
  EXPECT_EQ(refusalWith("node", property(textOf(limit::value))), "none");
  EXPECT_EQ(refusalWith("node", property(textOf(limit::value + 1))),
            "/node/0/value: has more than 1048576 bytes");
  EXPECT_EQ(refusalWith("node", property(array(times(3, textOf(limit::value))))),
            "/node/0/value: has more than 1048576 bytes");
}

TEST(Reader, TakesNoMoreProperties) {
  EXPECT_EQ(refusalWith("node", propertiesUpTo(limit::properties)), "none");
  EXPECT_EQ(refusalWith("node", propertiesUpTo(limit::properties + 1)),
            "/node: has more than 100000 elements");
  const std::string half = propertiesUpTo(limit::properties / 2);
  const std::string pair =
      R"([{"name": "a", "content": )" + half + R"(}, {"name": "b", "content": )" + half + "}]";
  EXPECT_EQ(refusalWith("node", pair),
            "/node/1/content/49998: is one of more than 100000 properties");
}

TEST(Reader, TakesNoDeeperNodes) {
  EXPECT_EQ(refusalWith("node", nodesInNodes(64)), "none");
  std::string place = "/node";
  for (std::size_t i = 1; i < 65; ++i) {
    place += "/0/content";
  }
  EXPECT_EQ(refusalWith("node", nodesInNodes(65)), place + ": is deeper than 64 nodes");
}

TEST(Reader, TakesInterfaces) {
  const Recording recording = Document()
                                  .with("interfaces", R"([
    {"name": "lo", "address": "127.0.0.1", "mac": "00:00:00:00:00:00"},
    {"name": "eth0:1", "address": "10.0.0.1"}, {"name": "wlan0", "mac": "02:0a:fe:00:00:09"}])")
                                  .read();
  const auto& interfaces = recording.interfaces;
  ASSERT_EQ(interfaces.size(), 3U);
  EXPECT_EQ(interfaces[0].name, "lo");
  EXPECT_EQ(interfaces[0].address, "127.0.0.1");
  EXPECT_EQ(interfaces[0].mac, ovxid::MacAddress{});
  EXPECT_EQ(interfaces[1].name, "eth0:1");
  EXPECT_EQ(interfaces[1].mac, std::nullopt);
  EXPECT_EQ(interfaces[2].address, std::nullopt);
  EXPECT_EQ(interfaces[2].mac, (ovxid::MacAddress{0x02, 0x0a, 0xfe, 0, 0, 9}));
}

std::string refusalOfInterface(const std::string& json) {
  return refusalWith("interfaces", array(json));
}

TEST(Reader, TakesNoInterfaceWithoutAName) {
  EXPECT_EQ(refusalOfInterface("1"), "/interfaces/0: is no object");
  EXPECT_EQ(refusalOfInterface("{}"), "/interfaces/0: has no 'name'");
  EXPECT_EQ(refusalOfInterface(R"({"name": ""})"),
            "/interfaces/0/name: is no name of an interface");
  EXPECT_EQ(refusalOfInterface(R"({"name": "a\u0000"})"),
            "/interfaces/0/name: is no name of an interface");
  EXPECT_EQ(refusalOfInterface(R"({"name": "fifteen-letters"})"), "none");
  EXPECT_EQ(refusalOfInterface(R"({"name": "sixteen-letters-"})"),
            "/interfaces/0/name: has more than 15 bytes");
}

TEST(Reader, TakesNoAddressThatIsNone) {
  for (const char* address :
       {"10.1", "256.0.0.1", "10.0.0.1/8", "::1", "", "10.0.0.x", R"(10.0.0.1\u0000)"}) {
    EXPECT_EQ(refusalOfInterface(R"({"name": "a", "address": ")"s + address + R"("})"),
              "/interfaces/0/address: is no IPv4 address")
        << address;
  }
  EXPECT_EQ(refusalOfInterface(R"({"name": "a", "address": {"hex": ""}})"),
            "/interfaces/0/address: is no text");
}

TEST(Reader, TakesNoMacAddressThatIsNone) {
  for (const char* mac : {"02:00:00:00:00", "02:00:00:00:00:09:0a", "02:00:00:00:00:9",
                          "02:00:00:00:00:0g", "02-00-00-00-00-09", "FE:dc:ba:98:76:54", ""}) {
    EXPECT_EQ(refusalOfInterface(R"({"name": "a", "mac": ")"s + mac + R"("})"),
              "/interfaces/0/mac: is no MAC address of small digits")
        << mac;
  }
}

TEST(Reader, TakesNoMoreInterfaces) {
  EXPECT_EQ(refusalOfInterface(times(3000, R"({"name": "a"})")), "none");
  EXPECT_EQ(refusalOfInterface(times(3001, R"({"name": "a"})")),
            "/interfaces: has more than 3000 elements");
  EXPECT_EQ(refusalWith("interfaces", "{}"), "/interfaces: is no array");
  EXPECT_EQ(refusalWith("interface_room", "3000"), "none");
  for (const char* room : {"3001", "-1", "1.5", "null"}) {
    EXPECT_EQ(refusalWith("interface_room", room), "/interface_room: is no number from 0 to 3000")
        << room;
  }
}

TEST(Reader, TakesWhatWasSaid) {
  const Recording recording =
      Document()
          .with("said", R"({"out": ["a\n", "b"], "err": {"hex": "ff"}, "status": 255})")
          .read();
  ASSERT_TRUE(recording.said);
  EXPECT_EQ(recording.said->out, "a\nb");
  EXPECT_EQ(recording.said->err, "\xff");
  EXPECT_EQ(recording.said->status, 255);
}

TEST(Reader, TakesNothingThatIsHalfSaid) {
  EXPECT_EQ(refusalWith("said", "[]"), "/said: is no object");
  EXPECT_EQ(refusalWith("said", R"({"err": "", "status": 0})"), "/said: has no 'out'");
  EXPECT_EQ(refusalWith("said", R"({"out": "", "status": 0})"), "/said: has no 'err'");
  EXPECT_EQ(refusalWith("said", R"({"out": "", "err": ""})"), "/said: has no 'status'");
  EXPECT_EQ(refusalWith("said", R"({"out": "", "err": "", "status": 256})"),
            "/said/status: is no number from 0 to 255");
  EXPECT_EQ(refusalWith("said", R"({"out": 1, "err": "", "status": 0})"), "/said/out: is no text");
}

TEST(Reader, TakesNoVersionThatIsNoText) {
  EXPECT_EQ(refusalWith("ovxid", "1"), "/ovxid: is no text");
}

}  // namespace
