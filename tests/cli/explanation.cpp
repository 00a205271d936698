#include "cli/explanation.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace {

const std::string inCatalogue = " line in /etc/known_ovx_ids would make it known:\n  ";

// The bytes that these tests have in a node, as the report shows them.
std::string escapedBytes(const std::string& text) {
  std::string result;
  for (const char byte : text) {
    if (byte >= ' ' && byte <= '~') {
      result += byte;
    } else if (byte == '\0' || byte == '\n') {
      result += byte == '\0' ? "\\0" : "\\n";
    } else {
      char digits[5];
      std::snprintf(digits, sizeof digits, "\\x%02x", static_cast<unsigned char>(byte));
      result += digits;
    }
  }
  return "'" + result + "'";
}

}  // namespace

Report& Report::says(const std::string& row, const std::string& text) {
  const auto found =
      std::find_if(mRows.begin(), mRows.end(), [&](const auto& each) { return each.first == row; });
  if (found == mRows.end()) {
    throw std::invalid_argument("no row " + row);
  }
  found->second = text;
  return *this;
}

Report& Report::identifiedBy(const std::string& row, const std::string& as) {
  mDecidedBy = row;
  mVerdict = "This board is " + as + "\n";
  return *this;
}

Report& Report::notIdentified(const std::string& why) {
  mVerdict = "This board is not identified. " + why;
  return *this;
}

Report& Report::knownByLine(const std::string& line) {
  return notIdentified("This" + inCatalogue + line + "\n");
}

Report& Report::knownByEitherLine(const std::string& one, const std::string& other) {
  return notIdentified("Either" + inCatalogue + one + "\n  " + other + "\n");
}

Outcome Report::remarking(const std::vector<std::string>& remarks) const {
  std::string text;
  bool isTried = true;
  for (auto [row, said] : mRows) {
    const bool isSource = row != "catalogue";
    const bool isDecided = row == mDecidedBy;
    row.resize(16, ' ');
    text.append(row).append(isTried || !isSource ? said : "not tried (" + said + ")").append("\n");
    isTried = isTried && !isDecided;
  }
  text += "\n" + mVerdict;
  for (std::size_t i = 0; i < remarks.size(); ++i) {
    text.append(i == 0 ? "\n- " : "- ").append(remarks[i]).append("\n");
  }
  return {mDecidedBy.empty() ? 1 : 0, text, ""};
}

Explain::Explain() {
  kernelIs("6.1.55", "aarch64");
  mBoard.directory("/proc/device-tree").cpuinfo("");
}

void ExplainNode::identify(const std::string& boardid, const std::string& number) {
  identify(boardid, number, bytes("Kestrel\0"), "Kestrel");
}

void ExplainNode::identify(const std::string& boardid, const std::string& number,
                           const std::string& description, const std::string& name) {
  mBoard.property("boardid", boardid).property("description", description);
  mReport.says("device tree",
               "boardid " + escapedBytes(boardid) + ", description " + escapedBytes(description));
  mReport.identifiedBy("device tree",
                       "'" + name + "', number " + number + ": the device tree says so.");
}
