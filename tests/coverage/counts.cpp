// Writes gcc's counts where it does not: before a process ends at once. The linker calls these in
// the place of the C library's (counts.cmake).
extern "C" {
// Its functions are those of C, but it does not say so.
#include <gcov.h>

[[noreturn]] void __real__exit(int status);
[[noreturn]] void __real__Exit(int status);
[[noreturn]] void __real_abort();
int __real_raise(int signal);

[[noreturn]] void __wrap__exit(int status) {
  __gcov_dump();
  __real__exit(status);
}

[[noreturn]] void __wrap__Exit(int status) {
  __gcov_dump();
  __real__Exit(status);
}

[[noreturn]] void __wrap_abort() {
  __gcov_dump();
  __real_abort();
}

// Counting begins anew behind a signal that does not end the process.
int __wrap_raise(int signal) {
  __gcov_dump();
  const int result = __real_raise(signal);
  __gcov_reset();
  return result;
}
}
