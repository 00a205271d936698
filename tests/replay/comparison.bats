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
