#include <ovxid/environment.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string_view>

#include "encoding/visible.h"
#include "explain/report.h"
#include "formats/format.h"
#include "identity/well_known.h"
#include "net/wan.h"
#include "params/names.h"

namespace ovxid::cli {

namespace {

// The properties of each variable, by their paths below the node.
using Properties = std::map<std::string, std::vector<const Property*>>;

Properties propertiesOf(const Parameters& parameters) {
  Properties properties;
  for (const Property& property : parameters.properties) {
    properties[parameters.list[property.parameter].name].push_back(&property);
  }
  for (auto& [variable, ofVariable] : properties) {
    std::sort(ofVariable.begin(), ofVariable.end(),
              [](const Property* one, const Property* other) { return one->path < other->path; });
  }
  return properties;
}

std::vector<std::string> pathsOf(const std::vector<const Property*>& properties) {
  std::vector<std::string> paths;
  paths.reserve(properties.size());
  for (const Property* const property : properties) {
    paths.push_back(property->path);
  }
  return paths;
}

void remarkOnClosedNodes(const std::vector<std::string>& paths, Remarks& remarks) {
  for (const std::string& path : paths) {
    std::string whole(nodePath);
    if (!path.empty()) {
      whole.append("/").append(path);
    }
    remarks.push_back(shown(whole) + " cannot be read: what is in it gives no parameters.");
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

// Which value programs see is another matter, where several properties set it.
void remarkOnReading(const Property& property, const ovx_param& parameter, Remarks& remarks) {
  const std::string sets = ": it sets " + shown(parameter.name) + " to " + shown(parameter.value);
  if (property.error != 0) {
    remarks.push_back("The property " + shown(property.path) + " cannot be read (" +
                      std::strerror(property.error) + ")" + sets + ".");
  } else if (property.isCut) {
    remarks.push_back("The property " + shown(property.path) + " is cut at its newline" + sets +
                      ".");
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
void remarkOnOverwriting(const Board& board, const Properties& properties, Values& values,
                         Remarks& remarks) {
  const std::set<std::string_view> identity(std::begin(parameter::ofIdentity),
                                            std::end(parameter::ofIdentity));
  for (const auto& [variable, ofVariable] : properties) {
    const bool isIdentity = identity.count(variable) != 0;
    if (values.count(variable) == 0 || (ofVariable.size() == 1 && !isIdentity)) {
      continue;
    }
    const std::vector<std::string> paths = pathsOf(ofVariable);
    const std::string seen = shown(variable) + ", " + shown(values[variable]);
    if (isIdentity && board.number() < 0) {
      remarks.push_back("Programs see " + seen + ", which is set by " + joined(paths) +
                        ", not by the identity.");
    } else {
      remarks.push_back("Programs see one " + seen + ": it is set by " +
                        (isIdentity ? "the identity and by " : "") + joined(paths) + ".");
    }
  }
}

void remarkOnMissingIdentity(const Board& board, const Values& values, Remarks& remarks) {
  if (!board.isIdentified() || board.number() >= 0) {
    return;
  }
  std::string missing;
  for (const char* const variable : parameter::ofIdentity) {
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
void remarkOnNuls(const Parameters& parameters, Remarks& remarks) {
  std::set<std::string> names;
  for (const Property& property : parameters.properties) {
    const ovx_param& each = parameters.list[property.parameter];
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
  for (const auto& [variable, ofVariable] : properties) {
    if (variable.find('=') != std::string::npos) {
      remarks.push_back("No program sees a variable named " + shown(variable) +
                        ", which has a '='.");
    } else if (variable.substr(0, 8) == "OVX_OVX_") {
      remarks.push_back("The property " + shown(ofVariable.front()->path) + " becomes " +
                        shown(variable) + ": leave out what stands before its name.");
    } else if (!isShellName(variable)) {
      names.push_back(variable);
    }
  }
  if (!names.empty()) {
    remarks.push_back("Shells cannot have variables named " + joined(names) + ".");
  }
}

// Only with the number of a PC an interface is searched for, and only without a node.
void remarkOnMissingWan(const Diagnosis& diagnosis, Remarks& remarks) {
  if (diagnosis.board.number() != pcNumber) {
    return;
  }
  remarks.emplace_back(
      diagnosis.parameters.hasNode
          ? "The node /orvanix has no property 'wan': there is no OVX_WAN, and no interface "
            "is searched for."
          : "No interface with an IPv4 address was found besides lo: there is no OVX_WAN.");
}

// Programs see the last OVX_WAN of the list.
void remarkOnWan(const std::string& wan, int error, bool isProperty, const std::string& seen,
                 Remarks& remarks) {
  const std::string interface = shown(wan);
  const bool isSeen = wan == seen;
  const std::string noAddress = isProperty ? "." : ". There is no OVX_WAN_ID.";
  if (error == ENAMETOOLONG) {
    remarks.push_back("The WAN interface " + interface +
                      " has more than 15 bytes: collecting the parameters aborts.");
    return;
  }
  if (wan.empty()) {
    remarks.push_back((isSeen ? "OVX_WAN" : "The first OVX_WAN") +
                      std::string(" names no interface") + noAddress);
  } else if (error != 0) {
    remarks.push_back("The WAN interface " + interface + ": " + std::strerror(error) + noAddress);
  } else if (isProperty) {
    remarks.push_back("The property 'wan_id' is overwritten by the MAC address of " + interface +
                      ".");
  }
  if (!isSeen) {
    remarks.push_back("The MAC address is asked of the first OVX_WAN of the list, " + interface +
                      ", but programs see " + shown(seen) + ".");
  }
}

}  // namespace

Remarks remarksOnParameters(const Diagnosis& diagnosis) {
  Remarks remarks;
  const Board& board = diagnosis.board;
  const Parameters& parameters = diagnosis.parameters;
  const Properties properties = propertiesOf(parameters);
  const std::optional<std::string> wan = wanIn(parameters.list);
  Values values = valuesOf(parameters.list);
  if (wan && parameters.wanError == 0) {
    values.erase(parameter::wanMac);
  }
  remarkOnMissingIdentity(board, values, remarks);
  for (const auto& [variable, ofVariable] : properties) {
    for (const Property* const property : ofVariable) {
      remarkOnReading(*property, parameters.list[property->parameter], remarks);
    }
  }
  remarkOnClosedNodes(parameters.leftOut, remarks);
  remarkOnOverwriting(board, properties, values, remarks);
  remarkOnNuls(parameters, remarks);
  remarkOnNames(properties, remarks);
  if (wan) {
    remarkOnWan(*wan, parameters.wanError, properties.count(parameter::wanMac) != 0,
                values[parameter::wan], remarks);
  } else {
    remarkOnMissingWan(diagnosis, remarks);
  }
  return remarks;
}

}  // namespace ovxid::cli
