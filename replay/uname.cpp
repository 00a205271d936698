#include "replay/uname.h"

#include <poll.h>
#include <seccomp.h>
#include <sys/uio.h>
#include <sys/utsname.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace ovxid::replay {

namespace {

void setName(char (&name)[_UTSNAME_LENGTH], const std::string& value) {
  std::memset(name, 0, sizeof name);
  value.copy(name, sizeof name - 1);
}

// The oldest call has no room for more, and the old ones do not tell the domain.
std::string oldestBytesOf(const utsname& names) {
  constexpr std::size_t room = 8;
  std::string bytes;
  for (const char* name :
       {names.sysname, names.nodename, names.release, names.version, names.machine}) {
    bytes.append(name, room).append(1, '\0');
  }
  return bytes;
}

std::string nameOf(const seccomp_data& call) {
  const std::unique_ptr<char, decltype(&std::free)> name(
      seccomp_syscall_resolve_num_arch(call.arch, call.nr), std::free);
  return name == nullptr ? "" : name.get();
}

// What the call writes into the memory of its caller.
std::string answerTo(const seccomp_data& call, const utsname& names) {
  const std::string name = nameOf(call);
  if (name == "oldolduname") {
    return oldestBytesOf(names);
  }
  std::string bytes(name == "olduname" ? offsetof(utsname, domainname) : sizeof names, '\0');
  std::memcpy(bytes.data(), &names, bytes.size());
  return bytes;
}

// Only where the caller itself could write.
bool write(std::string bytes, const seccomp_notif& call) {
  const auto address = static_cast<std::uintptr_t>(call.data.args[0]);
  void* place = nullptr;
  std::memcpy(&place, &address, sizeof place);
  const iovec local{bytes.data(), bytes.size()};
  const iovec remote{place, bytes.size()};
  return process_vm_writev(static_cast<pid_t>(call.pid), &local, 1, &remote, 1, 0) ==
         static_cast<ssize_t>(bytes.size());
}

bool writeNames(const recording::Recording& recording, const seccomp_notif& call, int listener) {
  utsname names{};
  if (::uname(&names) != 0) {
    return false;
  }
  setName(names.release, recording.release);
  setName(names.machine, recording.machine);
  // Another process may have got the number, unless the call still waits.
  return seccomp_notify_id_valid(listener, call.id) == 0 && write(answerTo(call.data, names), call);
}

void respond(const recording::Recording& recording, const seccomp_notif& call,
             seccomp_notif_resp& response, int listener) {
  response = {};
  response.id = call.id;
  if (recording.unameError != 0) {
    response.error = -recording.unameError;
  } else if (!writeNames(recording, call, listener)) {
    response.error = -EFAULT;
  }
  seccomp_notify_respond(listener, &response);
}

}  // namespace

void superviseUname(const recording::Recording& recording, Processes& processes, int listener) {
  seccomp_notif* call = nullptr;
  seccomp_notif_resp* response = nullptr;
  if (seccomp_notify_alloc(&call, &response) != 0) {
    return;
  }
  pollfd events{listener, POLLIN, 0};
  while (poll(&events, 1, processes.makeEntries() ? Processes::milliseconds : 0) >= 0 &&
         (events.revents & POLLHUP) == 0) {
    std::memset(call, 0, sizeof *call);
    // The caller may have ended meanwhile.
    if (events.revents != 0 && seccomp_notify_receive(listener, call) == 0) {
      respond(recording, *call, *response, listener);
    }
  }
  seccomp_notify_free(call, response);
}

}  // namespace ovxid::replay
