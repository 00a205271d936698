#include <ftw.h>
#include <net/if.h>
#include <ovxid/parameters.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <new>
#include <optional>
#include <set>
#include <utility>

#include "ascii.h"
#include "explain/remarks.h"
#include "host/host.h"
#include "identity/well_known.h"
#include "shell_name.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

// The properties of each variable, by their paths below the node.
using Properties = std::map<std::string, std::vector<std::string>>;

struct Node {
  // Whether there is one. The library searches for an interface where its walk fails.
  bool isWalked = false;
  Properties properties;
  // What may not be read.
  std::vector<std::string> closed;
};

std::string variableOf(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(), [](char byte) {
    return isSmall(byte) ? static_cast<char>(byte - 'a' + 'A') : byte;
  });
  return "OVX_" + name;
}

// What the walk under way fills.
Node walked;
constexpr int outOfMemory = 1;

void take(const std::string& path, int kind, const std::string& name) {
  if (kind == FTW_DNR) {
    walked.closed.push_back(path);
  }
  if (kind == FTW_F && name != "name") {
    walked.properties[variableOf(name)].push_back(path.substr(nodePath.size() + 1));
  }
}

// nftw(3) is C, so no exception may pass.
int visit(const char* path, const struct stat* /*status*/, int kind, FTW* position) noexcept {
  try {
    take(path, kind, path + position->base);
    return 0;
    // GCOVR_EXCL_START: where the tests refuse memory, there is no node
  } catch (const std::bad_alloc&) {
    return outOfMemory;
  }
  // GCOVR_EXCL_STOP
}

// Walks over the node as the library does.
Node readNode() {
  constexpr int openDirectories = 10;
  const std::string path(nodePath);
  const int result = nftw(path.c_str(), visit, openDirectories, 0);
  if (result == outOfMemory) {  // GCOVR_EXCL_BR_LINE: see above
    throw std::bad_alloc();     // GCOVR_EXCL_LINE
  }
  walked.isWalked = result == 0;
  for (auto& [variable, paths] : walked.properties) {
    std::sort(paths.begin(), paths.end());
  }
  return std::exchange(walked, {});
}

void remarkOnClosedNodes(const Node& node, Remarks& remarks) {
  for (const std::string& path : node.closed) {
    remarks.push_back(shown(path) + " cannot be read: what is in it gives no parameters.");
  }
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) {
    if (!text.empty()) {
      text += &name == &names.back() ? " and " : ", ";
    }
    text += shown(name);
  }
  return text;
}

// Whether this newline ends a text, which loses nothing by losing it. In cells there are NUL bytes.
bool isEndOfText(const std::string& content, std::size_t newline) {
  return newline > 0 && content.find('\0') > newline &&
         content.find_first_not_of('\0', newline + 1) == std::string::npos;
}

// Which value programs see is another matter, where several properties set it.
void remarkOnReading(const std::string& variable, const std::string& property, Remarks& remarks) {
  const Exhibit file = exhibit(std::string(nodePath) + "/" + property);
  const std::string sets = ": it sets " + shown(variable) + " to ";
  if (!file.content) {
    remarks.push_back("The property " + shown(property) + " cannot be read (" +
                      std::strerror(file.error) + ")" + sets + "''.");
    return;
  }
  const auto newline = file.content->find('\n');
  if (newline != std::string::npos && !isEndOfText(*file.content, newline)) {
    remarks.push_back("The property " + shown(property) + " is cut at its newline" + sets +
                      shown(file.content->substr(0, newline)) + ".");
  }
}

using Values = std::map<std::string, std::string>;

// What programs see.
Values valuesOf(const std::vector<ovx_param>& list) {
  Values values;
  for (const ovx_param& variable : environment(list)) {
    values[variable.name] = variable.value;
  }
  return values;
}

// What the identity gives a variable stands in the list before what a property gives.
void remarkOnOverwriting(const Evidence& evidence, const Properties& properties, Values& values,
                         Remarks& remarks) {
  for (const auto& [variable, paths] : properties) {
    const bool isIdentity = variable == "OVX_ID" || variable == "OVX_DESC";
    if (values.count(variable) == 0 || (paths.size() == 1 && !isIdentity)) {
      continue;
    }
    const std::string seen = shown(variable) + ", " + shown(values[variable]);
    if (isIdentity && evidence.board.number() < 0) {
      remarks.push_back("Programs see " + seen + ", which is set by " + joined(paths) +
                        ", not by the identity.");
    } else {
      remarks.push_back("Programs see one " + seen + ": it is set by " +
                        (isIdentity ? "the identity and by " : "") + joined(paths) + ".");
    }
  }
}

void remarkOnMissingIdentity(const Evidence& evidence, const Values& values, Remarks& remarks) {
  if (!evidence.decidedBy || evidence.board.number() >= 0) {
    return;
  }
  std::string missing;
  for (const char* const variable : {"OVX_ID", "OVX_DESC"}) {
    if (values.count(variable) == 0) {
      missing += (missing.empty() ? "no " : " and no ") + std::string(variable);
    }
  }
  if (!missing.empty()) {
    remarks.push_back("With a number below 0, there is " + missing + ".");
  }
}

// Cells and lists of texts are. The NUL bytes that end a text take nothing away.
bool isCutAtNul(std::string_view value) {
  const auto nul = value.find('\0');
  return value.find_first_not_of('\0', nul) != std::string_view::npos ||
         (nul == 0 && value.size() > 1);
}

