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
#include <set>
#include <utility>

#include "ascii.h"
#include "explain/remarks.h"
#include "platform.h"
#include "shell_name.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

// The properties of each variable, by their paths below the node.
using Properties = std::map<std::string, std::vector<std::string>>;

struct Node {
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

void remarkOnReading(const std::string& variable, const std::string& property, Remarks& remarks) {
  const Exhibit file = exhibit(std::string(nodePath) + "/" + property);
  if (!file.content) {
    remarks.push_back("The property " + shown(property) + " cannot be read (" +
                      std::strerror(file.error) + "): " + shown(variable) + " is empty.");
    return;
  }
  const auto newline = file.content->find('\n');
  if (newline != std::string::npos && !isEndOfText(*file.content, newline)) {
    remarks.push_back("The property " + shown(property) + " is cut at its newline: " +
                      shown(variable) + " is " + shown(file.content->substr(0, newline)) + ".");
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
    const bool ofIdentity =
        (variable == "OVX_ID" || variable == "OVX_DESC") && evidence.board.number() >= 0;
    const bool isSeen = values.count(variable) != 0 && variable != "OVX_WAN_ID";
    if ((paths.size() > 1 || ofIdentity) && isSeen) {
      remarks.push_back("Programs see one " + shown(variable) + ", " + shown(values[variable]) +
                        ": it is set by " + (ofIdentity ? "the identity and by " : "") +
                        joined(paths) + ".");
    }
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
  } else if (interface.empty()) {
    remarks.emplace_back("OVX_WAN names no interface. There is no OVX_WAN_ID.");
  } else if (const int error = errorOfInterface(interface)) {
    remarks.push_back("The WAN interface " + shown(interface) + ": " + std::strerror(error) +
                      (isProperty ? "." : ". There is no OVX_WAN_ID."));
  } else if (isProperty) {
    remarks.push_back("The property 'wan_id' is overwritten by the MAC address of " +
                      shown(interface) + ".");
  } else if (interface != valuesOf(list)["OVX_WAN"]) {
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
  const Node node = readNode();
  const std::vector<ovx_param> list = listBeforeAddress(evidence.board);
  for (const auto& [variable, paths] : node.properties) {
    for (const std::string& path : paths) {
      remarkOnReading(variable, path, remarks);
    }
  }
  remarkOnClosedNodes(node, remarks);
  Values values = valuesOf(list);
  remarkOnOverwriting(evidence, node.properties, values, remarks);
  remarkOnNuls(list, remarks);
  remarkOnNames(node.properties, remarks);
  remarkOnWan(list, node.properties, remarks);
  return remarks;
}

}  // namespace ovxid::cli
