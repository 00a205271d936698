#!/usr/bin/env bats
# What may not be read on the board may not be read here, by root neither.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  needs_namespaces
  make_board
}

@test "a file that may not be read is closed" {
  with cpuinfo "$closed"
  expect 1 'cat: /proc/cpuinfo: Permission denied' on_board cat /proc/cpuinfo
}

@test "a catalogue that may not be read is closed" {
  with catalogue "$closed"
  expect 1 'cat: /etc/known_ovx_ids: Permission denied' on_board cat /etc/known_ovx_ids
}

@test "a property that may not be read is closed" {
  with_node '{"name": "flag", "value": {"open_error": "EIO"}}'
  expect 1 'cat: /proc/device-tree/orvanix/flag: Permission denied' on_board \
    cat /proc/device-tree/orvanix/flag
}

@test "a folder in the place of a file is one" {
  with cpuinfo '{"read_error": "EISDIR"}'
  with catalogue '{"read_error": "EISDIR"}'
  expect 1 'cat: /proc/cpuinfo: Is a directory
cat: /etc/known_ovx_ids: Is a directory' on_board cat /proc/cpuinfo /etc/known_ovx_ids
}

@test "a file that is not there is not there" {
  without cpuinfo catalogue
  expect 1 'cat: /proc/cpuinfo: No such file or directory
cat: /etc/known_ovx_ids: No such file or directory' on_board cat /proc/cpuinfo /etc/known_ovx_ids
}

@test "a kernel that does not tell its names tells why" {
  with uname '{"error": "EPERM"}'
  expect 1 'uname: cannot get system name: Operation not permitted' on_board uname -r
}

@test "a board without a node has none" {
  without node
  expect 0 '' on_board ls /proc/device-tree
}

@test "a board without a device tree has none" {
  without node
  with device_tree false
  expect 2 "ls: cannot access '/proc/device-tree': No such file or directory" on_board ls /proc/device-tree
}

@test "a device tree tells its model" {
  with model '"Kestrel Rev B"'
  with compatible '["orvanix,kestrel", "orvanix,bird"]'
  expect 0 'Kestrel Rev B|orvanix,kestrel|orvanix,bird|' on_board \
    sh -c 'cat /proc/device-tree/model /proc/device-tree/compatible | tr "\0" "|"'
}

# shellcheck disable=SC2016  # The shell in the namespace replaces the variables.
@test "a file is closed where devices are mounted with few rights" {
  local namespace=(unshare --mount)
  [[ $EUID -eq 0 ]] || namespace+=(--user --map-root-user)
  needs_namespaces_for "${namespace[@]}" unshare --user --map-root-user
  with cpuinfo "$closed"
  expect 1 'cat: /proc/cpuinfo: Permission denied' "${namespace[@]}" sh -c '
    mount --bind /dev/null /dev/null && mount -o remount,bind,nosuid,noexec,ro /dev/null &&
      exec unshare --user --map-root-user ovxid replay "$1" cat /proc/cpuinfo' - "$board"
}
