#ifndef OVXID_NET_WAN_H
#define OVXID_NET_WAN_H

#include "params/collection.h"

namespace ovxid {

// The address as board programs expect it: the bytes in hexadecimal, one after the other, where
// those of 0x80 and above are sign-extended to 16 bits.
std::string macText(const MacAddress& address);

// Adds the WAN interface, if the host has one: the first that is not the loopback.
void searchWan(const Host& host, Collector& collector);

// The interface that the list names first, up to its first NUL byte, as the kernel is asked.
std::optional<std::string> wanIn(const std::vector<ovx_param>& list);

// Adds the address of that interface, if the list names one. Returns the error.
int addWanMac(const Host& host, Collector& collector);

}  // namespace ovxid

#endif
