#!/usr/bin/env bats
# What ovxid-replay takes, and that its own texts are not lost unseen.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

full='ovxid-replay: standard output: No space left on device'
closed='ovxid-replay: standard output: Bad file descriptor'

@test "a recording may be called like an option" {
  needs_namespaces
  make_board
  cp "$board" "$BATS_TEST_TMPDIR/-board"
  cd "$BATS_TEST_TMPDIR"
  expect 0 armv7l ovxid replay -- -board uname -m
}

@test "a replayed program replays no board" {
  needs_namespaces
  make_board
  expect 125 'ovxid-replay: seccomp: the kernel does not hand over the call uname (that takes CONFIG_SECCOMP_FILTER'\
' and Linux 5.9, and a program that is not being replayed already)' on_board ovxid-replay "$board" true
}

@test "a replay without a recording is refused" {
  expect 2 "ovxid-replay: FILE: is missing (see 'ovxid-replay --help')" ovxid-replay
}

@test "an option without its file is refused" {
  expect 2 "ovxid-replay: --catalogue: needs a FILE (see 'ovxid-replay --help')" ovxid-replay --catalogue
}

@test "a help text that a full disk does not take is an error" {
  expect 125 "$full" bash -c 'ovxid-replay --help >/dev/full'
}

@test "a version that a full disk does not take is an error" {
  expect 125 "$full" bash -c 'ovxid-replay --version >/dev/full'
}

@test "a help text without an output is an error" {
  expect 125 "$closed" bash -c 'ovxid-replay --help >&-'
}

@test "a version without an output is an error" {
  expect 125 "$closed" bash -c 'ovxid-replay --version >&-'
}
