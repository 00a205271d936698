#include <paths.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "command_line/command.h"
#include "command_line/command_table.h"
#include "output/diagnostics.h"
#include "output/output.h"

namespace ovxid::cli::command {

namespace {

// A program of its own, since boards need not carry what it needs.
char program[] = "ovxid-replay";
char endOfOptions[] = "--";

// Where this program is. Empty if nothing tells.
std::string ownDirectory() {
  std::array<char, PATH_MAX> path{};
  const ssize_t size = readlink("/proc/self/exe", path.data(), path.size());
  const std::string own(path.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  return own.substr(0, own.rfind('/'));
}

// Both programs stand beside each other, wherever they are installed, and each runs the other one.
void makePathLeadHere() {
  const char* const set = std::getenv("PATH");
  const std::string path = set == nullptr ? _PATH_DEFPATH : set;
  const std::string own = ownDirectory();
  const std::string directories = ":" + path + ":";
  const std::string wanted = ":" + own + ":";
  if (!own.empty() && directories.find(wanted) == std::string::npos) {
    setenv("PATH", (own + ":" + path).c_str(), 1);
  }
}

}  // namespace

int replay(const Invocation& invocation) {
  const char* const catalogue = invocation.option(catalogueOption.name, nullptr);
  std::string option =
      std::string("--") + catalogueOption.name + "=" + (catalogue == nullptr ? "" : catalogue);
  std::vector<char*> words = {program};
  if (catalogue != nullptr) {
    words.push_back(option.data());
  }
  words.push_back(endOfOptions);
  words.insert(words.end(), invocation.operands, invocation.operands + invocation.operandCount + 1);
  makePathLeadHere();
  const InheritedHandlers handlers;
  execvp(program, words.data());
  if (errno == ENOENT) {
    throw Failure(exit_status::notFound, program, "not installed (package ovxid-replay)");
  }
  throw Failure(exit_status::cannotRun, program, std::strerror(errno));
}

}  // namespace ovxid::cli::command
