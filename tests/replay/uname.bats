#!/usr/bin/env bats
# uname(2) answers as the kernel of the board would, to every program and by every way to ask.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  needs_namespaces
  make_board
}

# build_program: from the C code on standard input.
build_program() {
  program=$BATS_TEST_TMPDIR/program
  gcc -w -static -x c -o "$program" -
}

# An x86_64 program asks by numbers of its own.
needs_x86_64() {
  [[ $(uname -m) == x86_64 ]] || skip 'x86_64 is needed'
}

@test "uname writes only where the program can write" {
  build_program <<'END'
#include <errno.h>
#include <stdio.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/utsname.h>
static void ask(const char *where, void *place) {
  int result = uname(place);
  printf("%s: %s\n", where, result == 0 ? "written" : strerror(errno));
}
static void *page(int protection) {
  return mmap(0, 4096, protection, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
}
int main() {
  ask("a page to write", page(PROT_READ | PROT_WRITE));
  ask("a page to read", page(PROT_READ));
  ask("a closed page", page(PROT_NONE));
  ask("code", (void *)main);
  ask("nothing", 0);
}
END
  expect 0 'a page to write: written
a page to read: Bad address
a closed page: Bad address
code: Bad address
nothing: Bad address' on_board "$program"
}

@test "a program that shows its memory to nobody sees the board" {
  build_program <<'END'
#include <stdio.h>
#include <sys/prctl.h>
#include <sys/utsname.h>
int main() {
  struct utsname names;
  prctl(PR_SET_DUMPABLE, 0);
  puts(uname(&names) == 0 ? names.machine : "no answer");
}
END
  expect 0 armv7l on_board "$program"
}

@test "the calls of 32-bit programs tell the board's names, the old ones too" {
  needs_x86_64
  build_program <<'END'
#include <stdio.h>
#include <string.h>
#include <sys/mman.h>
static void ask(long number, int room) {
  static char *names;
  names = mmap(0, 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_32BIT, -1, 0);
  memset(names, '#', 4096);
  long result = number;
  __asm__ volatile("int $0x80" : "+a"(result) : "b"(names) : "memory");
  printf("%ld: %ld %s %s %s\n", number, result, names + 2 * room, names + 4 * room,
         names[5 * room] == '#' ? "and no more" : "and a domain");
}
int main() {
  ask(122, 65);
  ask(109, 65);
  ask(59, 9);
}
END
  needs "$program"
  expect 0 '122: 0 5.10.0-kestrel2 armv7l and a domain
109: 0 5.10.0-kestrel2 armv7l and no more
59: 0 5.10.0-k armv7l and no more' on_board "$program"
}

@test "the call of x32 programs tells the board's names" {
  needs_x86_64
  build_program <<'END'
#include <stdio.h>
#include <sys/utsname.h>
#include <unistd.h>
int main() {
  struct utsname names;
  puts(syscall(0x40000000 | 63, &names) == 0 ? names.machine : "no answer");
}
END
  expect 0 armv7l on_board "$program"
}

@test "the kernel's files tell the board's names" {
  expect 0 5.10.0-kestrel2 on_board cat /proc/sys/kernel/osrelease
  expect 0 "$(sed "s/$(uname -r)/5.10.0-kestrel2/" /proc/version)" on_board cat /proc/version
}

@test "the kernel's file of the machine tells the board's" {
  needs test -e /proc/sys/kernel/arch
  expect 0 armv7l on_board cat /proc/sys/kernel/arch
}

@test "the kernel's files are closed where the kernel does not tell its names" {
  with uname '{"error": "EPERM"}'
  expect 1 'cat: /proc/sys/kernel/osrelease: Permission denied
cat: /proc/version: Permission denied' on_board cat /proc/sys/kernel/osrelease /proc/version
}

@test "uname tells the board's names when a program has taken /proc away" {
  needs test "$EUID" -eq 0
  expect 0 armv7l on_board sh -c 'umount -l /proc; uname -m'
}

# shellcheck disable=SC2016  # The shell on the board replaces the variables.
@test "uname tells the board's names when a program has mounted another /proc" {
  needs unshare --mount mount -t proc proc /proc
  expect 0 'armv7l armv7l' on_board sh -c \
    'mount -t proc proc /proc; i=0; while [ $i -lt 300 ]; do i=$((i + 1)); (:); done; echo $(uname -m; uname -m)'
}
