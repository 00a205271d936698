# shellcheck shell=bash
# The board that the tests replay, and what they expect of it. Sourced by the files of tests.

build=${OVXID_BUILD_DIR:-$BATS_TEST_DIRNAME/../../build/release}
board=$BATS_TEST_TMPDIR/board
namespaces=$BATS_TEST_DIRNAME/../simulation/namespaces
export PATH=$build/replay:$build/cli:$PATH LC_ALL=C

# A 32-bit board with two addresses of a card that a PC has not, and a catalogue.
make_board() {
  mkdir -p "$board/device-tree/io@1"
  printf 'release=5.10.0-kestrel2\nmachine=armv7l\n' >"$board/machine"
  printf 'Hardware\t: Kestrel Rev B\n' >"$board/cpuinfo"
  printf 'Kestrel:12:kestrel2\n' >"$board/known_ovx_ids"
  printf '%s\n' 'lo 127.0.0.1 00:00:00:00:00:00' 'wan0 10.0.0.1 52:54:00:0a:0b:ff' \
    'wan0:b 10.0.0.2 52:54:00:0a:0b:ff' 'eth0 192.168.7.1 02:00:00:00:00:09' >"$board/interfaces"
  printf 'wan0\0' >"$board/device-tree/wan"
  printf 'front' >"$board/device-tree/io@1/label"
  : >"$board/device-tree/flag"
  printf '%s\n' flag io@1 io@1/label wan >"$board/device-tree.order"
}

# shellcheck disable=SC2034  # The tests use it.
listing='OVX_ID=12
OVX_DESC=Kestrel
OVX_FLAG=
OVX_LABEL=front
OVX_WAN=wan0
OVX_WAN_ID=52540abffff'

on_board() {
  ovxid replay "$board" -- "$@"
}

list() {
  on_board ovxid list | tr -d '\0'
}

# expect STATUS WANTED COMMAND...: of the command's output and complaints.
expect() {
  local status=0 got
  got=$("${@:3}" 2>&1) || status=$?
  if [[ $status -ne $1 || $got != "$2" ]]; then
    printf 'the status is %s and not %s, or this is not\n%s\nbut\n%s\n' "$status" "$1" "$2" "$got"
    return 1
  fi
}

# needs COMMAND...: the machine does not allow the test if the command fails.
needs() {
  local complaint
  complaint=$("$@" 2>&1) || skip "${complaint:-$*}"
}

# needs_namespaces_for COMMAND...: such as setpriv, for what it runs, or unshare, which may be refused itself.
needs_namespaces_for() {
  local status=0 reason
  reason=$("$@" "$namespaces" true 2>&1) || status=$?
  [[ $status -ne 77 && $reason != 'unshare: unshare failed: '* ]] || skip "$reason"
  [[ $status -eq 0 ]] || echo "$reason"
  return "$status"
}

needs_namespaces() {
  needs_namespaces_for env
}
