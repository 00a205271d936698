#!/usr/bin/env bats
# Programs of every kind see the board, and end as they do elsewhere.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  needs_namespaces
  make_board
}

@test "a static program sees the board's release" {
  local names=$BATS_TEST_TMPDIR/names
  printf '%s\n' '#include <stdio.h>' '#include <sys/utsname.h>' \
    'int main() { struct utsname names; uname(&names); puts(names.release); return 3; }' >"$names.c"
  gcc -static -o "$names" "$names.c"
  expect 3 5.10.0-kestrel2 on_board "$names"
}

@test "busybox sees the board's release and machine" {
  expect 0 '5.10.0-kestrel2 armv7l' on_board busybox uname -rm
}

@test "Python sees the board's release and processor" {
  expect 0 '5.10.0-kestrel2 Kestrel Rev B' on_board python3 -c \
    'import os; print(os.uname().release, open("/proc/cpuinfo").read().split(": ")[1].strip())'
}

# shellcheck disable=SC2016  # The shell on the board replaces the variables.
@test "a shell in a shell sees the board's machine" {
  expect 0 armv7l on_board bash -c 'x=$(sh -c "uname -m"); echo "$x"'
}

@test "a script sees the board, and its exit status is that of the replay" {
  expect 7 12 on_board sh -c 'ovxid number; exit 7'
}

# shellcheck disable=SC2016  # The shell on the board replaces the variables.
@test "a signal ends the replay as it ends the program" {
  expect 143 '' on_board sh -c 'kill -TERM $$'
}

@test "a program that is missing is not found" {
  PATH=$build/replay:$build/cli:/usr/bin:/bin
  expect 127 'ovxid-replay: no-such: No such file or directory' on_board no-such
}

@test "a file that is no program cannot be run" {
  expect 126 'ovxid-replay: /etc/passwd: Permission denied' on_board /etc/passwd
}

@test "another catalogue takes the place of the board's" {
  echo 'Kestrel:13:kestrel2' >"$BATS_TEST_TMPDIR/catalogue"
  expect 0 13 ovxid replay --catalogue "$BATS_TEST_TMPDIR/catalogue" "$board" ovxid number
  expect 0 13 ovxid-replay "--catalogue=$BATS_TEST_TMPDIR/catalogue" "$board" -- ovxid number
}

@test "another catalogue is read where that of the board may not be" {
  with catalogue "$closed"
  echo 'Kestrel:13:kestrel2' >"$BATS_TEST_TMPDIR/catalogue"
  expect 0 13 ovxid replay --catalogue "$BATS_TEST_TMPDIR/catalogue" "$board" ovxid number
}
