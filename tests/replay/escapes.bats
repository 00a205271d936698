#!/usr/bin/env bats
# Whatever a recording holds, a terminal does not obey it.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

evil=$'\e]0;pwn\a'

setup() {
  make_board
}

@test "a name of a file does not reach the terminal as it is" {
  expect 125 'ovxid-replay: /no\x1b]0;pwn\x07: No such file or directory' ovxid-replay "/no$evil" true
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
  with said '{"out": "\u001b]0;pwn\u0007\u0000\n", "err": "", "status": 0}'
  run ovxid replay "$board"
  expect 0 "--- $BATS_TEST_TMPDIR/\\x1b]0;pwn\\x07
-out| \\x1b]0;pwn\\x07\\0" sed -n '1p; 4p' <<<"$output"
}
