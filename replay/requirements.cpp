#include "replay/requirements.h"

#include <net/if.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <string>
#include <string_view>

#include "host/host.h"
#include "recording/format.h"
#include "replay/failure.h"

namespace ovxid::replay {

namespace {

namespace key = recording::key;

std::string below(const std::string& place, const std::string& part) { return place + "/" + part; }

// Such a recording can still be asked.
[[noreturn]] void failAt(const std::string& place, const std::string& why) {
  throw NotReplayable(place, why + ": for 'ovxid --board' alone");
}

// Of all errors in reading, only that of a directory can be made, where there may be one.
void requireContent(const recording::Content& content, const std::string& place, int possible = 0) {
  if (content.readError != 0 && content.readError != possible) {
    failAt(below(place, key::readError), "no file here fails so when it is read");
  }
}

void requireName(const std::string& name, const std::string& place, std::size_t pathLength) {
  if (name.size() > NAME_MAX) {
    failAt(below(place, key::name),
           "no file has a name of more than " + std::to_string(NAME_MAX) + " bytes");
  }
  if (pathLength >= PATH_MAX) {
    failAt(place, "no file has a path of more than " + std::to_string(PATH_MAX - 1) + " bytes");
  }
}

void requireNode(const recording::Entry& node, const std::string& place, std::size_t pathLength) {
  if (node.value.openError != 0 && geteuid() == 0) {
    throw NotReplayable(below(place, key::openError),
                        "root may read every node: replay it as another user");
  }
  for (std::size_t i = 0; i < node.content.size(); ++i) {
    const recording::Entry& entry = node.content[i];
    const std::string entryPlace = below(place, std::to_string(i));
    const std::size_t length = pathLength + 1 + entry.name.size();
    requireName(entry.name, entryPlace, length);
    if (entry.isNode) {
      requireNode(entry, below(entryPlace, key::content), length);
    } else {
      requireContent(entry.value, below(entryPlace, key::value));
    }
  }
}

bool hasOnly(std::string_view characters, std::string_view text) {
  return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

// What the kernel allows and ip(8) takes. A label goes on behind a colon.
bool isName(std::string_view name) {
  constexpr std::string_view allowed =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_.@+-";
  const auto colon = name.find(':');
  return name.size() < IFNAMSIZ && hasOnly(allowed, name.substr(0, colon)) &&
         (colon == std::string_view::npos || hasOnly(allowed, name.substr(colon + 1))) &&
         name.front() != '.' && name.front() != '-';
}

void requireInterfaces(const std::vector<recording::Interface>& interfaces) {
  const std::string place = below("", key::interfaces);
  for (std::size_t i = 0; i < interfaces.size(); ++i) {
    if (!isName(interfaces[i].name)) {
      failAt(below(below(place, std::to_string(i)), key::name),
             "no interface here can be called so");
    }
  }
}

}  // namespace

void requireReplayable(const recording::Recording& recording) {
  requireContent(recording.cpuinfo, below("", key::cpuinfo), EISDIR);
  requireContent(recording.catalogue, below("", key::catalogue), EISDIR);
  if (recording.node) {
    requireNode(*recording.node, below("", key::node), nodePath.size());
  }
  requireInterfaces(recording.interfaces);
}

}  // namespace ovxid::replay
