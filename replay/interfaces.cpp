#include "replay/interfaces.h"

#include <fcntl.h>
#include <linux/if_tun.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "recording/addresses.h"
#include "recording/format.h"
#include "recording/mac.h"
#include "replay/failure.h"
#include "replay/namespaces.h"
#include "replay/network.h"

namespace ovxid::replay {

namespace {

using recording::interfaceOf;

constexpr const char* tunnelDevice = "/dev/net/tun";
// That every network has.
constexpr const char* loopback = "lo";

using Interfaces = std::vector<recording::Interface>;

// The other end of the cable, which has no address and so is in no list.
std::string peerOf(std::size_t number) { return "ovxid-peer" + std::to_string(number); }

struct Link {
  std::string name;
  std::optional<recording::Mac> mac;
};

// Each interface once, with the first MAC address that is known of it.
std::vector<Link> linksOf(const Interfaces& entries) {
  std::vector<Link> links;
  std::map<std::string, std::size_t> places;
  for (const recording::Interface& entry : entries) {
    const auto [place, isNew] = places.emplace(interfaceOf(entry.name), links.size());
    if (isNew) {
      links.push_back({place->first, std::nullopt});
    }
    Link& link = links[place->second];
    link.mac = link.mac ? link.mac : entry.mac;
  }
  return links;
}

bool isTunnel(const Link& link) { return link.mac == recording::Mac{} && link.name != loopback; }

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
Commands linkCommands(const Link& link, std::size_t number) {
  if (link.name == loopback) {
    // The kernel gives it this address as soon as it is up.
    return {"link set dev lo up", "address del 127.0.0.1/8 dev lo"};
  }
  if (isTunnel(link)) {
    return Commands{"tuntap add dev " + link.name + " mode tun"} + bringUpWithoutAddress(link.name);
  }
  const std::string peer = peerOf(number);
  return Commands{"link add name " + link.name +
                  (link.mac ? " address " + recording::textOf(*link.mac) : "") +
                  " type veth peer name " + peer} +
         bringUpWithoutAddress(peer) + Commands{"link set dev " + link.name + " up"};
}

// The kernel would sort by scope, and put an address behind those of other networks. In one scope,
// each in a network of its own, it keeps the order.
std::string addressCommand(const std::string& nameOrLabel, const std::string& address) {
  const std::string name = interfaceOf(nameOrLabel);
  const bool isLoopback = name == loopback;
  return "address add " + address + (isLoopback && address == "127.0.0.1" ? "/8" : "/32") +
         " dev " + name + " label " + nameOrLabel + " scope " + (isLoopback ? "host" : "global");
}

Commands commandsFor(const std::vector<Link>& links, const Interfaces& entries) {
  Commands commands;
  std::size_t number = 0;
  for (const Link& link : links) {
    commands = std::move(commands) + linkCommands(link, ++number);
  }
  for (const recording::Interface& entry : entries) {
    if (entry.address) {
      commands.push_back(addressCommand(entry.name, *entry.address));
    }
  }
  return commands;
}

// A descriptor of the device for each of the board's tunnels.
std::map<std::string, int> openTunnels(const std::vector<Link>& links) {
  std::map<std::string, int> tunnels;
  for (const Link& link : links) {
    if (isTunnel(link)) {
      const int tunnel = open(tunnelDevice, O_RDWR | O_CLOEXEC);
      require(tunnel >= 0, tunnelDevice,
              "the board has a tunnel, " + link.name +
                  ": that takes the kernel's module tun, and the right to open this device");
      tunnels[link.name] = tunnel;
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
void awaitConnections(const std::vector<Link>& links) {
  constexpr int milliseconds = 1000;
  const int kernel = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  require(kernel >= 0, "socket");
  for (const Link& link : links) {
    for (int i = 0; i < milliseconds && !isRunning(kernel, link.name); ++i) {
      usleep(1000);
    }
  }
  close(kernel);
}

[[noreturn]] void refuse(const std::string& why) {
  throw NotReplayable(std::string("/") + recording::key::interfaces, why);
}

// Something may have been recorded that no machine can have.
void requireList(const Interfaces& entries) {
  std::vector<recording::ListedAddress> wanted;
  for (const recording::Interface& entry : entries) {
    if (entry.address) {
      wanted.push_back({entry.name, *entry.address});
    }
  }
  if (recording::listedAddresses() != wanted) {
    refuse("the kernel here does not list these addresses in this order");
  }
}

std::string hintFor(std::string_view complaint) {
  const bool lacksModule = complaint.find("Unknown device type") != std::string_view::npos ||
                           complaint.find("not supported") != std::string_view::npos;
  return lacksModule ? " (the kernel needs its module veth)" : "";
}

}  // namespace

std::vector<int> makeInterfaces(const Interfaces& entries) {
  enterNetworkNamespace();
  const std::vector<Link> links = linksOf(entries);
  // A descriptor belongs to the network in which it was opened.
  const std::map<std::string, int> tunnels = openTunnels(links);
  try {
    changeNetwork(commandsFor(links, entries));
  } catch (const std::runtime_error& error) {
    refuse(error.what() + hintFor(error.what()));
  }
  requireList(entries);
  std::vector<int> descriptors = connect(tunnels);
  awaitConnections(links);
  return descriptors;
}

}  // namespace ovxid::replay
