#!/usr/bin/env bats
# What may not be read on the board may not be read here, by root neither.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  needs_namespaces
  make_board
}

@test "a file that may not be read is closed" {
  rm "$board/cpuinfo"
  echo unreadable=cpuinfo >>"$board/machine"
  expect 1 'cat: /proc/cpuinfo: Permission denied' on_board cat /proc/cpuinfo
}

@test "a property that may not be read is closed" {
  echo unreadable=device-tree/flag >>"$board/machine"
  expect 1 'cat: /proc/device-tree/orvanix/flag: Permission denied' on_board \
    cat /proc/device-tree/orvanix/flag
}

@test "a kernel that does not tell its names tells none" {
  echo unreadable=uname >"$board/machine"
  expect 1 'uname: cannot get system name: Bad address' on_board uname -r
}
