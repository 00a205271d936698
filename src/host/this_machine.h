#ifndef OVXID_HOST_THIS_MACHINE_H
#define OVXID_HOST_THIS_MACHINE_H

#include <cstddef>

#include "host/host.h"

namespace ovxid {

// Of the kernel's list of interfaces, in bytes. Programs rely on how many interfaces are looked at,
// so it does not grow.
constexpr std::size_t interfaceListSize = 1024;

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
