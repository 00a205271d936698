#!/usr/bin/env bats
# Whatever a recording holds, a terminal does not obey it.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

evil=$'\e]0;pwn\a'

setup() {
  make_board
}

@test "a folder's name does not reach the terminal as it is" {
  expect 125 'ovxid-replay: /no\x1b]0;pwn\x07: No such file or directory' ovxid-replay "/no$evil" true
}

@test "a path of a recording does not reach the terminal as it is" {
  printf '%s\n' "../$evil" >"$board/device-tree.order"
  expect 125 "ovxid-replay: $board/device-tree.order:1: not a path below the directory: '../\\x1b]0;pwn\\x07'" \
    on_board true
}

@test "a key of a recording does not reach the terminal as it is" {
  printf '%s\n' "$evil=1" >"$board/machine"
  expect 125 "ovxid-replay: $board/machine:1: no such key: '\\x1b]0;pwn\\x07'" on_board true
}

@test "a file system's complaint does not bring a path to the terminal as it is" {
  needs_namespaces
  printf '%s%0300d\n' "$evil" 0 >"$board/device-tree.order"
  run on_board true
  [[ $status -eq 125 && $output == *'\x1b]0;pwn\x07000'* && $output != *$'\e'* ]]
}

@test "an option that there is not does not reach the terminal as it is" {
  expect 2 "ovxid-replay: --\\x1b]0;pwn\\x07: no such option (see 'ovxid-replay --help')" ovxid-replay "--$evil"
}

@test "a letter that is no option is named" {
  expect 2 "ovxid-replay: -x: no such option (see 'ovxid-replay --help')" ovxid-replay -x "$board"
}

@test "an option that takes no value is named with its value" {
  expect 2 "ovxid-replay: --help=me: no such option (see 'ovxid-replay --help')" ovxid-replay --help=me
}

@test "a program's name does not reach the terminal as it is" {
  needs_namespaces
  expect 127 'ovxid-replay: no\x1b]0;pwn\x07: No such file or directory' on_board "no$evil"
}

@test "what was said on the board does not reach the terminal as it is" {
  needs_namespaces
  board=$BATS_TEST_TMPDIR/$evil
  make_board
  on_board ovxid record "$BATS_TEST_TMPDIR/again$evil"
  printf '%s\0\n' "$evil" >"$BATS_TEST_TMPDIR/again$evil/said"
  run ovxid replay "$BATS_TEST_TMPDIR/again$evil"
  expect 0 "--- $BATS_TEST_TMPDIR/again\\x1b]0;pwn\\x07/said
-\\x1b]0;pwn\\x07\\x00" sed -n '1p; 4p' <<<"$output"
}
