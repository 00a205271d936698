#!/usr/bin/env bats
# Of a recording from somebody else, nothing is replayed unless all of it is right.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  make_board
}

alone="for 'ovxid --board' alone"

# refuses COMPLAINT [FILE]: it is not replayed, and no program runs.
refuses() {
  local ran=$BATS_TEST_TMPDIR/ran file=${2:-$board}
  expect 125 "ovxid-replay: $file: $1" ovxid replay "$file" touch "$ran"
  [[ ! -e $ran ]] || {
    echo 'the program ran'
    return 1
  }
}

@test "a folder is refused" {
  refuses "a folder: a board is one file, as 'ovxid record' writes it" "$BATS_TEST_TMPDIR"
}

@test "a file that is not there is refused" {
  refuses 'No such file or directory' "$BATS_TEST_TMPDIR/no"
}

@test "a file without a name is refused" {
  expect 125 "ovxid-replay: '': No such file or directory" ovxid replay '' true
}

@test "standard input is refused" {
  expect 125 'ovxid-replay: -: standard input belongs to the program: give a file' ovxid replay - true <"$board"
}

@test "a file that is no JSON is refused" {
  echo 'format=1' >"$board"
  refuses 'line 1, column 2: no JSON'
}

@test "a document that lacks something is refused" {
  without release
  refuses "/: has no 'release'"
}

@test "a file that takes too much memory is refused" {
  truncate --size=17M "$board"
  refuses 'File too large'
}

@test "a way out of the node is refused" {
  with_node "$(property .. '')"
  refuses '/node/0/name: is no name of a property or a node'
}

@test "an interface name with commands for ip is refused" {
  with_interfaces 'x\nlink 10.0.0.1 02:00:00:00:00:09'
  refuses "/interfaces/0/name: no interface here can be called so: $alone"
}

@test "a name that no file has is refused" {
  with_node "$(property "$(printf '%0256d' 0)" '')"
  refuses "/node/0/name: no file has a name of more than 255 bytes: $alone"
}

@test "a property that cannot be read to its end is refused" {
  with_node '{"name": "wan", "value": {"read_error": "EIO"}}'
  refuses "/node/0/value/read_error: no file here fails so when it is read: $alone"
}

@test "a MAC address that no interface can have is refused" {
  needs_namespaces
  with_interfaces 'eth0 10.0.0.1 01:00:00:00:00:00'
  refuses '/interfaces: RTNETLINK answers: Cannot assign requested address'
}

@test "an address that the kernel does not list is refused" {
  needs_namespaces
  with_interfaces 'eth0 0.0.0.0 02:00:00:00:00:09'
  refuses '/interfaces: the kernel here does not list these addresses in this order'
}

@test "a catalogue that cannot be read is refused" {
  expect 125 "ovxid-replay: $BATS_TEST_TMPDIR: Is a directory" \
    ovxid replay --catalogue "$BATS_TEST_TMPDIR" "$board" true
  expect 125 'ovxid-replay: -: standard input belongs to the program: give a file' \
    ovxid replay --catalogue - "$board" true
}
