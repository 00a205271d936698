#!/usr/bin/env bats
# What ovxid says on a replayed board is compared with what it said on the board.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  needs_namespaces
  make_board
  again=$BATS_TEST_TMPDIR/again.json
  on_board ovxid record >"$again"
}

@test "the recording of a replayed board is that of the board" {
  with model '"Kestrel"'
  with compatible '["orvanix,kestrel", {"hex": "ff"}]'
  on_board ovxid record >"$again"
  expect 0 "$(cat "$again")" ovxid replay "$again" ovxid record
}

@test "a board that says the same is no difference" {
  expect 0 '' ovxid replay "$again"
}

@test "a board that says something else is shown as a difference" {
  sed -i 's/OVX_ID=12/OVX_ID=13/' "$again"
  expect 1 "--- $again
+++ here
@@ -1,4 +1,4 @@
-out| OVX_ID=13
+out| OVX_ID=12
 out| OVX_DESC=Kestrel
 out| OVX_FLAG=
 out| OVX_LABEL=front" ovxid replay "$again"
}

@test "another exit status is shown as a difference" {
  sed -i 's/"status": 0/"status": 4/' "$again"
  run ovxid replay "$again"
  [[ $status -eq 1 && $output == *$'\n-exit 4\n+exit 0' ]]
}

@test "a missing newline is shown as a difference" {
  sed -i 's/"OVX_WAN_ID=52540abffff\\n"/"OVX_WAN_ID=52540abffff"/' "$again"
  run ovxid replay "$again"
  [[ $status -eq 1 && $output == *$'\n-out| OVX_WAN_ID=52540abffff\\\n+out| OVX_WAN_ID=52540abffff\n'* ]]
}

@test "what another catalogue changes is shown as a difference" {
  echo 'Kestrel:13:kestrel2' >"$BATS_TEST_TMPDIR/catalogue"
  run ovxid replay --catalogue "$BATS_TEST_TMPDIR/catalogue" "$again"
  [[ $status -eq 1 && $output == *$'\n-out| OVX_ID=12\n+out| OVX_ID=13\n'* ]]
}

@test "a board of which nothing was said is not compared" {
  expect 125 "ovxid-replay: $board: does not tell what ovxid said there: nothing to compare with" \
    ovxid replay "$board"
}

@test "what cannot be compared is no difference" {
  mkdir "$BATS_TEST_TMPDIR/bin"
  printf '#!/bin/sh\necho diff: broken >&2; exit 2\n' >"$BATS_TEST_TMPDIR/bin/diff"
  chmod +x "$BATS_TEST_TMPDIR/bin/diff"
  PATH=$BATS_TEST_TMPDIR/bin:$PATH
  expect 125 "ovxid-replay: $again: cannot be compared: diff: broken" ovxid replay "$again"
}

# shellcheck disable=SC2016  # The shell replaces the variable.
@test "a difference that a full disk does not take is an error" {
  sed -i 's/OVX_ID=12/OVX_ID=13/' "$again"
  expect 125 'ovxid-replay: standard output: No space left on device' bash -c 'ovxid replay "$1" >/dev/full' - "$again"
}
