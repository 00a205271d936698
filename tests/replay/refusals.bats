#!/usr/bin/env bats
# Of a recording from somebody else, nothing is replayed unless all of it is right.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  make_board
}

unusable='not a name or label, an address and a MAC address that can be replayed'
no_escape='a backslash is not followed by another one, by t, or by x and two hexadecimal digits'

# refuses FOLDER COMPLAINT: it is not replayed, and no program runs.
refuses() {
  local ran=$BATS_TEST_TMPDIR/ran
  expect 125 "ovxid-replay: $2" ovxid replay "$1" touch "$ran"
  [[ ! -e $ran ]] || {
    echo 'the program ran'
    return 1
  }
}

# refuses_line FILE LINE COMPLAINT: when this is all that the file holds.
refuses_line() {
  printf '%s\n' "$2" >"$board/$1"
  refuses "$board" "$board/$1$3"
}

@test "a folder without a board is refused" {
  refuses "$BATS_TEST_TMPDIR" "$BATS_TEST_TMPDIR: not a recorded board: it has no file 'machine'"
}

@test "an unknown key is refused" {
  refuses_line machine 'colour=red' ":1: no such key: 'colour'"
}

@test "a machine without a release is refused" {
  refuses_line machine 'machine=mips' ': no release, or no machine'
}

@test "an escape that is none is refused" {
  refuses_line machine 'release=6.1\xZZ' ":1: $no_escape"
}

@test "an escape that is none is refused in a path" {
  refuses_line device-tree.order 'wan\q' ":1: $no_escape"
}

@test "an interface without an address is refused" {
  refuses_line interfaces 'eth0' ":1: $unusable"
}

@test "an address that is none is refused" {
  refuses_line interfaces 'eth0 10.1 02:00:00:00:00:09' ":1: $unusable"
}

@test "a MAC address that is none is refused" {
  refuses_line interfaces 'eth0 10.0.0.1 02:00' ":1: $unusable"
}

@test "an interface name with commands for ip is refused" {
  refuses_line interfaces 'x\x0alink eth0 10.0.0.1 02:00:00:00:00:09' ":1: $unusable"
}

@test "a label that ip does not take is refused" {
  refuses_line interfaces 'eth0:#x 10.0.0.1 02:00:00:00:00:09' ":1: $unusable"
}

@test "a MAC address that no interface can have is refused" {
  needs_namespaces
  refuses_line interfaces 'eth0 10.0.0.1 01:00:00:00:00:00' \
    ': RTNETLINK answers: Cannot assign requested address'
}

@test "an address that the kernel does not list is refused" {
  needs_namespaces
  refuses_line interfaces 'eth0 0.0.0.0 02:00:00:00:00:09' \
    ': the kernel here does not list these addresses in this order'
}

@test "a way out of the node is refused" {
  refuses_line device-tree.order '../../etc/passwd' ":1: not a path below the directory: '../../etc/passwd'"
}

@test "a path of the machine is refused" {
  refuses_line device-tree.order /etc/passwd ":1: not a path below the directory: '/etc/passwd'"
}

@test "a way out of the recording is refused" {
  refuses_line machine 'unreadable=device-tree/../../x' \
    ":1: not a path below the directory: 'device-tree/../../x'"
}

@test "a link is refused" {
  ln -s /etc "$board/device-tree/link"
  refuses "$board" "$board/device-tree/link: neither a file nor a directory"
}

@test "a pipe is refused" {
  mkfifo "$board/pipe"
  refuses "$board" "$board/pipe: neither a file nor a directory"
}

@test "a name of fifty thousand letters is refused" {
  refuses_line interfaces "eth0:$(printf '%050000d' 0) 10.0.0.1 02:00:00:00:00:09" ":1: $unusable"
}

@test "a MAC address of fifty thousand bytes is refused" {
  refuses_line interfaces "eth0 10.0.0.1 02$(printf '%.0s:00' {1..50000})" ":1: $unusable"
}

@test "names that the kernel or ip does not take are refused" {
  local name
  for name in sixteen-letters- .eth0 -eth0 eth0: :b eth0:a:b eth/0 eth0:sixteen-lette; do
    refuses_line interfaces "$name 10.0.0.1 02:00:00:00:00:09" ":1: $unusable"
  done
}

@test "MAC addresses that are none are refused" {
  local mac
  for mac in 02:00:00:00:00:0g 02:00:00:00:00:0A 02-00-00-00-00-09 02:00:00:00:00:0 02:00:00:00:00:09:0; do
    refuses_line interfaces "eth0 10.0.0.1 $mac" ":1: $unusable"
  done
}

@test "a file that takes too much memory is refused" {
  truncate --size=17M "$board/cpuinfo"
  expect 125 "ovxid-replay: $board/cpuinfo: is larger than 16 MiB" ovxid replay "$board" true
}
