#include "recording/recorded_board.h"

#include <algorithm>
#include <cerrno>

namespace ovxid::recording {

namespace {

InputFile inputOf(const Content& content) {
  if (content.openError != 0) {
    return InputFile::unopened(content.openError);
  }
  return InputFile::ofBytes(content.bytes, content.readError);
}

class RecordedEntry : public NodeEntry {
 public:
  RecordedEntry(const Entry& entry, std::string_view path)
      : NodeEntry(path, entry.name, !entry.isNode), mEntry(entry) {}

  InputFile open() const override { return inputOf(mEntry.value); }

 private:
  const Entry& mEntry;
};

using Visit = std::function<void(const NodeEntry&)>;

// A node is not visited unless it cannot be read, but what is in it.
void walk(const Entry& entry, const std::string& path, const Visit& visit) {
  if (!entry.isNode || entry.value.openError != 0) {
    visit(RecordedEntry(entry, path));
    return;
  }
  const std::string beginning = path + (path.empty() ? "" : "/");
  for (const Entry& each : entry.content) {
    walk(each, beginning + each.name, visit);
  }
}

}  // namespace

InputFile RecordedBoard::open(File file) const {
  switch (file) {
    case File::cpuinfo:
      return inputOf(mRecording.cpuinfo);
    case File::catalogue:
      return inputOf(mRecording.catalogue);
    default:
      return openInNode(belowNode(pathOf(file)));
  }
}

InputFile RecordedBoard::openInNode(std::string_view name) const {
  if (!mRecording.node) {
    return InputFile::unopened(ENOENT);
  }
  const Entry& node = *mRecording.node;
  if (node.value.openError != 0) {
    return InputFile::unopened(node.value.openError);
  }
  const auto found = std::find_if(node.content.begin(), node.content.end(),
                                  [&](const Entry& each) { return each.name == name; });
  if (found == node.content.end()) {
    return InputFile::unopened(ENOENT);
  }
  if (found->isNode) {
    // A directory can be opened, but not read as a file.
    return found->value.openError != 0 ? InputFile::unopened(found->value.openError)
                                       : InputFile::ofBytes({}, EISDIR);
  }
  return inputOf(found->value);
}

int RecordedBoard::uname(utsname& answer) const {
  if (mRecording.unameError == 0) {
    mRecording.release.copy(static_cast<char*>(answer.release), sizeof answer.release - 1);
    mRecording.machine.copy(static_cast<char*>(answer.machine), sizeof answer.machine - 1);
  }
  return mRecording.unameError;
}

int RecordedBoard::walkNode(const Visit& visit) const {
  if (!mRecording.node) {
    return ENOENT;
  }
  walk(*mRecording.node, "", visit);
  return 0;
}

InterfaceList RecordedBoard::interfaces() const {
  InterfaceList list;
  if (mRecording.interfacesError != 0) {
    return {{}, "ioctl(SIOCGIFCONF)", mRecording.interfacesError};
  }
  for (const Interface& each : mRecording.interfaces) {
    if (each.address && list.names.size() < mRecording.interfaceRoom) {
      list.names.push_back(each.name);
    }
  }
  return list;
}

int RecordedBoard::macAddress(const std::string& interface, MacAddress& address) const {
  if (mRecording.interfacesError != 0) {
    return mRecording.interfacesError;
  }
  const std::string wanted = interfaceOf(interface);
  const auto found = std::find_if(mRecording.interfaces.begin(), mRecording.interfaces.end(),
                                  [&](const Interface& each) {
                                    const std::string name = interfaceOf(each.name);
                                    return name == wanted && each.mac;
                                  });
  if (found == mRecording.interfaces.end()) {
    return ENODEV;
  }
  address = *found->mac;
  return 0;
}

std::optional<std::vector<std::string>> RecordedBoard::nodesOfTree() const {
  if (!mRecording.hasDeviceTree) {
    return std::nullopt;
  }
  return std::vector<std::string>();
}

}  // namespace ovxid::recording
