#include "cli/front_end.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/personality.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <system_error>

namespace {

void require(int result, const char* what) {
  if (result < 0) {
    throw std::system_error(errno, std::generic_category(), what);
  }
}

void replaceByFile(int descriptor, const char* path) {
  const int file = open(path, O_WRONLY | O_CLOEXEC | O_NOCTTY);
  require(file, path);
  require(dup2(file, descriptor), path);
}

void replaceByClosedPipe(int descriptor) {
  int ends[2];
  require(pipe2(ends, O_CLOEXEC), "make a pipe");
  require(dup2(ends[1], descriptor), "replace a stream by a pipe");
  close(ends[0]);
}

// The linker takes a path with a blank for two.
void preload(const char* library) {
  const std::filesystem::path path(library);
  setenv("LD_LIBRARY_PATH", path.parent_path().c_str(), 1);
  setenv("LD_PRELOAD", path.filename().c_str(), 1);
}

}  // namespace

std::multiset<std::string> entriesOf(const std::string& text) {
  std::multiset<std::string> entries;
  std::istringstream stream(text);
  for (std::string entry; std::getline(stream, entry, '\0');) {
    entries.insert(entry);
  }
  return entries;
}

Outcome FrontEnd::ovxid(Arguments arguments) {
  return inChild([&] {
    require(personality(PER_LINUX32), "be called a 32-bit machine");
    setenv("PATH", "/usr/bin:/bin", 1);
    unsetenv("SHELL");
    for (const auto& prepare : mPreparations) {
      prepare();
    }
    arguments.insert(arguments.begin(), OVXID_CLI);
    execv(OVXID_CLI, pointers(arguments).data());
    std::perror("cannot run " OVXID_CLI);
    return 255;
  });
}

void FrontEnd::inputFrom(const std::string& path) {
  mPreparations.emplace_back([path] {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    require(file, path.c_str());
    require(dup2(file, STDIN_FILENO), path.c_str());
  });
}

void FrontEnd::outputTo(int descriptor) {
  mPreparations.emplace_back([descriptor] { require(dup2(descriptor, STDOUT_FILENO), "dup2"); });
}

void FrontEnd::outputTo(const char* path) {
  mPreparations.emplace_back([path] { replaceByFile(STDOUT_FILENO, path); });
}

void FrontEnd::outputToClosedPipe() {
  mPreparations.emplace_back([] { replaceByClosedPipe(STDOUT_FILENO); });
}

void FrontEnd::outputClosed() {
  mPreparations.emplace_back([] { close(STDOUT_FILENO); });
}

void FrontEnd::messagesTo(const std::string& path) {
  mPreparations.emplace_back([path] { replaceByFile(STDERR_FILENO, path.c_str()); });
}

void FrontEnd::messagesToClosedPipe() {
  mPreparations.emplace_back([] { replaceByClosedPipe(STDERR_FILENO); });
}

void FrontEnd::pathIs(const char* path) {
  mPreparations.emplace_back([path] { setenv("PATH", path, 1); });
}

void FrontEnd::shellIs(const char* shell) {
  mPreparations.emplace_back([shell] { setenv("SHELL", shell, 1); });
}

void FrontEnd::bashIsNotExecutable() {
  mPreparations.emplace_back([] {
    require(unshare(CLONE_NEWNS), "make a mount namespace");
    require(mount("/dev/null", "/bin/bash", nullptr, MS_BIND, nullptr), "cover /bin/bash");
  });
}

void FrontEnd::ignores(int signal) {
  mPreparations.emplace_back([signal] { std::signal(signal, SIG_IGN); });
}

void FrontEnd::filesAreAtMost(unsigned bytes) {
  mPreparations.emplace_back([bytes] {
    const rlimit limit{bytes, bytes};
    require(setrlimit(RLIMIT_FSIZE, &limit), "limit the size of files");
  });
}

void FrontEnd::obeysModes() {
  mPreparations.emplace_back([] {
    for (const int capability : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH}) {
      require(prctl(PR_CAPBSET_DROP, capability, 0, 0, 0), "drop a capability");
    }
  });
}

void FrontEnd::isPosixlyCorrect() {
  mPreparations.emplace_back([] { setenv("POSIXLY_CORRECT", "1", 1); });
}

void FrontEnd::kernelIs(const std::string& release, const std::string& machine) {
  mPreparations.emplace_back([release, machine] {
    preload(OVXID_OTHER_KERNEL);
    setenv("OVXID_RELEASE", release.c_str(), 1);
    setenv("OVXID_MACHINE", machine.c_str(), 1);
  });
}

void FrontEnd::filesBelongTo(uid_t owner) {
  mPreparations.emplace_back([owner] {
    preload(OVXID_OTHER_KERNEL);
    setenv("OVXID_OWNER", std::to_string(owner).c_str(), 1);
  });
}

void FrontEnd::kernelRefuses(long call, unsigned argument) {
  mPreparations.emplace_back([call, argument] {
    constexpr unsigned second = offsetof(seccomp_data, args) + sizeof seccomp_data::args[0];
    sock_filter filter[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(call), 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, second),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, argument, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{std::size(filter), filter};
    require(prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), "set no_new_privs");
    require(prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program), "refuse a system call");
  });
}

void FrontEnd::refusesAllocation(int number) {
  mPreparations.emplace_back([number] {
    preload(OVXID_SCARCE_MEMORY);
    setenv("OVXID_REFUSED", std::to_string(number).c_str(), 1);
  });
}
