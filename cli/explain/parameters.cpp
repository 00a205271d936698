#include <net/if.h>
#include <ovxid/parameters.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <map>

#include "explain/remarks.h"
#include "shell_name.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

constexpr const char* nodePath = "/proc/device-tree/orvanix";

// The properties of each variable, by their paths below the node.
using Properties = std::map<std::string, std::vector<std::string>>;

std::string variableOf(const std::string& property) {
  std::string name = "OVX_";
  std::transform(property.begin(), property.end(), std::back_inserter(name), [](char byte) {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
  });
  return name;
}

Properties propertiesOfNode() {
  namespace fs = std::filesystem;
  Properties properties;
  std::error_code error;
  constexpr auto options = fs::directory_options::skip_permission_denied;
  for (fs::recursive_directory_iterator entry(nodePath, options, error), end; entry != end;
       entry.increment(error)) {
    const std::string property = entry->path().filename();
    if (!entry->is_directory(error) && property != "name") {
      properties[variableOf(property)].push_back(fs::relative(entry->path(), nodePath, error));
    }
  }
  for (auto& [variable, paths] : properties) {
    std::sort(paths.begin(), paths.end());
  }
  return properties;
}

std::string joined(const std::vector<std::string>& paths) {
  std::string text;
  for (const std::string& path : paths) {
    text += (text.empty() ? "" : path == paths.back() ? " and " : ", ") + shown(path);
  }
  return text;
}

void remarkOnReading(const std::string& variable, const std::string& property, Remarks& remarks) {
  const Exhibit file = exhibit(std::string(nodePath) + "/" + property);
  if (!file.content) {
    remarks.push_back("The property " + shown(property) + " cannot be read (" +
                      std::strerror(file.error) + "): " + shown(variable) + " is empty.");
  } else if (const auto newline = file.content->find('\n'); newline != std::string::npos) {
    remarks.push_back("The property " + shown(property) + " is cut at its newline: " +
                      shown(variable) + " is " + shown(file.content->substr(0, newline)) + ".");
  }
}

std::string valueIn(const std::vector<ovx_param>& variables, const std::string& name) {
  const auto found = std::find_if(variables.begin(), variables.end(),
                                  [&](const ovx_param& each) { return each.name == name; });
  return found == variables.end() ? "" : found->value;
}

// What the identity or the kernel gives a variable stands in the list beside what a property gives.
void remarkOnOverwriting(const Evidence& evidence, const Properties& properties,
                         const std::vector<ovx_param>& variables, Remarks& remarks) {
  for (const auto& [variable, paths] : properties) {
    const bool ofIdentity =
        (variable == "OVX_ID" || variable == "OVX_DESC") && evidence.board.number() >= 0;
    if (paths.size() > 1 || ofIdentity) {
      remarks.push_back("Programs see one " + shown(variable) + ", " +
                        shown(valueIn(variables, variable)) + ": it is set by " +
                        (ofIdentity ? "the identity and by " : "") + joined(paths) + ".");
    }
  }
  if (properties.count("OVX_WAN_ID") != 0) {
    remarks.emplace_back(
        "The property 'wan_id' is overwritten by the MAC address, if there is one.");
  }
}

void remarkOnNames(const Properties& properties, Remarks& remarks) {
  std::vector<std::string> names;
  for (const auto& [variable, paths] : properties) {
    if (!isShellName(variable)) {
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

void remarkOnWan(const std::vector<ovx_param>& list, Remarks& remarks) {
  const auto wan = std::find_if(list.begin(), list.end(),
                                [](const ovx_param& each) { return each.name == "OVX_WAN"; });
  if (wan == list.end()) {
    return;
  }
  const std::string interface = wan->value.substr(0, wan->value.find('\0'));
  if (interface.size() >= IFNAMSIZ) {
    remarks.push_back("The WAN interface " + shown(interface) +
                      " has more than 15 bytes: collecting the parameters aborts.");
  } else if (const int error = errorOfInterface(interface)) {
    remarks.push_back("The WAN interface " + shown(interface) + ": " + std::strerror(error) +
                      ". There is no OVX_WAN_ID.");
  }
}

// The list without the address of the WAN interface, which the library aborts for when the name of
// the interface is too long.
std::vector<ovx_param> listBeforeAddress(Board& board) {
  std::string node = nodePath;
  if (board.number() >= 0) {
    board.identifier().addParameter("OVX_ID", std::to_string(board.number()));
    board.identifier().addParameter("OVX_DESC", board.name());
  }
  if (OvxDTParser::parse(&board.identifier(), node.data()) != 0 && board.number() == 64) {
    board.identifier().search_wan();
  }
  return parameters(board.identifier());
}

}  // namespace

Remarks remarksOnParameters(const Evidence& evidence) {
  Remarks remarks;
  const Properties properties = propertiesOfNode();
  const std::vector<ovx_param> list = listBeforeAddress(evidence.board);
  for (const auto& [variable, paths] : properties) {
    for (const std::string& path : paths) {
      remarkOnReading(variable, path, remarks);
    }
  }
  remarkOnOverwriting(evidence, properties, environment(list), remarks);
  remarkOnNames(properties, remarks);
  remarkOnWan(list, remarks);
  return remarks;
}

}  // namespace ovxid::cli
