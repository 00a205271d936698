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

@test "a node that may not be read is closed" {
  rm -r "$board/device-tree" "$board/device-tree.order"
  echo unreadable=device-tree >>"$board/machine"
  expect 1 'cat: /proc/device-tree/orvanix: Permission denied' on_board cat /proc/device-tree/orvanix
}

@test "a node that is a file is a file" {
  rm -r "$board/device-tree" "$board/device-tree.order"
  printf 'no folder' >"$board/device-tree"
  expect 0 'no folder' on_board cat /proc/device-tree/orvanix
}

@test "a board without a node has none" {
  rm -r "$board/device-tree" "$board/device-tree.order"
  expect 2 "ls: cannot access '/proc/device-tree': No such file or directory" on_board ls /proc/device-tree
}

# shellcheck disable=SC2016  # The shell in the namespace replaces the variables.
@test "a file is closed where devices are mounted with few rights" {
  local namespace=(unshare --mount)
  [[ $EUID -eq 0 ]] || namespace+=(--user --map-root-user)
  needs_namespaces_for "${namespace[@]}" unshare --user --map-root-user
  rm "$board/cpuinfo"
  echo unreadable=cpuinfo >>"$board/machine"
  expect 1 'cat: /proc/cpuinfo: Permission denied' "${namespace[@]}" sh -c '
    mount --bind /dev/null /dev/null && mount -o remount,bind,nosuid,noexec,ro /dev/null &&
      exec unshare --user --map-root-user ovxid replay "$1" cat /proc/cpuinfo' - "$board"
}
