#include "replay/requirements.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>

#include "replay/failure.h"

namespace {

using ovxid::recording::Content;
using ovxid::recording::Entry;
using ovxid::recording::Recording;

// Where nothing can be replayed, and why.
std::string refusal(const Recording& recording) {
  try {
    ovxid::replay::requireReplayable(recording);
    return "none";
  } catch (const ovxid::replay::NotReplayable& error) {
    return error.what();
  }
}

std::string refusalOfInterface(const std::string& name) {
  Recording recording;
  recording.interfaces = {{"eth0", "10.0.0.1", std::nullopt}, {name, "10.0.0.2", std::nullopt}};
  return refusal(recording);
}

Entry property(const std::string& name, const Content& value = {}) {
  return {name, false, value, {}};
}

Entry node(const std::string& name, std::vector<Entry> content) {
  return {name, true, {}, std::move(content)};
}

std::string refusalOfNode(std::vector<Entry> content) {
  Recording recording;
  recording.node = node("", std::move(content));
  return refusal(recording);
}

constexpr const char* nameRefused =
    "/interfaces/1/name: no interface here can be called so: for 'ovxid --board' alone";

TEST(Replayable, InterfaceHasANameThatTheKernelAllows) {
  for (const char* name : {"e", "eth1", "Wan_0.1@a-b+c", "fifteen-letters"}) {
    EXPECT_EQ(refusalOfInterface(name), "none") << name;
  }
  for (const char* name : {"sixteen-letters-", ".", "..", ".eth0", "-eth0", "eth/0", "eth#0",
                           "eth\xc3\xa4", "eth 0", "x\nlink", "[", "`", "{", "^", ""}) {
    EXPECT_EQ(refusalOfInterface(name), nameRefused) << name;
  }
}

TEST(Replayable, InterfaceHasALabelThatBeginsWithItsName) {
  for (const char* label : {"eth0:1", "eth0:a.b", "e:thirteen-abcd", "eth0:-"}) {
    EXPECT_EQ(refusalOfInterface(label), "none") << label;
  }
  for (const char* label : {"eth0:", ":1", "eth0:1:2", "eth0:#", "e:fourteen-abcde"}) {
    EXPECT_EQ(refusalOfInterface(label), nameRefused) << label;
  }
}

TEST(Replayable, PropertyHasANameThatAFileSystemTakes) {
  EXPECT_EQ(refusalOfNode({property(std::string(255, 'a'))}), "none");
  EXPECT_EQ(
      refusalOfNode({property("a"), node("b", {property(std::string(256, 'a'))})}),
      "/node/1/content/0/name: no file has a name of more than 255 bytes: for 'ovxid --board' "
      "alone");
}

// Nodes in each other, and a property whose path has so many bytes.
Entry entryWithPathOf(std::size_t bytes) {
  const std::size_t above = std::string("/proc/device-tree/orvanix").size();
  std::size_t left = bytes - above;
  std::vector<std::size_t> lengths;
  while (left > 201) {
    lengths.push_back(200);
    left -= 201;
  }
  Entry entry = property(std::string(left - 1, 'p'));
  for (const std::size_t length : lengths) {
    entry = node(std::string(length, 'n'), {entry});
  }
  return entry;
}

TEST(Replayable, PropertyHasAPathThatTheKernelTakes) {
  EXPECT_EQ(refusalOfNode({entryWithPathOf(4095)}), "none");
  std::string place = "/node/0";
  for (int i = 0; i < 20; ++i) {
    place += "/content/0";
  }
  EXPECT_EQ(refusalOfNode({entryWithPathOf(4096)}),
            place + ": no file has a path of more than 4095 bytes: for 'ovxid --board' alone");
}

TEST(Replayable, ContentCanBeReadToItsEnd) {
  const Content broken{{}, 0, EIO};
  const std::string why =
      "/read_error: no file here fails so when it is read: for 'ovxid --board' alone";
  Recording recording;
  recording.cpuinfo = broken;
  EXPECT_EQ(refusal(recording), "/cpuinfo" + why);
  recording.cpuinfo = {{}, 0, EISDIR};
  recording.catalogue = broken;
  EXPECT_EQ(refusal(recording), "/catalogue" + why);
  EXPECT_EQ(refusalOfNode({property("a", broken)}), "/node/0/value" + why);
  EXPECT_EQ(refusalOfNode({property("a", {{}, 0, EISDIR})}), "/node/0/value" + why);
}

TEST(Replayable, ContentMayBeClosed) {
  Recording recording;
  recording.cpuinfo = {{}, EACCES, 0};
  recording.catalogue = {{}, 0, EISDIR};
  recording.node = node("", {property("a", {{}, EIO, 0})});
  EXPECT_EQ(refusal(recording), "none");
}

TEST(Replayable, NodeIsNotClosedForRoot) {
  const std::string why =
      geteuid() == 0 ? "/open_error: root may read every node: replay it as another user" : "none";
  Recording recording;
  recording.node = node("", {node("a", {})});
  recording.node->content[0].value.openError = EACCES;
  EXPECT_EQ(refusal(recording), geteuid() == 0 ? "/node/0/content" + why : why);
  recording.node->value.openError = EACCES;
  EXPECT_EQ(refusal(recording), geteuid() == 0 ? "/node" + why : why);
}

}  // namespace
