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

#include "ascii.h"
#include "explain/remarks.h"
#include "platform.h"
#include "shell_name.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

// The properties of each variable, by their paths below the node.
using Properties = std::map<std::string, std::vector<std::string>>;

// What a walk meets: the file's path, and what nftw(3) calls its kind.
using Visits = std::vector<std::pair<std::string, int>>;
// For the callback of the walk under way.
Visits* visits = nullptr;

int visit(const char* path, const struct stat* /*status*/, int kind, FTW* /*position*/) noexcept {
  try {
    visits->emplace_back(path, kind);
    return 0;
  } catch (const std::bad_alloc&) {
    return -1;
  }
}

// Walks over the node as the library does.
Visits walkOverNode() {
  constexpr int openDirectories = 10;
  Visits met;
  visits = &met;
  if (nftw(std::string(nodePath).c_str(), visit, openDirectories, 0) != 0 && !met.empty()) {
    throw std::bad_alloc();
  }
  return met;
}

std::string belowNode(const std::string& path) { return path.substr(nodePath.size() + 1); }

std::string variableOf(const std::string& path) {
  std::string name = "OVX_" + path.substr(path.rfind('/') + 1);
  std::transform(name.begin(), name.end(), name.begin(), [](char byte) {
    return isSmall(byte) ? static_cast<char>(byte - 'a' + 'A') : byte;
  });
  return name;
}

Properties propertiesIn(const Visits& met) {
  Properties properties;
  for (const auto& [path, kind] : met) {
    if (kind == FTW_F && path.substr(path.rfind('/') + 1) != "name") {
      properties[variableOf(path)].push_back(belowNode(path));
    }
  }
  for (auto& [variable, paths] : properties) {
    std::sort(paths.begin(), paths.end());
  }
  return properties;
}

void remarkOnClosedNodes(const Visits& met, Remarks& remarks) {
  for (const auto& [path, kind] : met) {
    if (kind == FTW_DNR) {
      remarks.push_back(shown(path) + " cannot be read: what is in it gives no parameters.");
    }
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

void remarkOnReading(const std::string& variable, const std::string& property, Remarks& remarks) {
  const Exhibit file = exhibit(std::string(nodePath) + "/" + property);
  if (!file.content) {
    remarks.push_back("The property " + shown(property) + " cannot be read (" +
                      std::strerror(file.error) + "): " + shown(variable) + " is empty.");
    return;
  }
  const auto newline = file.content->find('\n');
  if (newline != std::string::npos &&
      file.content->find_first_not_of('\0', newline + 1) != std::string::npos) {
    remarks.push_back("The property " + shown(property) + " is cut at its newline: " +
                      shown(variable) + " is " + shown(file.content->substr(0, newline)) + ".");
  }
}

std::string valueIn(const std::vector<ovx_param>& variables, const std::string& name) {
  const auto found = std::find_if(variables.begin(), variables.end(),
                                  [&](const ovx_param& each) { return each.name == name; });
  return found == variables.end() ? "" : found->value;
}

// What the identity gives a variable stands in the list before what a property gives.
void remarkOnOverwriting(const Evidence& evidence, const Properties& properties,
                         const std::vector<ovx_param>& variables, Remarks& remarks) {
  for (const auto& [variable, paths] : properties) {
    const bool ofIdentity =
        (variable == "OVX_ID" || variable == "OVX_DESC") && evidence.board.number() >= 0;
    const bool ofAddress = variable == "OVX_WAN_ID";
    if ((paths.size() > 1 || ofIdentity) && !ofAddress) {
      remarks.push_back("Programs see one " + shown(variable) + ", " +
                        shown(valueIn(variables, variable)) + ": it is set by " +
                        (ofIdentity ? "the identity and by " : "") + joined(paths) + ".");
    }
  }
}

void remarkOnNames(const Properties& properties, Remarks& remarks) {
  std::vector<std::string> names;
  for (const auto& [variable, paths] : properties) {
    if (variable.find('=') != std::string::npos) {
      remarks.push_back("No program sees a variable of the name " + shown(variable) +
                        ", which has a '='.");
    } else if (!isShellName(variable)) {
      names.push_back(variable);
    }
  }
  if (!names.empty()) {
    remarks.push_back("No shell has a variable of the name " + joined(names) + ".");
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

// The address is that of the first OVX_WAN of the list, where programs see the last one.
void remarkOnWan(const std::vector<ovx_param>& list, const Properties& properties,
                 Remarks& remarks) {
  const auto wan = std::find_if(list.begin(), list.end(),
                                [](const ovx_param& each) { return each.name == "OVX_WAN"; });
  if (wan == list.end()) {
    return;
  }
  const std::string interface = wan->value.substr(0, wan->value.find('\0'));
  const bool isProperty = properties.count("OVX_WAN_ID") != 0;
  if (interface.size() >= IFNAMSIZ) {
    remarks.push_back("The WAN interface " + shown(interface) +
                      " has more than 15 bytes: collecting the parameters aborts.");
  } else if (const int error = errorOfInterface(interface)) {
    remarks.push_back("The WAN interface " + shown(interface) + ": " + std::strerror(error) +
                      (isProperty ? "." : ". There is no OVX_WAN_ID."));
  } else if (isProperty) {
    remarks.push_back("The property 'wan_id' is overwritten by the MAC address of " +
                      shown(interface) + ".");
  } else if (interface != valueIn(environment(list), "OVX_WAN")) {
    remarks.push_back("OVX_WAN_ID is the MAC address of " + shown(interface) +
                      ", which is not the interface that programs see.");
  }
}

// The list without the address of the WAN interface, which the library aborts for when the name of
// the interface is too long.
std::vector<ovx_param> listBeforeAddress(Board& board) {
  std::string node(nodePath);
  if (board.number() >= 0) {
    board.identifier().addParameter("OVX_ID", std::to_string(board.number()));
    board.identifier().addParameter("OVX_DESC", board.name());
  }
  if (OvxDTParser::parse(&board.identifier(), node.data()) != 0 && board.number() == pcNumber) {
    board.identifier().search_wan();
  }
  return parameters(board.identifier());
}

}  // namespace

Remarks remarksOnParameters(const Evidence& evidence) {
  Remarks remarks;
  const Visits met = walkOverNode();
  const Properties properties = propertiesIn(met);
  const std::vector<ovx_param> list = listBeforeAddress(evidence.board);
  for (const auto& [variable, paths] : properties) {
    for (const std::string& path : paths) {
      remarkOnReading(variable, path, remarks);
    }
  }
  remarkOnClosedNodes(met, remarks);
  remarkOnOverwriting(evidence, properties, environment(list), remarks);
  remarkOnNames(properties, remarks);
  remarkOnWan(list, properties, remarks);
  return remarks;
}

}  // namespace ovxid::cli
