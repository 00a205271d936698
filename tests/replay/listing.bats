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
  with_node "$(property wan 'wan0\u0000')" "$card" "$(property flag '')"
  expect 0 'OVX_ID=12
OVX_DESC=Kestrel
OVX_WAN=wan0
OVX_LABEL=front
OVX_FLAG=
OVX_WAN_ID=52540abffff' list
}

@test "a recording of many properties is listed in its order" {
  local i entries=() names=()
  for i in {1..3000}; do
    names+=("P$((i * 7919 % 3001))")
    entries+=("$(property "${names[-1]}" '')")
  done
  with_node "${entries[@]}"
  expect 0 "$(printf 'OVX_%s=\n' "${names[@]}")" on_board sh -c 'ovxid list | grep OVX_P'
}
