#!/usr/bin/env bats
# Each process has its entry in the replaced /proc, and no process is left behind.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  needs_namespaces
  make_board
}

@test "a process finds itself in /proc/self" {
  expect 0 cat on_board cat /proc/self/comm
}

# shellcheck disable=SC2016  # The shell on the board replaces the variables.
@test "a process finds itself and its parent in /proc" {
  expect 0 'sh sh' on_board sh -c 'echo $(cat /proc/$$/comm) $(cat /proc/$PPID/comm | sed "s/.*/sh/")'
}

# shellcheck disable=SC2016  # The shell on the board replaces the variables.
@test "many processes find themselves in /proc" {
  expect 0 '' on_board bash -c \
    'for i in {1..400}; do (read -r name </proc/$BASHPID/comm && [[ $name == bash ]]) || echo "$i"; done'
}

# What makes entries for the next processes has to notice when others than those on the board have taken the
# numbers. To have them taken at once, these tests set the last number, in a namespace of processes of their own.
own_numbers=(unshare --pid --fork --mount-proc)

# numbered COMMAND...
numbered() {
  if unshare --mount true 2>/dev/null; then
    "${own_numbers[@]}" "$@"
  else
    "${own_numbers[@]}" --map-root-user "$@"
  fi
}

# shellcheck disable=SC2016  # The shell on the board replaces the variables.
# What is awaited in vain for half a minute does not happen.
with_numbers='
  await() {
    while ! "$@"; do
      [[ $SECONDS -lt 30 ]] || { echo "in vain: $*"; exit 1; }
      sleep 0.1
    done
  }
  has_entry() { [[ -L /proc/$1 ]]; }
  last_entry() { cd /proc && printf "%s\n" [0-9]* | sort --numeric-sort | tail -n 1; }
  take_more_numbers_than_have_entries() {
    last=$((($(last_entry) + 1000) % $(</proc/sys/kernel/pid_max)))
    echo "$last" >/proc/sys/kernel/ns_last_pid
  }
  is_forgotten() { take_more_numbers_than_have_entries && ! has_entry "$1"; }
'

# shellcheck disable=SC2016  # The shell on the board replaces the variables.
@test "a process finds itself in /proc after many others of the machine" {
  needs numbered true
  expect 0 bash numbered ovxid replay "$board" bash -c "$with_numbers"'
    take_more_numbers_than_have_entries
    await has_entry $((last + 200))
    (read -r name </proc/$BASHPID/comm; [[ $BASHPID -gt $last ]] && echo "$name")'
}

# shellcheck disable=SC2016  # The shell on the board replaces the variables.
@test "of processes long ago, only those that still run stay in /proc" {
  needs numbered true
  expect 0 sleep numbered ovxid replay "$board" bash -c "$with_numbers"'
    (exec true) & ended=$!
    sleep 60 & running=$!
    await is_forgotten "$ended"
    cat /proc/$running/comm'
}

# shellcheck disable=SC2016  # The shells replace the variables.
@test "forty boards run at once" {
  local i
  for i in {1..40}; do
    on_board sh -c 'cat /proc/$$/comm; ovxid number' >"$BATS_TEST_TMPDIR/said.$i" 2>&1 3>&- &
  done
  wait
  expect 0 '     40 12
     40 sh' bash -c 'cat "$1"/said.* | sort | uniq -c' - "$BATS_TEST_TMPDIR"
}

what_is_there() {
  findmnt --noheadings --raw --output=TARGET,SOURCE,FSTYPE | sort
  ip -brief link
  pgrep --full "^ovxid-replay .*$board" || true
}

@test "nothing is left behind when the program is killed" {
  local before running
  before=$(what_is_there)
  (exec ovxid replay "$board" sleep 60) 3>&- &
  running=$!
  until pgrep --parent "$running" --exact sleep >/dev/null; do
    sleep 0.01
  done
  # The process that answers.
  [[ $(what_is_there) != "$before" ]]
  kill -KILL "$running"
  wait "$running" 2>/dev/null || true
  # The process that answers ends by itself.
  for _ in {1..100}; do
    [[ $(what_is_there) != "$before" ]] || break
    sleep 0.05
  done
  expect 0 "$before" what_is_there
}
