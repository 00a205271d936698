#include "check/findings.h"

#include <algorithm>
#include <utility>

namespace ovxid::cli {

Findings::Findings(std::string file, std::vector<std::string> ignored)
    : mFile(std::move(file)), mIgnored(std::move(ignored)) {}

void Findings::error(std::size_t line, const std::string& what) { add(line, "error: " + what); }

void Findings::warn(const Warning& warning, std::size_t line, const std::string& what) {
  if (std::find(mIgnored.begin(), mIgnored.end(), warning.name) == mIgnored.end()) {
    add(line, "warning: " + what + " [" + warning.name + "]");
  }
}

void Findings::add(std::size_t line, const std::string& what) {
  mText += mFile + ":" + std::to_string(line) + ": " + what + "\n";
}

}  // namespace ovxid::cli
