#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>

#include "cli/front_end.h"

namespace {

using Json = nlohmann::json;

Json parameter(const char* name, const char* value) { return {{"name", name}, {"value", value}}; }

std::string bytesOf(const std::string& hexadecimal) {
  std::string bytes;
  for (std::size_t digit = 0; digit < hexadecimal.size(); digit += 2) {
    bytes += static_cast<char>(std::stoi(hexadecimal.substr(digit, 2), nullptr, 16));
  }
  return bytes;
}

// What a program reads that wants all bytes.
std::string bytesOf(const Json& object, const std::string& key) {
  const auto hexadecimal = object.find(key + "_hex");
  return hexadecimal == object.end() ? object.at(key).get<std::string>()
                                     : bytesOf(hexadecimal->get<std::string>());
}

std::string listingOf(const Json& board) {
  std::string text;
  for (const Json& each : board.at("parameters")) {
    text += bytesOf(each, "name") + "=" + bytesOf(each, "value") + "\n";
  }
  return text;
}

std::multiset<std::string> environmentOf(const Json& board) {
  std::multiset<std::string> variables;
  for (const auto& [name, value] : board.at("environment").items()) {
    variables.insert(name + "=" + value.get<std::string>());
  }
  if (board.contains("environment_hex")) {
    for (const auto& [name, value] : board.at("environment_hex").items()) {
      variables.insert(bytesOf(name) + "=" + bytesOf(value.get<std::string>()));
    }
  }
  return variables;
}

class JsonFormat : public FrontEnd {
 protected:
  Json listed() {
    const Outcome outcome = ovxid({"list", "--format", "json"});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
    expectValid();
    return Json::parse(outcome.out);
  }

