#include "recording/device_tree.h"

#include <libfdt.h>

#include <algorithm>

#include "encoding/ascii.h"
#include "host/host.h"
#include "recording/limits.h"
#include "recording/reader.h"

namespace ovxid::recording {

namespace {

constexpr int rootNode = 0;

[[noreturn]] void refuse(const std::string& why) { throw Unreadable("a device tree: " + why); }

std::string text(const char* bytes, int length) {
  return {bytes, static_cast<std::size_t>(std::max(length, 0))};
}

// Counts what it reads: no property is taken that is too many.
class TreeReader {
 public:
  explicit TreeReader(const void* tree) : mTree(tree) {}

  Entry node(int offset, std::string name, std::size_t depth) {
    if (depth > limit::depth) {
      refuse("is deeper than " + std::to_string(limit::depth) + " nodes");
    }
    Entry node;
    node.name = std::move(name);
    node.isNode = true;
    for (int at = fdt_first_property_offset(mTree, offset); at >= 0;
         at = fdt_next_property_offset(mTree, at)) {
      node.content.push_back(property(at));
    }
    for (int at = fdt_first_subnode(mTree, offset); at >= 0; at = fdt_next_subnode(mTree, at)) {
      count();
      int length = 0;
      const char* const child = fdt_get_name(mTree, at, &length);
      node.content.push_back(this->node(at, text(child, length), depth + 1));
    }
    return node;
  }

 private:
  Entry property(int offset) {
    count();
    const char* name = nullptr;
    int length = 0;
    const void* const value = fdt_getprop_by_offset(mTree, offset, &name, &length);
    Entry property;
    property.name = name;
    property.value.bytes = text(static_cast<const char*>(value), length);
    if (property.value.bytes.size() > limit::value) {
      refuse("a property has more than " + std::to_string(limit::value) + " bytes");
    }
    return property;
  }

  void count() {
    if (++mCount > limit::properties) {
      refuse("has more than " + std::to_string(limit::properties) + " properties");
    }
  }

  const void* mTree;
  std::size_t mCount = 0;
};

// Not by libfdt's own search, which also takes a node whose name goes on behind a '@'.
int platformNode(const void* tree) {
  int node = fdt_first_subnode(tree, rootNode);
  while (node >= 0 && fdt_get_name(tree, node, nullptr) != nodeName) {
    node = fdt_next_subnode(tree, node);
  }
  return node;
}

std::vector<std::string> textsOfRoot(const void* tree, const char* property) {
  std::vector<std::string> texts;
  const int count = fdt_stringlist_count(tree, rootNode, property);
  for (int i = 0; i < count; ++i) {
    int length = 0;
    const char* const each = fdt_stringlist_get(tree, rootNode, property, i, &length);
    texts.push_back(text(each, length));
  }
  return texts;
}

}  // namespace

bool isDeviceTree(std::string_view bytes) {
  constexpr std::string_view magic("\xd0\x0d\xfe\xed");
  return beginsWith(bytes, magic);
}

Recording readDeviceTree(std::string_view bytes) {
  const void* const tree = bytes.data();
  if (const int error = fdt_check_full(tree, bytes.size()); error != 0) {
    refuse(fdt_strerror(error));
  }
  Recording recording;
  recording.unameError = ENODATA;
  recording.cpuinfo.openError = ENODATA;
  recording.catalogue.openError = ENODATA;
  recording.interfacesError = ENODATA;
  recording.hasDeviceTree = true;
  for (const std::string& each : textsOfRoot(tree, "model")) {
    recording.model += each;
  }
  recording.compatible = textsOfRoot(tree, "compatible");
  if (const int node = platformNode(tree); node >= 0) {
    recording.node = TreeReader(tree).node(node, "", 1);
  }
  return recording;
}

}  // namespace ovxid::recording
