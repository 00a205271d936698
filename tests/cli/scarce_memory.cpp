// Loaded before the front end. It refuses the one allocation whose number OVXID_REFUSED gives,
// counted from the start of main(), and says on standard error whose that was.
#include <dlfcn.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <new>
#include <string_view>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
}

namespace {

using Main = int(int, char**, char**);
using Start = int(Main*, int, char**, void (*)(), void (*)(), void (*)(), void*);

// How many more allocations there are until one is refused. Not above 0: none is.
int left = 0;
Main* mainOfProgram = nullptr;

bool isRefused(std::string_view whose) {
  if (left <= 0 || --left > 0) {
    return false;
  }
  // There is nothing to be done when it cannot be written: the test sees that it is missing.
  [[maybe_unused]] const ssize_t count = write(STDERR_FILENO, whose.data(), whose.size());
  return true;
}

bool isRefusedToLibrary() {
  if (!isRefused("refused: library\n")) {
    return false;
  }
  errno = ENOMEM;
  return true;
}

int countedMain(int argc, char** argv, char** environment) {
  // A launched program has memory.
  unsetenv("LD_PRELOAD");
  const char* const number = std::getenv("OVXID_REFUSED");
  left = number == nullptr ? 0 : std::atoi(number);
  const int status = mainOfProgram(argc, argv, environment);
  left = 0;
  return status;
}

}  // namespace

extern "C" void* malloc(std::size_t size) noexcept {
  return isRefusedToLibrary() ? nullptr : __libc_malloc(size);
}

extern "C" void* calloc(std::size_t count, std::size_t size) noexcept {
  return isRefusedToLibrary() ? nullptr : __libc_calloc(count, size);
}

extern "C" void* realloc(void* block, std::size_t size) noexcept {
  return isRefusedToLibrary() ? nullptr : __libc_realloc(block, size);
}

// NOLINTNEXTLINE(misc-new-delete-overloads): the C++ library's operator delete frees its blocks
void* operator new(std::size_t size) {
  void* const block = isRefused("refused: object\n") ? nullptr : __libc_malloc(size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  return block;
}

extern "C" int __libc_start_main(Main* main, int argc, char** argv, void (*init)(), void (*fini)(),
                                 void (*linkerFini)(), void* stackEnd) {
  mainOfProgram = main;
  auto* const start = reinterpret_cast<Start*>(dlsym(RTLD_NEXT, "__libc_start_main"));
  return start(countedMain, argc, argv, init, fini, linkerFini, stackEnd);
}
