#ifndef OVXID_RECORDING_ADDRESSES_H
#define OVXID_RECORDING_ADDRESSES_H

#include <optional>
#include <string>
#include <vector>

namespace ovxid::recording {

// An entry of the kernel's list of IPv4 addresses.
struct ListedAddress {
  // The interface's name, or the label of the address.
  std::string name;
  std::string address;

  bool operator==(const ListedAddress& other) const {
    return name == other.name && address == other.address;
  }
};

// None when the kernel does not give its list; errno tells why.
std::optional<std::vector<ListedAddress>> listedAddresses();

}  // namespace ovxid::recording

#endif
