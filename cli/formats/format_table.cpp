#include <iterator>

#include "command_line/named.h"
#include "encoding/visible.h"
#include "formats/format.h"

namespace ovxid::cli {

// Each is defined in the file of its name in formats/.
namespace format {
using Write = std::string(const Board&);
Write json, null, plain, prometheus, shell, systemd;
}  // namespace format

namespace {

constexpr Format formats[] = {
    {"plain", "NAME=VALUE lines, the list byte for byte", format::plain},
    {"json", "the identity, the list and the environment as one JSON object", format::json},
    {"shell", "the environment as commands that a shell can eval", format::shell},
    {"systemd", "the environment as a file for EnvironmentFile=", format::systemd},
    {"null", "the environment as NAME=VALUE, each with a NUL byte behind it", format::null},
    {"prometheus", "the identity and the environment as metrics", format::prometheus},
};

}  // namespace

const Format* FormatTable::begin() const { return std::begin(formats); }
const Format* FormatTable::end() const { return std::end(formats); }

const Format& formatNamed(std::string_view name) {
  return named(formatTable, name, "format", "ovxid help list");
}

// The names of all parameters begin with OVX_, so none begins with a digit.
bool isShellName(std::string_view name) {
  return name.find_first_not_of(
             "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_") ==
         std::string_view::npos;
}

std::string leftOut(const std::string& name, const std::string& why) {
  return "# " + visible(name) + " is left out: " + why + "\n";
}

}  // namespace ovxid::cli
