#include "replay/kernel.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <poll.h>
#include <seccomp.h>
#include <sys/socket.h>
#include <sys/utsname.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

#include "replay/failure.h"
#include "replay/processes.h"

namespace ovxid::replay {

namespace {

// The two ends between the process that is answered and the one that answers.
struct Channel {
  int ends[2];

  Channel() {
    require(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) == 0, "socketpair");
  }
};

// A message of one byte and a descriptor.
struct Parcel {
  char byte = 0;
  iovec data{&byte, 1};
  alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))] = {};
  msghdr header{};

  Parcel() {
    header.msg_iov = &data;
    header.msg_iovlen = 1;
    header.msg_control = control;
    header.msg_controllen = sizeof control;
  }
};

void send(int channel, int descriptor) {
  Parcel parcel;
  cmsghdr* const content = CMSG_FIRSTHDR(&parcel.header);
  require(content != nullptr, "send a descriptor");
  content->cmsg_level = SOL_SOCKET;
  content->cmsg_type = SCM_RIGHTS;
  content->cmsg_len = CMSG_LEN(sizeof descriptor);
  std::memcpy(CMSG_DATA(content), &descriptor, sizeof descriptor);
  require(sendmsg(channel, &parcel.header, 0) == 1, "send a descriptor");
}

// -1 when the other process has ended without sending one.
int receive(int channel) {
  Parcel parcel;
  int descriptor = -1;
  const bool received = recvmsg(channel, &parcel.header, MSG_CMSG_CLOEXEC) == 1;
  const cmsghdr* const content = CMSG_FIRSTHDR(&parcel.header);
  if (received && content != nullptr) {
    std::memcpy(&descriptor, CMSG_DATA(content), sizeof descriptor);
  }
  return descriptor;
}

// Answers the calls of one board.
class Answers {
 public:
  Answers(const Recording& recording, Processes processes, int listener)
      : mListener(listener), mRecording(recording), mProcesses(std::move(processes)) {}

  // Until no process is left that could call.
  void run();

 private:
  void answer(const seccomp_notif& call, seccomp_notif_resp& response) const;
  bool tellNames(const seccomp_notif& call) const;

  int mListener;
  const Recording& mRecording;
  Processes mProcesses;
};

void Answers::run() {
  seccomp_notif* call = nullptr;
  seccomp_notif_resp* response = nullptr;
  if (seccomp_notify_alloc(&call, &response) != 0) {
    return;
  }
  mProcesses.makeRoom();
  pollfd events{mListener, POLLIN, 0};
  while (poll(&events, 1, Processes::milliseconds) >= 0 && (events.revents & POLLHUP) == 0) {
    mProcesses.makeRoom();
    std::memset(call, 0, sizeof *call);
    // The caller may have ended meanwhile.
    if (events.revents != 0 && seccomp_notify_receive(mListener, call) == 0) {
      answer(*call, *response);
      seccomp_notify_respond(mListener, response);
    }
  }
  seccomp_notify_free(call, response);
}

void Answers::answer(const seccomp_notif& call, seccomp_notif_resp& response) const {
  response = {};
  response.id = call.id;
  if (!tellNames(call)) {
    response.error = -EFAULT;
  }
}

void setName(char (&name)[_UTSNAME_LENGTH], const std::string& value) {
  std::memset(name, 0, sizeof name);
  value.copy(name, sizeof name - 1);
}

bool Answers::tellNames(const seccomp_notif& call) const {
  utsname names{};
  if (!mRecording.hasUname || ::uname(&names) != 0) {
    return false;
  }
  setName(names.release, *mRecording.release);
  setName(names.machine, *mRecording.machine);
  const std::string memory = "/proc/.kept/" + std::to_string(call.pid) + "/mem";
  const int caller = open(memory.c_str(), O_WRONLY | O_CLOEXEC);
  // Another process may have got the number, unless the call still waits.
  const bool written =
      caller >= 0 && seccomp_notify_id_valid(mListener, call.id) == 0 &&
      pwrite(caller, &names, sizeof names, static_cast<off_t>(call.data.args[0])) ==
          static_cast<ssize_t>(sizeof names);
  close(caller);
  return written;
}

// Nothing of the program is held: no stream whose end somebody waits for, no folder, no terminal.
void letGo(int kept) {
  setsid();
  const int null = open("/dev/null", O_RDWR | O_CLOEXEC);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    dup2(null, stream);
  }
  dup2(kept, STDERR_FILENO + 1);
  close_range(STDERR_FILENO + 2, ~0U, 0);
  [[maybe_unused]] const int result = chdir("/");
}

[[noreturn]] void answerUntilTheEnd(const Recording& recording, const Processes& processes,
                                    int channel) {
  const int listener = receive(channel);
  if (listener >= 0) {
    letGo(listener);
    Answers(recording, processes, STDERR_FILENO + 1).run();
  }
  _exit(0);
}

// Makes the process that answers. It is no child of this one, which knows nothing of it.
void startAnswering(const Recording& recording, const Processes& processes,
                    const Channel& channel) {
  const pid_t child = fork();
  require(child >= 0, "fork");
  if (child == 0) {
    if (fork() == 0) {
      close(channel.ends[0]);
      answerUntilTheEnd(recording, processes, channel.ends[1]);
    }
    _exit(0);
  }
  int status = 0;
  require(waitpid(child, &status, 0) == child, "waitpid");
  close(channel.ends[1]);
}

// What the library returns does not tell why.
void requireFilter(int result) {
  if (result != 0) {
    throw Failure(
        "seccomp",
        "the kernel does not hand over the call uname (that takes CONFIG_SECCOMP_FILTER and "
        "Linux 5.9, and a program that is not being replayed already)");
  }
}

// Programs of the machine's second word length make the same calls by other numbers.
void addSecondArchitecture(scmp_filter_ctx filter) {
#if defined(__x86_64__)
  requireFilter(seccomp_arch_add(filter, SCMP_ARCH_X86));
#elif defined(__aarch64__)
  requireFilter(seccomp_arch_add(filter, SCMP_ARCH_ARM));
#else
  (void)filter;
#endif
}

// The descriptor on which the kernel tells of the calls.
int listen() {
  const std::unique_ptr<void, decltype(&seccomp_release)> filter(seccomp_init(SCMP_ACT_ALLOW),
                                                                 seccomp_release);
  require(filter != nullptr, "seccomp");
  addSecondArchitecture(filter.get());
  // Calls of an architecture that is not known here are the kernel's business.
  requireFilter(seccomp_attr_set(filter.get(), SCMP_FLTATR_ACT_BADARCH, SCMP_ACT_ALLOW));
  requireFilter(seccomp_rule_add(filter.get(), SCMP_ACT_NOTIFY, SCMP_SYS(uname), 0));
  if (geteuid() == 0) {
    // Without it, programs may still gain rights by their files.
    requireFilter(seccomp_attr_set(filter.get(), SCMP_FLTATR_CTL_NNP, 0));
  }
  requireFilter(seccomp_load(filter.get()));
  return seccomp_notify_fd(filter.get());
}

}  // namespace

void answerForKernel(const Recording& recording) {
  const Channel channel;
  const Processes processes;
  startAnswering(recording, processes, channel);
  const int listener = listen();
  send(channel.ends[0], listener);
  close(listener);
  close(channel.ends[0]);
}

}  // namespace ovxid::replay
