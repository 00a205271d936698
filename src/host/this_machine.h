#ifndef OVXID_HOST_THIS_MACHINE_H
#define OVXID_HOST_THIS_MACHINE_H

#include "host/host.h"

namespace ovxid {

// The machine on which the process runs.
class ThisMachine : public Host {
 public:
  InputFile open(File file) const override;
  int uname(utsname& answer) const override;
  int walkNode(const std::function<void(const NodeEntry&)>& visit) const override;
  InterfaceList interfaces() const override;
  int macAddress(const std::string& interface, MacAddress& address) const override;
  std::optional<std::vector<std::string>> nodesOfTree() const override;
};

}  // namespace ovxid

#endif
