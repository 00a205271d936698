#ifndef OVXID_RECORDING_RECORDED_BOARD_H
#define OVXID_RECORDING_RECORDED_BOARD_H

#include "host/host.h"
#include "recording/recording.h"

namespace ovxid::recording {

// A board as it was recorded.
class RecordedBoard : public Host {
 public:
  explicit RecordedBoard(Recording recording) : mRecording(std::move(recording)) {}

  InputFile open(File file) const override;
  int uname(utsname& answer) const override;
  int walkNode(const std::function<void(const NodeEntry&)>& visit) const override;
  InterfaceList interfaces() const override;
  int macAddress(const std::string& interface, MacAddress& address) const override;
  std::optional<std::vector<std::string>> nodesOfTree() const override;

 private:
  InputFile openInNode(std::string_view name) const;

  Recording mRecording;
};

}  // namespace ovxid::recording

#endif
