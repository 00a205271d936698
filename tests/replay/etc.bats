#!/usr/bin/env bats
# What a program writes to /etc is never written to the machine's. Each test has an /etc of its own, so that
# this machine's is safe from a replay that is wrong.
# shellcheck disable=SC2016  # The shell in the namespace replaces the variables.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  make_board
  namespace=(unshare --mount)
  [[ $EUID -eq 0 ]] || namespace+=(--user --map-root-user)
  needs_namespaces_for "${namespace[@]}"
  machine=$BATS_TEST_TMPDIR/machine
  mkdir -p "$machine/apt"
  cp /etc/passwd /etc/group /etc/nsswitch.conf /etc/ld.so.cache "$machine"
  for file in hosts apt/list known_ovx_ids; do
    echo one >"$machine/$file"
  done
  ln -s apt/list "$machine/link"
}

# on_machine SCRIPT: it runs the replay, and this machine's /etc is the folder of the test.
on_machine() {
  "${namespace[@]}" bash -euc "$1" - "$board" "$machine"
}

plain='mount --bind "$2" /etc'

@test "what a program writes to /etc is there, and only for the board" {
  expect 0 'one two
one two
new
one' on_machine "$plain"'
    ovxid replay "$1" -- sh -c "echo two >>/etc/hosts; echo \$(cat /etc/hosts)
      echo two >>/etc/link; echo \$(cat /etc/apt/list); mkdir /etc/apt/d; echo new >/etc/apt/d/f; cat /etc/apt/d/f"
    cat /etc/hosts /etc/apt/d/f 2>/dev/null || true'
}

@test "what a program removes from /etc is gone, and only for the board" {
  expect 0 'apt/list
one' on_machine "$plain"'
    ovxid replay "$1" -- sh -c "rm /etc/hosts; ! cat /etc/hosts 2>/dev/null; readlink /etc/link"; cat /etc/hosts'
}

@test "the machine's catalogue is not the board's" {
  without catalogue
  expect 1 'cat: /etc/known_ovx_ids: No such file or directory' on_machine "$plain"'
    ovxid replay "$1" cat /etc/known_ovx_ids'
}

@test "a file that is mounted in /etc is read, and is not written" {
  echo mounted >"$BATS_TEST_TMPDIR/a file"
  : >"$machine/a file"
  expect 1 "mounted
sh: 1: cannot create /etc/a file: Read-only file system
mounted" on_machine "$plain"'
    mount --bind "${2%/*}/a file" "/etc/a file"
    status=0
    ovxid replay "$1" -- sh -c "cat \"/etc/a file\"; echo two >>\"/etc/a file\"" 2>&1 || status=1
    cat "/etc/a file"; exit "$status"'
}

# The kernel takes no overlay over an overlay over an overlay.
layered='cd "${2%/*}"; mkdir u1 w1 u2 w2 first
mount -t tmpfs layers u1; mkdir u1/{1,2,3,4}
mount -t overlay x first -o "lowerdir=$2,upperdir=u1/1,workdir=u1/2"
mount -t overlay x /etc -o lowerdir=first,upperdir=u1/3,workdir=u1/4'

@test "where /etc cannot be kept in memory, it is read as ever, and is not written" {
  expect 0 'one
one
sh: 3: cannot create /etc/hosts: Read-only file system
sh: 4: cannot create /etc/apt/new: Read-only file system
new
12
one' on_machine "$layered"'
    ovxid replay "$1" -- sh -c "cat /etc/hosts
      cat /etc/link
      echo two >>/etc/hosts
      echo two >>/etc/apt/new
      echo new >/etc/new; cat /etc/new; ovxid number" 2>&1
    cat /etc/hosts /etc/new 2>/dev/null || true'
}

@test "everyone reads the board's files, whatever its user hides from others" {
  expect 0 '644 644 755 755 644' bash -c 'umask 077
    echo $(ovxid replay "$1" stat -Lc %a /etc/known_ovx_ids /proc/cpuinfo /proc/device-tree/orvanix /etc /proc/version)' \
    - "$board"
}

@test "a program makes files as its user wants them" {
  expect 0 0077 bash -c 'umask 077; ovxid replay "$1" sh -c umask' - "$board"
}

@test "a catalogue that is mounted on this machine is not that of the board" {
  needs unshare --mount true
  echo 'This machine:1' >"$BATS_TEST_TMPDIR/mounted"
  # shellcheck disable=SC2016  # The shell in the namespace replaces the variables.
  expect 0 12 unshare --mount sh -c 'mount -t tmpfs etc /mnt && cp -a /etc/. /mnt && mount --bind /mnt /etc &&
    touch /etc/known_ovx_ids && mount --bind "$1" /etc/known_ovx_ids && shift && exec "$@"' - \
    "$BATS_TEST_TMPDIR/mounted" ovxid replay "$board" ovxid number
}

@test "what a program writes to /etc takes no more memory than settings do" {
  expect 0 'no space' on_machine "$plain"'
    ovxid replay "$1" -- sh -c "head -c 60M /dev/zero >/etc/one
      head -c 10M /dev/zero 2>/dev/null >/etc/two || echo no space"'
}
