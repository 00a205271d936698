#include "reference/determination.h"

#include <sys/utsname.h>

#include <algorithm>
#include <fstream>
#include <locale>
#include <stdexcept>

#include "simulation/board.h"

namespace reference {

namespace {

// One determination, as it goes on.
class Determining {
 public:
  Determining(const std::vector<HardwareIdentity>& catalogue, const Identity& before)
      : mCatalogue(catalogue), mIdentity(before) {}

  Determination run();

 private:
  void sources();
  void deviceTree();
  void kernel();
  void kernelRelease(const std::string& release);
  void cpuinfo();
  void hardwareLine(const std::string& line);
  void adopt(const HardwareIdentity& identity);

  // A logger sees a message up to its first NUL byte.
  void say(const std::string& text) { mMessages.push_back(debug(text.c_str())); }

  const std::vector<HardwareIdentity>& mCatalogue;
  Identity mIdentity;
  Messages mMessages;
};

bool hasAlias(const HardwareIdentity& identity, const std::string& candidate) {
  return std::count(identity.aliases.begin(), identity.aliases.end(), candidate) > 0;
}

Determination Determining::run() {
  if (mIdentity.determined) {
    mMessages.push_back(
        warn("Calling lib/program is trying to determine the identity...but it was already "
             "successfully determined"));
    mIdentity.determined = false;
  }
  try {
    sources();
  } catch (const std::out_of_range& exception) {
    return {mIdentity, mMessages, exception.what()};
  }
  if (!mIdentity.determined) {
    mMessages.push_back(
        error("Could not find hardware identity with uname or through /proc/cpuinfo"));
    mIdentity.name = "Unknown";
    mIdentity.number = -1;
  }
  return {mIdentity, mMessages, std::nullopt};
}

void Determining::sources() {
  deviceTree();
  if (!mIdentity.determined) {
    kernel();
  }
  if (!mIdentity.determined) {
    cpuinfo();
  }
}

void Determining::deviceTree() {
  say("Attempting to find alias by DT");
  if (std::ifstream boardid(std::string(nodePath) + "/boardid"); boardid) {
    boardid.imbue(std::locale::classic());
    boardid >> mIdentity.number;
    mIdentity.determined = true;
  } else {
    say("Could not open /proc/device-tree/orvanix/boardid ");
  }
  if (std::ifstream description(std::string(nodePath) + "/description"); description) {
    std::getline(description, mIdentity.name);
  } else {
    say("Could not open /proc/device-tree/orvanix/description ");
  }
}

void Determining::kernel() {
  say("Attempting to find alias by uname");
  utsname name{};
  if (uname(&name) < 0) {
    mMessages.push_back(warn("There was a problem with uname, continuing"));
    return;
  }
  say("No problems with uname");
  kernelRelease(name.release);
  if (!mIdentity.determined && std::string(name.machine) == "x86_64") {
    mIdentity.determined = true;
    mIdentity.name = "x86_64 PC";
    mIdentity.number = 64;
  }
}

void Determining::kernelRelease(const std::string& release) {
  say("uts.release= " + release);
  const auto hyphen = release.rfind('-');
  if (hyphen == std::string::npos) {
    return;
  }
  const std::string suffix = release.substr(hyphen + 1);
  say("therefore possible alias of machine = '" + suffix + "'");
  for (const HardwareIdentity& identity : mCatalogue) {
    say("Searching known aliases of " + identity.name + "...");
    if (hasAlias(identity, suffix)) {
      say("Alias: " + suffix + " is an alias of identity: " + identity.name);
      adopt(identity);
      return;
    }
  }
}

void Determining::cpuinfo() {
  say("Finding the hardware idenitity with uname failed, attempting to find hardware identity with "
      "cpuinfo");
  std::ifstream cpuinfo(cpuinfoPath);
  if (!cpuinfo) {
    mMessages.push_back(
        error("Could not open the /proc/cpuinfo file, is the proc filesystem mounted"));
    return;
  }
  for (std::string line; std::getline(cpuinfo, line);) {
    say("Cpuinfo line: " + line);
    if (line.find("Hardware") == 0) {
      hardwareLine(line);
      return;
    }
  }
}

void Determining::hardwareLine(const std::string& line) {
  say("Found Hardware field...");
  const auto colon = line.find(':');
  const std::string value = line.substr(colon == std::string::npos ? 1 : colon + 2);
  say("Found possisble alias: '" + value + "'");
  say("Searching known real names...");
  for (const HardwareIdentity& identity : mCatalogue) {
    if (identity.name == value) {
      adopt(identity);
      return;
    }
  }
  say("Searching known aliases...");
  for (const HardwareIdentity& identity : mCatalogue) {
    if (hasAlias(identity, value)) {
      adopt(identity);
      return;
    }
  }
  mMessages.push_back(error("The possible alias is not a real name or alias of any identity"));
}

void Determining::adopt(const HardwareIdentity& identity) {
  mIdentity = {true, identity.name, identity.aliases, identity.number};
}

}  // namespace

Messages report(const Identity& identity) {
  std::string aliases;
  for (const std::string& alias : identity.aliases) {
    aliases += alias + " ";
  }
  const Messages messages{
      debug(identity.determined ? "Full identity: " : "Identity is unknown: "),
      debug(("Real name: " + identity.name).c_str()),
      debug("Hardware number: " + std::to_string(identity.number)),
  };
  return identity.determined ? messages + debug(("Aliases: " + aliases).c_str()) : messages;
}

Determination determine(const std::vector<HardwareIdentity>& catalogue, const Identity& before) {
  return Determining(catalogue, before).run();
}

}  // namespace reference
