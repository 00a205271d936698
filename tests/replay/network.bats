#!/usr/bin/env bats
# The kernel lists the addresses of the board, in the order of the recording.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  needs_namespaces
  make_board
}

addresses() {
  on_board ip -o -4 address | sed -E 's/^[0-9]+: [^ ]+ +inet ([^ /]+).* ([^ ]+)\\.*/\2 \1/'
}

@test "a board has the addresses of its recording" {
  expect 0 'lo 127.0.0.1
wan0 10.0.0.1
wan0:b 10.0.0.2
eth0 192.168.7.1' addresses
}

@test "addresses of every scope keep their order" {
  printf '%s\n' 'lo 10.9.9.9 00:00:00:00:00:00' 'lo 127.0.0.1 00:00:00:00:00:00' \
    'br 10.0.0.3 02:00:00:00:00:09' 'br 127.0.0.9 02:00:00:00:00:09' >"$board/interfaces"
  expect 0 'lo 10.9.9.9
lo 127.0.0.1
br 10.0.0.3
br 127.0.0.9' addresses
}

@test "a tunnel has its address" {
  needs bash -c ': <>/dev/net/tun'
  printf '%s\n' 'wwan0 10.0.0.1 00:00:00:00:00:00' 'eth0 10.0.0.2 02:00:00:00:00:09' >"$board/interfaces"
  expect 0 'wwan0 10.0.0.1
eth0 10.0.0.2' addresses
}
