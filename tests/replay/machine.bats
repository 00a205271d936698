#!/usr/bin/env bats
# What does not belong to the board is that of this machine.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  needs_namespaces
  make_board
}

@test "a program reads its standard input" {
  expect 0 'a b' on_board cat <<<'a b'
}

@test "a program stays in its working directory" {
  cd "$BATS_TEST_TMPDIR"
  expect 0 "$BATS_TEST_TMPDIR" on_board pwd
}

@test "a program stays with its user" {
  expect 0 "$(id -u)" on_board id -u
}

@test "a program sees the name of this machine" {
  expect 0 "$(uname -n)" on_board uname -n
}

@test "a program reads the files of /etc" {
  expect 0 "$(cat /etc/passwd)" on_board cat /etc/passwd
}

@test "a program follows the relative links of /etc" {
  expect 0 "$(cat /etc/os-release)" on_board cat /etc/os-release
}

@test "a program follows the links of /proc" {
  expect 0 /proc on_board sh -c 'grep -o " /proc " /proc/mounts | sort -u | tr -d " "'
}

# shellcheck disable=SC2016  # The shell on the board replaces the variables.
@test "everyone may enter /etc and /proc, as ever" {
  expect 0 '755 755' on_board sh -c 'echo $(stat -c %a /etc /proc)'
}

@test "a program that is run in /etc finds the board's catalogue there" {
  cd /etc
  expect 0 known_ovx_ids on_board ls known_ovx_ids
}

# shellcheck disable=SC2016  # The shells replace the variables.
@test "a program runs with closed streams" {
  expect 0 '' bash -c 'ovxid replay "$1" sh -c "uname -r >\"\$1\"" - "$2" <&- >&- 2>&-' - "$board" \
    "$BATS_TEST_TMPDIR/release"
  expect 0 5.10.0-kestrel2 cat "$BATS_TEST_TMPDIR/release"
}

@test "a program whose folder was removed runs" {
  mkdir "$BATS_TEST_TMPDIR/folder"
  cd "$BATS_TEST_TMPDIR/folder"
  rmdir "$BATS_TEST_TMPDIR/folder"
  expect 0 12 on_board ovxid number
}

# shellcheck disable=SC2016  # The shell on the board replaces the variables.
@test "the files of the board take as much memory as they need" {
  local large
  large=$(printf '%0500000d' 0)
  with_node "$(property one "$large")" "$(property two "$large")" "$(property three "$large")"
  expect 0 2 on_board sh -c 'echo $(($(stat -f -c "%b * %S" /proc) >> 20))'
}
