#include "simulation/board.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include "replay/ip.h"
#include "simulation/kernel.h"

namespace fs = std::filesystem;
namespace replay = ovxid::replay;

namespace {

std::string inNode(const std::string& path) { return std::string(nodePath) + "/" + path; }

void write(const std::string& path, const std::string& bytes) {
  fs::create_directories(fs::path(path).parent_path());
  std::ofstream file(path);
  file << bytes << std::flush;
  if (!file) {
    throw std::runtime_error("cannot write " + path);
  }
}

// Other failures are no matter of what the machine allows.
bool isForbidden(const std::error_code& code) {
  return code == std::errc::operation_not_permitted || code == std::errc::permission_denied ||
         code == std::errc::no_space_on_device || code == std::errc::function_not_supported;
}

ReplacedDirectory replaced(const char* path) {
  try {
    return ReplacedDirectory(path);
  } catch (const replay::NamespaceError& error) {
    if (isForbidden(error.code())) {
      giveUpSimulation(error.what());
    }
    throw;
  }
}

}  // namespace

Board::Board() : mProc(replaced("/proc")), mEtc(replaced("/etc")) {
  for (const char* entry : {"meminfo", "mounts", "net", "self", "stat", "sys", "thread-self"}) {
    replay::keep("/proc", entry);
  }
  replay::keep("/proc", std::to_string(getpid()));
  replay::keepAllBut("/etc", {"known_ovx_ids"});
  replay::enterNetworkNamespace();
  kernel = {};
  kernel.release = "5.10.0";
  kernel.machine = "armv7l";
}

Board::~Board() { kernel = {}; }

Board& Board::property(const std::string& path, const std::string& bytes) {
  write(inNode(path), bytes);
  return *this;
}

Board& Board::childNode(const std::string& path) { return directory(inNode(path)); }

Board& Board::link(const std::string& path, const std::string& target) {
  node();
  fs::create_symlink(target, inNode(path));
  return *this;
}

Board& Board::node() { return directory(nodePath); }

Board& Board::cpuinfo(const std::string& text) {
  write(cpuinfoPath, text);
  return *this;
}

Board& Board::catalogue(const std::string& text) {
  write(cataloguePath, text);
  return *this;
}

Board& Board::kernelRelease(const std::string& release) {
  kernel.release = release;
  return *this;
}

Board& Board::machine(const std::string& machine) {
  kernel.machine = machine;
  return *this;
}

Board& Board::unameFails() {
  kernel.unameFails = true;
  return *this;
}

Board& Board::directory(const std::string& path) {
  fs::create_directories(path);
  return *this;
}

Board& Board::file(const std::string& path, const std::string& bytes) {
  write(path, bytes);
  return *this;
}

Board& Board::remove(const std::string& path) {
  if (fs::remove_all(path) == 0) {
    throw std::runtime_error("nothing to remove: " + path);
  }
  return *this;
}

Board& Board::permissions(const std::string& path, unsigned mode) {
  if (chmod(path.c_str(), mode) != 0) {
    throw std::system_error(errno, std::generic_category(), "chmod " + path);
  }
  return *this;
}

Board& Board::interface(const std::string& name, const std::string& mac) {
  const std::string peer = "peer" + std::to_string(mInterfaces++);
  replay::runIp("link add " + name + " address " + mac + " type veth peer name " + peer);
  return *this;
}

Board& Board::mac(const std::string& interface, const std::string& mac) {
  replay::runIp("link set " + interface + " address " + mac);
  return *this;
}

Board& Board::address(const std::string& interface, const std::string& address) {
  replay::runIp("address add " + address + " dev " + interface);
  return *this;
}

Board& Board::labelledAddress(const std::string& label, const std::string& address) {
  const std::string interface = label.substr(0, label.find(':'));
  replay::runIp("address add " + address + " dev " + interface + " label " + label);
  return *this;
}

Board& Board::socketFails(int error) {
  kernel.socketError = error;
  return *this;
}

Board& Board::requestFails(unsigned long request) {
  kernel.failingRequest = request;
  return *this;
}

Board& Board::closeChangesErrno() {
  kernel.closeChangesErrno = true;
  return *this;
}

Board& Board::readFailsAfter(int reads) {
  kernel.readsLeft = reads;
  return *this;
}

Board& Board::kernelAnswersMac(const std::array<unsigned char, 6>& mac) {
  kernel.mac = mac;
  return *this;
}

Messages Board::messagesOf(const std::function<void()>& call) {
  const auto before = static_cast<std::ptrdiff_t>(mLogger.messages.size());
  call();
  return {mLogger.messages.begin() + before, mLogger.messages.end()};
}

std::string listing(OvxIdentifier& identifier) {
  std::ostringstream out;
  identifier.listParams(out);
  return out.str();
}
