#include "replay/interfaces.h"

#include <set>
#include <string_view>

#include "recording/addresses.h"
#include "recording/files.h"
#include "replay/failure.h"
#include "replay/network.h"
#include "replay/world.h"

namespace ovxid::replay {

namespace {

// That every network has. The kernel gives it an address when it is up.
constexpr const char* loopback = "lo";
constexpr const char* noMac = "00:00:00:00:00:00";

std::string interfaceOf(const std::string& nameOrLabel) {
  return nameOrLabel.substr(0, nameOrLabel.find(':'));
}

// The other end of the cable, which has no address and so is in no list.
std::string peerOf(std::size_t number) { return "ovxid-peer" + std::to_string(number); }

// Only a tunnel can be without a MAC address.
std::string linkCommand(const Address& entry, std::size_t number) {
  const std::string name = interfaceOf(entry.name);
  if (entry.mac == noMac) {
    return "tuntap add dev " + name + " mode tun";
  }
  return "link add name " + name + (entry.mac == none ? "" : " address " + entry.mac) +
         " type veth peer name " + peerOf(number);
}

// The kernel would sort by scope. In one, it keeps the order.
std::string addressCommand(const Address& entry) {
  return "address add " + entry.address + "/32 dev " + interfaceOf(entry.name) + " label " +
         entry.name + " scope global";
}

std::vector<std::string> commandsFor(const std::vector<Address>& entries) {
  std::vector<std::string> commands;
  std::set<std::string> made;
  for (const Address& entry : entries) {
    const bool isNew = made.insert(interfaceOf(entry.name)).second;
    if (isNew && interfaceOf(entry.name) == loopback) {
      commands.push_back(std::string("link set ") + loopback + " up");
      commands.push_back(std::string("address flush dev ") + loopback);
    } else if (isNew) {
      commands.push_back(linkCommand(entry, made.size()));
    }
    if (entry.address != none) {
      commands.push_back(addressCommand(entry));
    }
  }
  return commands;
}

// Something may have been recorded that no machine can have.
void requireList(const Recording& recording) {
  std::vector<recording::ListedAddress> wanted;
  for (const Address& entry : recording.addresses) {
    if (entry.address != none) {
      wanted.push_back({entry.name, entry.address});
    }
  }
  if (recording::listedAddresses() != wanted) {
    throw Failure(recording.file(recording::file::interfaces),
                  "the kernel here does not list these addresses in this order");
  }
}

std::string hintFor(std::string_view complaint) {
  const bool lacksModule = complaint.find("Unknown device type") != std::string_view::npos ||
                           complaint.find("/dev/net/tun") != std::string_view::npos ||
                           complaint.find("not supported") != std::string_view::npos;
  return lacksModule ? " (the kernel needs its modules veth and, for a tunnel, tun)" : "";
}

}  // namespace

void makeInterfaces(const Recording& recording) {
  enterEmptyNetwork();
  const std::vector<std::string> commands = commandsFor(recording.addresses);
  try {
    changeNetwork(commands);
  } catch (const std::runtime_error& error) {
    throw Failure(recording.file(recording::file::interfaces),
                  error.what() + hintFor(error.what()));
  }
  requireList(recording);
}

}  // namespace ovxid::replay
