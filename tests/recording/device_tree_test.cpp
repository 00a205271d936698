#include "recording/device_tree.h"

#include <gtest/gtest.h>
#include <libfdt.h>

#include <cerrno>
#include <functional>
#include <vector>

#include "recording/reader.h"
#include "recording/recorded_board.h"

using ovxid::recording::Recording;

namespace {

// A compiled tree, whose root is filled by the call.
std::string compiled(const std::function<void(void*)>& fillRoot) {
  std::vector<char> tree(16U << 20);
  void* const start = tree.data();
  fdt_create(start, static_cast<int>(tree.size()));
  fdt_finish_reservemap(start);
  fdt_begin_node(start, "");
  fillRoot(start);
  fdt_end_node(start);
  EXPECT_EQ(fdt_finish(start), 0);
  return {tree.data(), fdt_totalsize(start)};
}

std::string refusalOf(const std::string& tree) {
  try {
    ovxid::recording::readDeviceTree(tree);
    return "";
  } catch (const ovxid::recording::Unreadable& refusal) {
    return refusal.what();
  }
}

std::string treeWith(const std::function<void(void*)>& fillNode) {
  return compiled([&](void* tree) {
    fdt_begin_node(tree, "orvanix");
    fillNode(tree);
    fdt_end_node(tree);
  });
}

TEST(DeviceTree, TellsPeopleTheModel) {
  const Recording recording = ovxid::recording::readDeviceTree(compiled([](void* tree) {
    fdt_property_string(tree, "model", "Kestrel Rev B");
    fdt_property(tree, "compatible", "a,b\0c,d", 8);
  }));
  EXPECT_EQ(recording.model, "Kestrel Rev B");
  EXPECT_EQ(recording.compatible, (std::vector<std::string>{"a,b", "c,d"}));
  EXPECT_FALSE(recording.node);
}

TEST(DeviceTree, TellsNothingOfInterfaces) {
  const ovxid::recording::RecordedBoard board(
      ovxid::recording::readDeviceTree(treeWith([](void* /*tree*/) {})));
  EXPECT_EQ(board.interfaces().error, ENODATA);
  ovxid::MacAddress mac{};
  EXPECT_EQ(board.macAddress("eth0", mac), ENODATA);
}

TEST(DeviceTree, HasItsNodeInItsOwnOrder) {
  const Recording recording = ovxid::recording::readDeviceTree(treeWith([](void* tree) {
    fdt_property_string(tree, "wan", "eth0");
    fdt_property_string(tree, "boardid", "12");
    fdt_begin_node(tree, "io@1");
    fdt_end_node(tree);
  }));
  const auto& content = recording.node.value().content;
  ASSERT_EQ(content.size(), 3);
  EXPECT_EQ(content[0].name, "wan");
  EXPECT_EQ(content[0].value.bytes, std::string("eth0\0", 5));
  EXPECT_EQ(content[1].name, "boardid");
  EXPECT_EQ(content[2].name, "io@1");
  EXPECT_TRUE(content[2].isNode);
}

TEST(DeviceTree, IsRefusedWithAPropertyOfTooManyBytes) {
  const std::string bytes((1U << 20) + 1, 'x');
  EXPECT_EQ(refusalOf(treeWith([&](void* tree) {
              fdt_property(tree, "data", bytes.data(), static_cast<int>(bytes.size()));
            })),
            "a device tree: a property has more than 1048576 bytes");
}

TEST(DeviceTree, IsRefusedWithTooManyProperties) {
  EXPECT_EQ(refusalOf(treeWith([](void* tree) {
              for (int i = 0; i <= 100000; ++i) {
                fdt_property(tree, "p", nullptr, 0);
              }
            })),
            "a device tree: has more than 100000 properties");
}

TEST(DeviceTree, IsRefusedWhenItIsTooDeep) {
  constexpr int depth = 30;
  EXPECT_NE(refusalOf(treeWith([](void* tree) {
              for (int i = 0; i < 3 * depth; ++i) {
                fdt_begin_node(tree, "n");
              }
              for (int i = 0; i < 3 * depth; ++i) {
                fdt_end_node(tree);
              }
            })),
            "");
}

}  // namespace
