#!/usr/bin/env bats
# Root and others replay a board, with all rights and with fewer. All of them reach these copies of the programs.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  place=$(mktemp --directory /tmp/ovxid-replay.XXXXXX)
  board=$place/board.json
  make_board
  cp "$build/libovxid.so.1" "$build/cli/ovxid" "$build/replay/ovxid-replay" "$namespaces" "$place"
  namespaces=$place/namespaces
  chmod -R a+rX "$place"
  export PATH=$place:$PATH LD_LIBRARY_PATH=$place
  cd "$place" || return
}

teardown() {
  rm -rf "$place"
}

needs_root() {
  [[ $EUID -eq 0 ]] || skip 'root is needed'
}

# Linux makes no user namespace in a chroot. So who may, makes the folder of the chroot the root of a mount
# namespace, which is none: nsenter goes to the top of a namespace, be it the own one.
# outside_chroot COMMAND...
outside_chroot() {
  if unshare --user true 2>/dev/null || ! unshare --mount true 2>/dev/null; then
    "$@"
    return
  fi
  # shellcheck disable=SC2016  # The shell in the namespace replaces the variable.
  unshare --mount --propagation unchanged bash -euc '
    nsenter --mount=/proc/self/ns/mnt mount --make-rprivate /
    nsenter --mount=/proc/self/ns/mnt mount --rbind "/proc/$$/root" /
    exec nsenter --mount=/proc/self/ns/mnt "$@"' - "$@"
}

# as_user COMMAND...: as one who is not root.
as_user() {
  if [[ $EUID -eq 0 ]]; then
    outside_chroot setpriv --reuid=65534 --regid=65534 --clear-groups "$@"
  else
    "$@"
  fi
}

needs_user() {
  needs as_user true
  needs_namespaces_for as_user
}

@test "another user than root replays a board" {
  needs_user
  local user=$EUID
  [[ $EUID -ne 0 ]] || user=65534
  expect 0 "$user
$listing" as_user ovxid replay "$board" sh -c 'id -u; ovxid list | tr -d "\0"'
}

@test "a node that may not be read is closed for a user" {
  needs_user
  with_node "{\"name\": \"io@1\", \"content\": $closed}"
  expect 2 "ls: cannot open directory '/proc/device-tree/orvanix/io@1': Permission denied" \
    as_user ovxid replay "$board" ls /proc/device-tree/orvanix/io@1
}

@test "a node that may not be read is not replayed by root, who would read it" {
  needs_root
  needs_namespaces
  with_node "{\"name\": \"io@1\", \"content\": $closed}"
  expect 125 "ovxid-replay: $board: /node/0/content/open_error: root may read every node: replay it as another user" \
    on_board true
}

@test "a node of the platform that may not be read is closed for a user" {
  needs_user
  with node "$closed"
  expect 2 "ls: cannot open directory '/proc/device-tree/orvanix': Permission denied" \
    as_user ovxid replay "$board" ls /proc/device-tree/orvanix
}

@test "root that may make no mounts replays a board" {
  needs_root
  local rights=(setpriv --bounding-set=-sys_admin)
  needs "${rights[@]}" true
  needs_namespaces_for outside_chroot "${rights[@]}"
  expect 0 12 outside_chroot "${rights[@]}" ovxid replay "$board" ovxid number
}

@test "root that may not change networks replays no board" {
  needs_root
  local rights=(setpriv --bounding-set=-net_admin)
  needs "${rights[@]}" true
  needs_namespaces
  expect 125 "ovxid-replay: $board: /interfaces: changing the network takes CAP_NET_ADMIN: Operation not permitted" \
    "${rights[@]}" ovxid replay "$board" true
}

# shellcheck disable=SC2016  # The shell in the namespace replaces the variables.
@test "a machine without user namespaces is told what allows them" {
  needs outside_chroot unshare --user --map-root-user true
  expect 125 "ovxid-replay: the board: make a user namespace (root needs none;\
 'sysctl user.max_user_namespaces=10000' allows it): No space left on device" \
    outside_chroot unshare --user --map-root-user sh -c \
    'echo 0 >/proc/sys/user/max_user_namespaces; exec setpriv --bounding-set=-sys_admin "$@"' - \
    ovxid replay "$board" true
}

@test "a program whose folder its user may not enter runs in the root folder" {
  needs_root
  needs_user
  mkdir --mode=700 "$place/folder"
  cd "$place/folder"
  expect 0 / as_user ovxid replay "$board" pwd
}
