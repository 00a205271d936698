#include "replay/interfaces.h"

#include <fcntl.h>
#include <linux/if_tun.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "recording/addresses.h"
#include "recording/files.h"
#include "replay/failure.h"
#include "replay/network.h"
#include "replay/world.h"

namespace ovxid::replay {

namespace {

constexpr const char* tunnelDevice = "/dev/net/tun";
// That every network has.
constexpr const char* loopback = "lo";
constexpr const char* noMac = "00:00:00:00:00:00";

std::string interfaceOf(const std::string& nameOrLabel) {
  return nameOrLabel.substr(0, nameOrLabel.find(':'));
}

// The other end of the cable, which has no address and so is in no list.
std::string peerOf(std::size_t number) { return "ovxid-peer" + std::to_string(number); }

bool isTunnel(const Address& entry) {
  return entry.mac == noMac && interfaceOf(entry.name) != loopback;
}

// Where the kernel knows no IPv6, asking it not to use that is an error.
bool knowsIpv6() { return access("/proc/self/net/if_inet6", F_OK) == 0; }

using Commands = std::vector<std::string>;

Commands operator+(Commands commands, const Commands& more) {
  commands.insert(commands.end(), more.begin(), more.end());
  return commands;
}

// An interface for which the kernel invents no address.
Commands bringUpWithoutAddress(const std::string& name) {
  const Commands up{"link set dev " + name + " up"};
  return knowsIpv6() ? Commands{"link set dev " + name + " addrgenmode none"} + up : up;
}

// An interface runs when it is up and so is the other end of its cable.
Commands linkCommands(const Address& entry, std::size_t number) {
  const std::string name = interfaceOf(entry.name);
  if (name == loopback) {
    // The kernel gives it this address as soon as it is up.
    return {"link set dev lo up", "address del 127.0.0.1/8 dev lo"};
  }
  if (isTunnel(entry)) {
    return Commands{"tuntap add dev " + name + " mode tun"} + bringUpWithoutAddress(name);
  }
  const std::string peer = peerOf(number);
  return Commands{"link add name " + name + (entry.mac == none ? "" : " address " + entry.mac) +
                  " type veth peer name " + peer} +
         bringUpWithoutAddress(peer) + Commands{"link set dev " + name + " up"};
}

// The kernel would sort by scope, and put an address behind those of other networks. In one scope,
// each in a network of its own, it keeps the order.
std::string addressCommand(const Address& entry) {
  const std::string name = interfaceOf(entry.name);
  const bool isLoopback = name == loopback;
  return "address add " + entry.address +
         (isLoopback && entry.address == "127.0.0.1" ? "/8" : "/32") + " dev " + name + " label " +
         entry.name + " scope " + (isLoopback ? "host" : "global");
}

Commands commandsFor(const std::vector<Address>& entries) {
  Commands commands;
  std::set<std::string> made;
  for (const Address& entry : entries) {
    if (made.insert(interfaceOf(entry.name)).second) {
      commands = std::move(commands) + linkCommands(entry, made.size());
    }
    if (entry.address != none) {
      commands.push_back(addressCommand(entry));
    }
  }
  return commands;
}

// A descriptor of the device for each of the board's tunnels.
std::map<std::string, int> openTunnels(const std::vector<Address>& entries) {
  std::map<std::string, int> tunnels;
  for (const Address& entry : entries) {
    const std::string name = interfaceOf(entry.name);
    if (isTunnel(entry) && tunnels.count(name) == 0) {
      const int tunnel = open(tunnelDevice, O_RDWR | O_CLOEXEC);
      require(tunnel >= 0, tunnelDevice,
              "the board has a tunnel, " + name +
                  ": that takes the kernel's module tun, and the right to open this device");
      tunnels[name] = tunnel;
    }
  }
  return tunnels;
}

std::vector<int> connect(const std::map<std::string, int>& tunnels) {
  std::vector<int> descriptors;
  for (const auto& [name, tunnel] : tunnels) {
    ifreq request{};
    name.copy(request.ifr_name, sizeof request.ifr_name - 1);
    request.ifr_flags = IFF_TUN | IFF_NO_PI;
    require(ioctl(tunnel, TUNSETIFF, &request) == 0, name);
    descriptors.push_back(tunnel);
  }
  return descriptors;
}

bool isRunning(int kernel, const std::string& name) {
  ifreq request{};
  name.copy(request.ifr_name, sizeof request.ifr_name - 1);
  return ioctl(kernel, SIOCGIFFLAGS, &request) == 0 && (request.ifr_flags & IFF_RUNNING) != 0;
}

// The kernel tells a little later that an interface is connected.
void awaitConnections(const std::vector<Address>& entries) {
  constexpr int milliseconds = 1000;
  const int kernel = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  require(kernel >= 0, "socket");
  for (const Address& entry : entries) {
    for (int i = 0; i < milliseconds && !isRunning(kernel, interfaceOf(entry.name)); ++i) {
      usleep(1000);
    }
  }
  close(kernel);
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
                           complaint.find("not supported") != std::string_view::npos;
  return lacksModule ? " (the kernel needs its module veth)" : "";
}

}  // namespace

std::vector<int> makeInterfaces(const Recording& recording) {
  enterEmptyNetwork();
  // A descriptor belongs to the network in which it was opened.
  const std::map<std::string, int> tunnels = openTunnels(recording.addresses);
  try {
    changeNetwork(commandsFor(recording.addresses));
  } catch (const std::runtime_error& error) {
    throw Failure(recording.file(recording::file::interfaces),
                  error.what() + hintFor(error.what()));
  }
  requireList(recording);
  std::vector<int> descriptors = connect(tunnels);
  awaitConnections(recording.addresses);
  return descriptors;
}

}  // namespace ovxid::replay
