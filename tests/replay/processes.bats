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
    'for i in {1..1000}; do [[ -e /proc/$BASHPID/comm ]] || echo "$i"; (exit) ; done;
     for i in {1..100}; do (read -r name </proc/$BASHPID/comm; [[ $name == bash ]] || echo "$i"); done'
}

@test "a process finds itself in /proc after many others of the machine" {
  expect 0 sh on_board bash -c "read -r; sh -c 'cat /proc/\$\$/comm'" \
    < <(for _ in {1..1500}; do (exec true); done; echo)
}

# shellcheck disable=SC2016  # The shell on the board replaces the variables.
@test "processes that have ended do not stay in /proc" {
  expect 0 '' on_board bash -c 'for i in {1..15000}; do (:); done
    x=(/proc/[0-9]*); [[ ${#x[@]} -lt $(($(nproc) * 4096 + 3000)) ]] || echo ${#x[@]}'
}

# shellcheck disable=SC2016  # The shell on the board replaces the variables.
@test "many pipelines run" {
  expect 0 '' on_board sh -c 'i=0; while [ $i -lt 500 ]; do i=$((i + 1)); echo | cat | cat >/dev/null; done'
}

# shellcheck disable=SC2016  # The shell replaces the variable.
@test "two hundred boards run at once" {
  local i
  for i in {1..200}; do
    on_board ovxid number >"$BATS_TEST_TMPDIR/number.$i" 2>&1 3>&- &
  done
  wait
  expect 0 '    200 12' bash -c 'cat "$1"/number.* | sort | uniq -c' - "$BATS_TEST_TMPDIR"
}

what_is_there() {
  findmnt --noheadings --raw --output=TARGET,SOURCE,FSTYPE | sort
  ip -brief link
  pgrep --full "ovxid-replay $board" || true
}

@test "nothing is left behind when the program is killed" {
  local before running
  before=$(what_is_there)
  (exec ovxid replay "$board" sleep 60) 3>&- &
  running=$!
  until [[ $(cat "/proc/$running/comm") == sleep ]]; do
    sleep 0.01
  done
  kill -KILL "$running"
  wait "$running" 2>/dev/null || true
  # The process that answers ends by itself.
  for _ in {1..100}; do
    [[ $(what_is_there) != "$before" ]] || break
    sleep 0.05
  done
  expect 0 "$before" what_is_there
}