// There are remarks on the boardid and the description that say more.
void remarkOnNuls(const std::vector<ovx_param>& list, Remarks& remarks) {
  std::set<std::string> names;
  for (const ovx_param& each : list) {
    const bool isOfIdentity = each.name == "OVX_BOARDID" || each.name == "OVX_DESCRIPTION";
    if (!isOfIdentity && isCutAtNul(each.value)) {
      names.insert(each.name);
    }
  }
  if (!names.empty()) {
    remarks.push_back(
        "Of cells and of lists of texts, programs see only what stands before the "
        "first NUL byte: " +
        joined({names.begin(), names.end()}) + ".");
  }
}

void remarkOnNames(const Properties& properties, Remarks& remarks) {
  std::vector<std::string> names;
  for (const auto& [variable, paths] : properties) {
    if (variable.find('=') != std::string::npos) {
      remarks.push_back("No program sees a variable named " + shown(variable) +
                        ", which has a '='.");
    } else if (variable.substr(0, 8) == "OVX_OVX_") {
      remarks.push_back("The property " + shown(paths.front()) + " becomes " + shown(variable) +
                        ": leave out what stands before its name.");
    } else if (!isShellName(variable)) {
      names.push_back(variable);
    }
  }
  if (!names.empty()) {
    remarks.push_back("Shells cannot have variables named " + joined(names) + ".");
  }
}

// Asks the kernel as the library does.
int errorOfInterface(const std::string& name) {
  const int query = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  ifreq request{};
  name.copy(static_cast<char*>(request.ifr_name), sizeof request.ifr_name - 1);
  const int error = ioctl(query, SIOCGIFHWADDR, &request) < 0 ? errno : 0;
  close(query);
  return error;
}

// The interface of which the address is asked, which the first OVX_WAN of the list names.
struct Wan {
  std::optional<std::string> interface;
  // Why there is no address; 0 if there is one.
  int error;
};

Wan wanOf(const std::vector<ovx_param>& list) {
  const auto first = std::find_if(list.begin(), list.end(),
                                  [](const ovx_param& each) { return each.name == "OVX_WAN"; });
  if (first == list.end()) {
    return {std::nullopt, ENOENT};
  }
  const std::string interface = first->value.substr(0, first->value.find('\0'));
  return {interface, interface.size() < IFNAMSIZ ? errorOfInterface(interface) : ENAMETOOLONG};
}

// Only with the number of a PC an interface is searched for, and only without a node.
void remarkOnMissingWan(const Evidence& evidence, const Node& node, Remarks& remarks) {
  if (evidence.board.number() != pcNumber) {
    return;
  }
  remarks.emplace_back(
      node.isWalked
          ? "The node /orvanix has no property 'wan': there is no OVX_WAN, and no interface "
            "is searched for."
          : "No interface with an IPv4 address was found besides lo: there is no OVX_WAN.");
}

// Programs see the last OVX_WAN of the list.
void remarkOnWan(const Wan& wan, const Node& node, const std::string& seen, Remarks& remarks) {
  const std::string interface = shown(*wan.interface);
  const bool isSeen = *wan.interface == seen;
  const bool isProperty = node.properties.count("OVX_WAN_ID") != 0;
  const std::string noAddress = isProperty ? "." : ". There is no OVX_WAN_ID.";
  if (wan.error == ENAMETOOLONG) {
    remarks.push_back("The WAN interface " + interface +
                      " has more than 15 bytes: collecting the parameters aborts.");
    return;
  }
  if (wan.interface->empty()) {
    remarks.push_back((isSeen ? "OVX_WAN" : "The first OVX_WAN") +
                      std::string(" names no interface") + noAddress);
  } else if (wan.error != 0) {
    remarks.push_back("The WAN interface " + interface + ": " + std::strerror(wan.error) +
                      noAddress);
  } else if (isProperty) {
    remarks.push_back("The property 'wan_id' is overwritten by the MAC address of " + interface +
                      ".");
  }
  if (!isSeen) {
    remarks.push_back("The MAC address is asked of the first OVX_WAN of the list, " + interface +
                      ", but programs see " + shown(seen) + ".");
  }
}

// What the walk and the search give. The library asks for the address as well, and aborts when the
// name of the interface is too long.
std::vector<ovx_param> listBeforeAddress(Board& board) {
  std::string node(nodePath);
  if (OvxDTParser::parse(&board.identifier(), node.data()) != 0 && board.number() == pcNumber) {
    board.identifier().search_wan();
  }
  return parameters(board.identifier());
}

}  // namespace

Remarks remarksOnParameters(const Evidence& evidence) {
  Remarks remarks;
  const Node node = readNode();
  const std::vector<ovx_param> list = listBeforeAddress(evidence.board);
  const Wan wan = wanOf(list);
  Values values = valuesOf(list);
  if (wan.error == 0) {
    values.erase("OVX_WAN_ID");
  }
  remarkOnMissingIdentity(evidence, values, remarks);
  for (const auto& [variable, paths] : node.properties) {
    for (const std::string& path : paths) {
      remarkOnReading(variable, path, remarks);
    }
  }
  remarkOnClosedNodes(node, remarks);
  remarkOnOverwriting(evidence, node.properties, values, remarks);
  remarkOnNuls(list, remarks);
  remarkOnNames(node.properties, remarks);
  if (wan.interface) {
    remarkOnWan(wan, node, values["OVX_WAN"], remarks);
  } else {
    remarkOnMissingWan(evidence, node, remarks);
  }
  return remarks;
}

}  // namespace ovxid::cli
