# shellcheck shell=bash
# What the tests of the installed packages have in common. Sourced by them.

fail() {
  echo "$*" >&2
  exit 1
}

# expect WHAT WANTED COMMAND...: fails unless the command succeeds and prints what is wanted.
expect() {
  local what=$1 wanted=$2 got
  got=$("${@:3}") || fail "$what: the exit status of '${*:3}' is $?"
  [[ $got == "$wanted" ]] || fail "$what is '$got' and not '$wanted'"
}

expect_files() {
  local file
  for file; do
    [[ -s $file ]] || fail "$file is not installed"
  done
}

# installed_version PACKAGE: without the revision of the packaging.
installed_version() {
  dpkg-query --show --showformat='${source:Upstream-Version}' "$1"
}

# on_board COMMAND...: runs it on a board, which is number 7, a Field Node. The mounts of the machine
# itself are not changed.
on_board() {
  unshare --mount bash -euc '
    mount -t tmpfs board /proc
    mkdir --parents /proc/device-tree/orvanix
    echo 7 >/proc/device-tree/orvanix/boardid
    echo Field Node >/proc/device-tree/orvanix/description
    exec "$@"' on_board "$@"
}
