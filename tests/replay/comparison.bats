#!/usr/bin/env bats
# What ovxid says on a replayed board is compared with what it said on the board.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  needs_namespaces
  make_board
  again=$BATS_TEST_TMPDIR/again
  on_board ovxid record "$again"
}

@test "the recording of a replayed board is that of the board" {
  expect 0 '' diff -r --exclude=said "$board" "$again"
}

@test "a board that says the same is no difference" {
  expect 0 '' ovxid replay "$again"
}

@test "a board that says something else is shown as a difference" {
  sed -i 's/^out| OVX_ID=12/out| OVX_ID=13/' "$again/said"
  expect 1 "--- $again/said
+++ here
@@ -1,5 +1,5 @@
 \$ ovxid -v list
-out| OVX_ID=13
+out| OVX_ID=12
 out| OVX_DESC=Kestrel
 out| OVX_FLAG=
 out| OVX_LABEL=front" ovxid replay "$again"
}

@test "a board of which nothing was said is not compared" {
  rm "$again/said"
  expect 125 "ovxid-replay: $again/said: is missing: there is nothing to compare with" ovxid replay "$again"
}

@test "what cannot be compared is no difference" {
  rm "$again/said"
  mkdir "$again/said"
  run ovxid replay "$again"
  [[ $status -eq 125 && $output == "ovxid-replay: $again/said: cannot be compared: diff: "* ]]
}

# shellcheck disable=SC2016  # The shell replaces the variable.
@test "a difference that a full disk does not take is an error" {
  sed -i 's/^out| OVX_ID=12/out| OVX_ID=13/' "$again/said"
  expect 125 'ovxid-replay: standard output: No space left on device' bash -c 'ovxid replay "$1" >/dev/full' - "$again"
}