 private:
  void expectValid() {
    mBoard.directory("/proc/out");
    EXPECT_EQ(ovxid({"list", "--format=json", "--output=/proc/out/board.json"}),
              (Outcome{0, "", ""}));
    EXPECT_EQ(ovxid({"run", "python3", "-W", "ignore", "-m", "jsonschema", "-i",
                     "/proc/out/board.json", OVXID_SCHEMA}),
              (Outcome{0, "", ""}));
  }
};

TEST_F(JsonFormat, ShowsABoardThatNothingIdentifies) {
  EXPECT_EQ(listed(), (Json{{"identified", false},
                            {"name", "Unknown"},
                            {"number", -1},
                            {"source", nullptr},
                            {"aliases", Json::array()},
                            {"parameters", Json::array()},
                            {"environment", Json::object()}}));
}

TEST_F(JsonFormat, ShowsABoardOfTheDeviceTree) {
  mBoard.property("boardid", "7").property("description", bytes("Field Node\0"));
  const Json board = listed();
  EXPECT_EQ(board["name"], "Field Node");
  EXPECT_EQ(board["number"], 7);
  EXPECT_EQ(board["source"], "device-tree");
  EXPECT_EQ(board["aliases"], Json::array());
}

TEST_F(JsonFormat, ShowsABoardOfTheKernelRelease) {
  mBoard.catalogue("Bench Unit:4\nField Node:3:fn1:Field Node Mk1\nOther Node:5:fn1:other\n");
  kernelIs("5.10.0-fn1", "armv7l");
  const Json board = listed();
  EXPECT_EQ(board["name"], "Field Node");
  EXPECT_EQ(board["source"], "kernel-release");
  EXPECT_EQ(board["aliases"], (Json{"fn1", "Field Node Mk1"}));
}

TEST_F(JsonFormat, ShowsAPc) {
  kernelIs("5.10.0", "x86_64");
  const Json board = listed();
  EXPECT_EQ(board["name"], "x86_64 PC");
  EXPECT_EQ(board["source"], "machine");
  EXPECT_EQ(board["aliases"], Json::array());
}

TEST_F(JsonFormat, ShowsABoardOfCpuinfoByItsName) {
  mBoard.catalogue("First:1:Field Node:a\nField Node:3:fn1\n").cpuinfo("Hardware\t: Field Node\n");
  const Json board = listed();
  EXPECT_EQ(board["number"], 3);
  EXPECT_EQ(board["source"], "cpuinfo");
  EXPECT_EQ(board["aliases"], Json{"fn1"});
}

TEST_F(JsonFormat, ShowsABoardOfCpuinfoByItsAlias) {
  mBoard.catalogue("no number\nFirst:1:a:Field Node\n").cpuinfo("Hardware\t: Field Node\n");
  const Json board = listed();
  EXPECT_EQ(board["name"], "First");
  EXPECT_EQ(board["aliases"], (Json{"a", "Field Node"}));
}

TEST_F(JsonFormat, ShowsABoardOfTheBuiltInTable) {
  mBoard.cpuinfo("Hardware\t: ostart\n");
  const Json board = listed();
  EXPECT_EQ(board["name"], "Orvanix Starter Kit");
  EXPECT_EQ(board["aliases"], (Json{"ostart", "Tessaryn Orvanix Starter Kit"}));
}

TEST_F(JsonFormat, ShowsNamesThatAreNoText) {
  mBoard.catalogue("Field\xff:3:fn1:\xfe\n").cpuinfo("Hardware\t: Field\xff\n");
  const Json board = listed();
  EXPECT_FALSE(board.contains("name"));
  EXPECT_EQ(board["name_hex"], "4669656c64ff");
  EXPECT_EQ(board["aliases"], Json{"fn1"});
  EXPECT_EQ(board["aliases_hex"], (Json{"666e31", "fe"}));
}

TEST_F(JsonFormat, ShowsTextWithoutTheNulThatEndsIt) {
  mBoard.property("label", bytes("front\0"));
  EXPECT_EQ(
      listed()["parameters"],
      (Json::array({{{"name", "OVX_LABEL"}, {"value", "front"}, {"value_hex", "66726f6e7400"}}})));
}

TEST_F(JsonFormat, ShowsTextThatNoNulEnds) {
  mBoard.property("label", "front");
  EXPECT_EQ(listed()["parameters"], Json::array({parameter("OVX_LABEL", "front")}));
}

TEST_F(JsonFormat, ShowsAStringListAsAnArray) {
  mBoard.property("compatible", bytes("a,b\0a,c\0"));
  EXPECT_EQ(listed()["parameters"], (Json::array({{{"name", "OVX_COMPATIBLE"},
                                                   {"value", std::string("a,b\0a,c", 7)},
                                                   {"strings", {"a,b", "a,c"}},
                                                   {"value_hex", "612c6200612c6300"}}})));
}

TEST_F(JsonFormat, ShowsNoArrayForAnEmptyString) {
  mBoard.property("compatible", bytes("a\0\0b\0"));
  EXPECT_FALSE(listed()["parameters"][0].contains("strings"));
}

TEST_F(JsonFormat, ShowsNoArrayForCells) {
  mBoard.property("reg", bytes("\1\0\2\0"));
  EXPECT_FALSE(listed()["parameters"][0].contains("strings"));
}

TEST_F(JsonFormat, ShowsNoArrayForWhatIsNotEnded) {
  mBoard.property("compatible", bytes("a\0b"));
  EXPECT_FALSE(listed()["parameters"][0].contains("strings"));
}

TEST_F(JsonFormat, ShowsBytesThatAreNoTextInHexadecimal) {
  mBoard.property("reg", bytes("\x00\x80\xff\x10"));
  EXPECT_EQ(listed()["parameters"],
            (Json::array({{{"name", "OVX_REG"}, {"value_hex", "0080ff10"}}})));
}

TEST_F(JsonFormat, KeepsTheOrderOfTheListAndEveryEntry) {
  mBoard.property("boardid", "7").property("description", "Field Node").property("id", "12");
  const Json parameters = listed()["parameters"];
  EXPECT_EQ(parameters[0], parameter("OVX_ID", "7"));
  EXPECT_EQ(parameters[1], parameter("OVX_DESC", "Field Node"));
  EXPECT_EQ(parameters.size(), 5);
}

TEST_F(JsonFormat, GivesAllBytesBack) {
  std::string every;
  for (int byte = 0; byte < 256; ++byte) {
    every += byte == '\n' ? "" : std::string(1, static_cast<char>(byte));
  }
  mBoard.property("bytes", every)
      .property("n\xff", bytes("a\0"))
      .property("nul", bytes("\0"))
      .property("nuls", bytes("\0\0"))
      .property("empty", "")
      .property("utf8", "\xc3\xa4\xe2\x82\xac\xf0\x9f\x92\xa1")
      .property("surrogate", "\xed\xa0\x80")
      .property("overlong", "\xc0\x80")
      .property("shortest", "\xe0\x9f\xbf")
      .property("letter", "\xe2\x82(")
      .property("a{b", "brace")
      .property("cut", "a\xe2\x82");
  const Json board = listed();
  EXPECT_EQ(listingOf(board), ovxid({"list"}).out);
  EXPECT_EQ(environmentOf(board), entriesOf(ovxid({"list", "--format", "null"}).out));
}

TEST_F(JsonFormat, HasItsKeysInTheOrderOfTheQuestions) {
  EXPECT_EQ(ovxid({"list", "--format", "json"}).out,
            "{\n  \"identified\": false,\n  \"name\": \"Unknown\",\n  \"number\": -1,\n"
            "  \"source\": null,\n  \"aliases\": [],\n  \"parameters\": [],\n"
            "  \"environment\": {}\n}\n");
}

}  // namespace
