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

#include "recording/addresses.h"
#include "recording/format.h"
#include "recording/mac.h"
#include "replay/failure.h"
#include "replay/ip.h"
#include "replay/namespaces.h"
#include "text/descriptor.h"

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
  std::optional<MacAddress> mac;
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

bool isTunnel(const Link& link) { return link.mac == MacAddress{} && link.name != loopback; }

// Where the kernel knows no IPv6, asking it not to use that is an error.
bool knowsIpv6() { return access("/proc/self/net/if_inet6", F_OK) == 0; }

// An interface for which the kernel invents no address.
std::string bringUpWithoutAddress(const std::string& name) {
  return (knowsIpv6() ? "link set dev " + name + " addrgenmode none\n" : "") + "link set dev " +
         name + " up\n";
}

// An interface runs when it is up and so is the other end of its cable.
std::string linkCommands(const Link& link, std::size_t number) {
  if (link.name == loopback) {
    // The kernel gives it this address as soon as it is up.
    return "link set dev lo up\naddress del 127.0.0.1/8 dev lo\n";
  }
  if (isTunnel(link)) {
    return "tuntap add dev " + link.name + " mode tun\n" + bringUpWithoutAddress(link.name);
  }
  const std::string peer = peerOf(number);
  return "link add name " + link.name +
         (link.mac ? " address " + recording::textOf(*link.mac) : "") + " type veth peer name " +
         peer + "\n" + bringUpWithoutAddress(peer) + "link set dev " + link.name + " up\n";
}

// The kernel would sort by scope, and put an address behind those of other networks. In one scope,
// each in a network of its own, it keeps the order.
std::string addressCommand(const std::string& nameOrLabel, const std::string& address) {
  const std::string name = interfaceOf(nameOrLabel);
  const bool isLoopback = name == loopback;
  return "address add " + address + (isLoopback && address == "127.0.0.1" ? "/8" : "/32") +
         " dev " + name + " label " + nameOrLabel + " scope " +
         (isLoopback ? "host\n" : "global\n");
}

std::string commandsFor(const std::vector<Link>& links, const Interfaces& entries) {
  std::string commands;
  std::size_t number = 0;
  for (const Link& link : links) {
    commands += linkCommands(link, ++number);
  }
  for (const recording::Interface& entry : entries) {
    if (entry.address) {
      commands += addressCommand(entry.name, *entry.address);
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

ifreq requestFor(const std::string& name) {
  ifreq request{};
  name.copy(request.ifr_name, sizeof request.ifr_name - 1);
  return request;
}

std::vector<int> attach(const std::map<std::string, int>& tunnels) {
  std::vector<int> descriptors;
  for (const auto& [name, tunnel] : tunnels) {
    ifreq request = requestFor(name);
    request.ifr_flags = IFF_TUN | IFF_NO_PI;
    require(ioctl(tunnel, TUNSETIFF, &request) == 0, name);
    descriptors.push_back(tunnel);
  }
  return descriptors;
}

bool isRunning(int socket, const std::string& name) {
  ifreq request = requestFor(name);
  return ioctl(socket, SIOCGIFFLAGS, &request) == 0 && (request.ifr_flags & IFF_RUNNING) != 0;
}

// The kernel tells a little later that an interface is connected.
void awaitRunning(const std::vector<Link>& links) {
  constexpr int milliseconds = 1000;
  const Descriptor socket(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
  require(socket.get() >= 0, "socket");
  for (const Link& link : links) {
    for (int i = 0; i < milliseconds && !isRunning(socket.get(), link.name); ++i) {
      usleep(1000);
    }
  }
}

[[noreturn]] void failWith(const std::string& why) {
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
    failWith("the kernel here does not list these addresses in this order");
  }
}

std::string hintFor(std::string_view error) {
  const bool lacksModule = error.find("Unknown device type") != std::string_view::npos ||
                           error.find("not supported") != std::string_view::npos;
  return lacksModule ? " (the kernel needs its module veth)" : "";
}

}  // namespace

std::vector<int> makeInterfaces(const Interfaces& entries) {
  enterNetworkNamespace();
  const std::vector<Link> links = linksOf(entries);
  // A descriptor belongs to the network in which it was opened.
  const std::map<std::string, int> tunnels = openTunnels(links);
  try {
    runIp(commandsFor(links, entries));
  } catch (const std::runtime_error& error) {
    failWith(error.what() + hintFor(error.what()));
  }
  requireList(entries);
  std::vector<int> descriptors = attach(tunnels);
  awaitRunning(links);
  return descriptors;
}

}  // namespace ovxid::replay
