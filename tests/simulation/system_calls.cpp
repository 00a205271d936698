#include "simulation/system_calls.h"

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <map>
#include <system_error>

namespace {

long require(long result, const char* what) {
  if (result < 0) {
    throw std::system_error(errno, std::generic_category(), what);
  }
  return result;
}

// The child makes this call just before and just after what is traced.
constexpr long mark = SYS_getppid;

const std::map<long, const char*> names{
    {SYS_openat, "openat"},       {SYS_read, "read"},       {SYS_close, "close"},
    {SYS_uname, "uname"},         {SYS_socket, "socket"},   {SYS_ioctl, "ioctl"},
    {SYS_fcntl, "fcntl"},         {SYS_newfstatat, "stat"}, {SYS_lseek, "lseek"},
    {SYS_getdents64, "getdents"}, {SYS_fsync, "fsync"},
// Where there is no renameat, the C library asks for renameat2.
#ifdef SYS_renameat
    {SYS_renameat, "rename"},
#else
    {SYS_renameat2, "rename"},
#endif
};

bool concernsMemory(long number) {
  return number == SYS_brk || number == SYS_mmap || number == SYS_munmap ||
         number == SYS_mprotect || number == SYS_madvise || number == SYS_futex;
}

std::string textAt(pid_t child, std::uint64_t address) {
  std::string text;
  for (;;) {
    errno = 0;
    const long word = ptrace(PTRACE_PEEKDATA, child, address + text.size(), nullptr);
    if (errno != 0) {
      throw std::system_error(errno, std::generic_category(), "read a path of the child");
    }
    const char* const bytes = reinterpret_cast<const char*>(&word);
    const std::string part(bytes, strnlen(bytes, sizeof word));
    text += part;
    if (part.size() < sizeof word) {
      return text;
    }
  }
}

std::string describe(pid_t child, const __ptrace_syscall_info& info) {
  const long number = static_cast<long>(info.entry.nr);
  const auto name = names.find(number);
  if (name == names.end()) {
    return "system call " + std::to_string(number);
  }
  return number == SYS_openat ? "openat " + textAt(child, info.entry.args[1]) : name->second;
}

// The child's next system call; false when it has ended instead.
bool nextEntry(pid_t child, __ptrace_syscall_info& info) {
  do {
    require(ptrace(PTRACE_SYSCALL, child, nullptr, nullptr), "continue the child");
    int status = 0;
    require(waitpid(child, &status, 0), "wait for the child");
    if (!WIFSTOPPED(status)) {
      return false;
    }
    require(ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info), "look at the child");
  } while (info.op != PTRACE_SYSCALL_INFO_ENTRY);
  return true;
}

std::vector<std::string> traceBetweenMarks(pid_t child) {
  std::vector<std::string> calls;
  int marks = 0;
  for (__ptrace_syscall_info info{}; nextEntry(child, info);) {
    const long number = static_cast<long>(info.entry.nr);
    if (number == mark) {
      ++marks;
    } else if (marks == 1 && !concernsMemory(number)) {
      calls.push_back(describe(child, info));
    }
  }
  if (marks != 2) {
    calls.emplace_back("the child ended before the call returned");
  }
  return calls;
}

// A child process that makes the call in a process group of its own, and waits before it does.
pid_t startTraced(const std::function<void()>& call) {
  const auto child = static_cast<pid_t>(require(fork(), "fork"));
  if (child == 0) {
    setpgid(0, 0);
    ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    std::raise(SIGSTOP);
    syscall(mark);
    call();
    syscall(mark);
    _exit(0);
  }
  int status = 0;
  require(waitpid(child, &status, 0), "wait for the child");
  // Without this option the kernel does not tell a system call from a signal.
  require(ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD), "trace the child");
  return child;
}

}  // namespace

std::vector<std::string> systemCallsOf(const std::function<void()>& call) {
  return traceBetweenMarks(startTraced(call));
}

void interrupt(int signal, const std::function<bool()>& isTime, const std::function<void()>& call) {
  const pid_t child = startTraced(call);
  __ptrace_syscall_info info{};
  do {
    if (!nextEntry(child, info)) {
      return;
    }
  } while (!isTime());
  require(kill(-child, signal), "interrupt the child");
  // One that was killed does not wait for this.
  if (signal != SIGKILL) {
    require(ptrace(PTRACE_DETACH, child, nullptr, nullptr), "let the child go on");
  }
  int status = 0;
  require(waitpid(child, &status, 0), "wait for the child");
}
