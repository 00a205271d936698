#!/usr/bin/env bats
# The directories of the node list their entries in the order of the recording, whatever it is.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  needs_namespaces
  make_board
}

@test "a board lists its parameters in the order of its recording" {
  expect 0 "$listing" list
}

@test "a board lists its parameters in another order of its recording" {
  printf '%s\n' wan io@1 io@1/label flag >"$board/device-tree.order"
  expect 0 'OVX_ID=12
OVX_DESC=Kestrel
OVX_WAN=wan0
OVX_LABEL=front
OVX_FLAG=
OVX_WAN_ID=52540abffff' list
}

@test "a property that somebody has added to the recording comes last" {
  printf '%s\n' wan io@1 io@1/label flag >"$board/device-tree.order"
  printf 'site' >"$board/device-tree/site"
  expect 0 'OVX_ID=12
OVX_DESC=Kestrel
OVX_WAN=wan0
OVX_LABEL=front
OVX_FLAG=
OVX_SITE=site
OVX_WAN_ID=52540abffff' list
}
