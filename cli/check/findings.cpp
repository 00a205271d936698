#include "check/findings.h"

#include <algorithm>
#include <utility>

namespace ovxid::cli {

Findings::Findings(std::string file, std::vector<std::string> ignored)
    : mFile(std::move(file)), mIgnored(std::move(ignored)) {}

void Findings::error(std::size_t line, const std::string& what) {
  begin(line).append("error: ").append(what).append("\n");
}

void Findings::warn(const Warning& warning, std::size_t line, const std::string& what) {
  if (std::find(mIgnored.begin(), mIgnored.end(), warning.name) == mIgnored.end()) {
    begin(line).append("warning: ").append(what).append(" [").append(warning.name).append("]\n");
  }
}

std::string& Findings::begin(std::size_t line) {
  return mText.append(mFile).append(":").append(std::to_string(line)).append(": ");
}

}  // namespace ovxid::cli
