#include "replay/ip.h"

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "replay/capture.h"
#include "replay/failure.h"

namespace ovxid::replay {

namespace {

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

// The ip of busybox, which small systems have, knows no batches. A single change needs none.
std::vector<std::string> wordsFor(const std::string& commands) {
  if (commands.find('\n') != std::string::npos) {
    return {"ip", "-batch", "-"};
  }
  std::istringstream words("ip " + commands);
  return {std::istream_iterator<std::string>(words), {}};
}

int becomeIp(std::vector<std::string> words, const Descriptor& input) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) {
    pointers.push_back(word.data());
  }
  pointers.push_back(nullptr);
  dup2(input.get(), STDIN_FILENO);
  if (!passOnNetworkRights()) {
    std::perror("changing the network takes CAP_NET_ADMIN");
    return 1;
  }
  execvp(pointers[0], pointers.data());
  return notFound;
}

}  // namespace

void runIp(const std::string& commands) {
  if (commands.empty()) {
    return;
  }
  const Descriptor input = memoryFile(commands);
  const recording::Said said = captured([&] { return becomeIp(wordsFor(commands), input); });
  if (said.status == notFound) {
    throw std::runtime_error("the program ip is missing (package iproute2)");
  }
  if (said.status != 0) {
    throw std::runtime_error(said.err.substr(0, said.err.find('\n')));
  }
}

}  // namespace ovxid::replay
