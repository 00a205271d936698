#include "recording/recorded_board.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "recording/errors.h"
#include "recording/reader.h"

using ovxid::File;
using ovxid::InputFile;
using ovxid::recording::RecordedBoard;

namespace {

RecordedBoard boardWith(const std::string& more) {
  return RecordedBoard(ovxid::recording::readDocument(
      R"({"format": 1, "ovxid": "1.1.0", "release": "6.1", "machine": "armv7l", "device_tree": true,
          "interface_room": 2, )" +
      more + "}"));
}

RecordedBoard boardWithNode(const std::string& node) {
  return boardWith(R"("interfaces": [], "node": )" + node);
}

int errorOf(InputFile file) {
  char byte = 0;
  EXPECT_EQ(file.read(&byte, 1), file.isOpen() ? -1 : 0);
  return file.error();
}

std::vector<std::string> pathsIn(const RecordedBoard& board) {
  std::vector<std::string> paths;
  EXPECT_EQ(board.walkNode([&](const ovxid::NodeEntry& entry) {
    paths.push_back((entry.isProperty() ? "" : "closed ") + std::string(entry.path()));
  }),
            0);
  return paths;
}

TEST(RecordedNode, ThatCannotBeReadHasNothing) {
  const RecordedBoard board = boardWithNode(R"({"open_error": "EACCES"})");
  EXPECT_EQ(errorOf(board.open(File::boardid)), EACCES);
  EXPECT_EQ(pathsIn(board), std::vector<std::string>{"closed "});
}

TEST(RecordedNode, HasTheEntriesOfNodesBehindTheirNames) {
  const RecordedBoard board = boardWithNode(
      R"([{"name": "a", "value": ""}, {"name": "n", "content": [{"name": "b", "value": ""},
          {"name": "m", "content": {"open_error": "EACCES"}}]}])");
  EXPECT_EQ(pathsIn(board), (std::vector<std::string>{"a", "n/b", "closed n/m"}));
}

TEST(RecordedNode, MayHaveANodeInThePlaceOfAProperty) {
  EXPECT_EQ(errorOf(boardWithNode(R"([{"name": "boardid", "content": []}])").open(File::boardid)),
            EISDIR);
  EXPECT_EQ(errorOf(boardWithNode(R"([{"name": "boardid", "content": {"open_error": "EACCES"}}])")
                        .open(File::boardid)),
            EACCES);
}

TEST(RecordedNode, HasPropertiesThatCannotBeReadToTheirEnd) {
  EXPECT_EQ(errorOf(boardWithNode(R"([{"name": "boardid", "value": {"read_error": "EIO"}}])")
                        .open(File::boardid)),
            EIO);
}

TEST(RecordedInterfaces, AreListedAsFarAsThereIsRoom) {
  const RecordedBoard board = boardWith(
      R"("interfaces": [{"name": "wan0"}, {"name": "lo", "address": "127.0.0.1"},
          {"name": "eth0:1", "address": "10.0.0.1", "mac": "02:42:ac:11:00:0f"},
          {"name": "eth1", "address": "10.0.0.2"}])");
  EXPECT_EQ(board.interfaces().names, (std::vector<std::string>{"lo", "eth0:1"}));
  ovxid::MacAddress mac{};
  EXPECT_EQ(board.macAddress("eth0", mac), 0);
  EXPECT_EQ(mac, (ovxid::MacAddress{0x02, 0x42, 0xac, 0x11, 0x00, 0x0f}));
  EXPECT_EQ(board.macAddress("eth1", mac), ENODEV);
}

TEST(RecordedTree, HasNodesThatAreNotKnownOrIsNotThere) {
  EXPECT_TRUE(boardWith(R"("interfaces": [])").nodesOfTree().has_value());
  EXPECT_FALSE(RecordedBoard(ovxid::recording::Recording()).nodesOfTree().has_value());
}

TEST(ErrorName, IsThatOfAnyErrorWhereItHasNone) {
  EXPECT_EQ(ovxid::recording::errorName(EACCES), "EACCES");
  EXPECT_EQ(ovxid::recording::errorName(EXDEV), "EIO");
}

}  // namespace
