#include "replay/network.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace {

int require(int result, const char* what) {
  if (result < 0) {
    throw std::system_error(errno, std::generic_category(), what);
  }
  return result;
}

// The right to change the network goes to the program that this process becomes, also when it is
// not root of its namespace.
bool passOnNetworkRights() {
  __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
  std::array<__user_cap_data_struct, 2> rights{};
  if (syscall(SYS_capget, &header, rights.data()) != 0) {
    return false;
  }
  rights[0].inheritable |= 1U << CAP_NET_ADMIN;
  return syscall(SYS_capset, &header, rights.data()) == 0 &&
         prctl(PR_CAP_AMBIENT, PR_CAP_AMBIENT_RAISE, CAP_NET_ADMIN, 0, 0) == 0;
}

// A file without a name. Nobody has to read while it is written.
int fileOf(const std::string& text) {
  const int file = require(memfd_create("ip", MFD_CLOEXEC), "memfd_create");
  require(static_cast<int>(pwrite(file, text.data(), text.size(), 0)), "write the commands of ip");
  return file;
}

std::string contentOf(int file) {
  std::array<char, 1024> text{};
  const ssize_t size = pread(file, text.data(), text.size(), 0);
  return {text.data(), size < 0 ? 0 : static_cast<std::size_t>(size)};
}

// The ip of busybox, which small systems have, knows no batches. A single change needs none.
std::vector<std::string> argumentsFor(const std::vector<std::string>& commands) {
  if (commands.size() != 1) {
    return {"ip", "-batch", "-"};
  }
  std::istringstream words(commands.front());
  std::vector<std::string> arguments{"ip"};
  arguments.insert(arguments.end(), std::istream_iterator<std::string>(words), {});
  return arguments;
}

[[noreturn]] void becomeIp(char** arguments, int commands, int complaints) noexcept {
  dup2(commands, STDIN_FILENO);
  dup2(complaints, STDERR_FILENO);
  if (!passOnNetworkRights()) {
    std::perror("changing the network takes CAP_NET_ADMIN");
    _exit(1);
  }
  execvp(arguments[0], arguments);
  _exit(127);
}

}  // namespace

void changeNetwork(const std::vector<std::string>& commands) {
  if (commands.empty()) {
    return;
  }
  std::string text;
  for (const std::string& command : commands) {
    text += command + "\n";
  }
  const int input = fileOf(text);
  const int complaints = fileOf("");
  std::vector<std::string> arguments = argumentsFor(commands);
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) {
    pointers.push_back(argument.data());
  }
  pointers.push_back(nullptr);
  const pid_t child = require(fork(), "fork");
  if (child == 0) {
    becomeIp(pointers.data(), input, complaints);
  }
  int status = 0;
  require(waitpid(child, &status, 0), "waitpid");
  const std::string complaint = contentOf(complaints);
  close(input);
  close(complaints);
  if (WIFEXITED(status) && WEXITSTATUS(status) == 127) {
    throw std::runtime_error("the program ip is missing (package iproute2)");
  }
  if (status != 0) {
    throw std::runtime_error(complaint.substr(0, complaint.find('\n')));
  }
}
