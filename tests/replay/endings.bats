#!/usr/bin/env bats
# A replay ends, stops and hears signals as its program does, and leaves nothing behind.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  needs_namespaces
  make_board
  said=$BATS_TEST_TMPDIR/said
}

# start PROGRAM...: on the board, in the background. Its number is in `replay`. It writes to `said`.
start() {
  ovxid replay "$board" -- "$@" >"$said" 2>&1 3>&- &
  replay=$!
}

# ends_with STATUS: waits for the replay.
ends_with() {
  local status=0
  wait "$replay" || status=$?
  [[ $status -eq $1 ]] || {
    echo "the status is $status and not $1"
    return 1
  }
}

# eventually COMMAND...: succeeds within ten seconds.
eventually() {
  for _ in {1..200}; do
    ! "$@" || return 0
    sleep 0.05
  done
  echo "not in ten seconds: $*"
  return 1
}

said_is() {
  [[ $(cat "$said") == "$1" ]]
}

is_gone() {
  ! kill -0 "$1" 2>/dev/null
}

@test "a signal to the replay reaches the program" {
  start sh -c 'trap "echo heard; exit 5" USR1; echo ready; while :; do sleep 0.1; done'
  eventually said_is ready
  kill -USR1 "$replay"
  ends_with 5
  expect 0 $'ready\nheard' cat "$said"
}

# shellcheck disable=SC2016  # The shell on the board replaces the variable.
@test "a signal that the program sends to its group comes once" {
  expect 0 heard setsid --wait ovxid replay "$board" \
    sh -c 'trap "echo heard" USR1; kill -USR1 0; sleep 0.2; trap "" USR1'
}

@test "an alarm of before reaches the program" {
  expect 142 '' perl -e 'alarm 1; exec @ARGV' ovxid replay "$board" sleep 20
}

@test "a program does not outlive its replay" {
  # shellcheck disable=SC2016  # The shell on the board replaces the variable.
  start sh -c 'echo $$; exec sleep 60'
  eventually test -s "$said"
  kill -KILL "$replay"
  ends_with 137
  eventually is_gone "$(cat "$said")"
}

# shellcheck disable=SC2016  # The shells replace the variables.
@test "a killed program ends the replay as one that is killed" {
  expect 0 9 perl -e 'system @ARGV; print $? & 127' ovxid replay "$board" sh -c 'kill -KILL $$'
}

# shellcheck disable=SC2016  # Perl replaces the variable.
@test "a replay ends where nobody hears of ended children" {
  expect 3 '' perl -e '$SIG{CHLD} = "IGNORE"; exec @ARGV' ovxid replay "$board" sh -c 'exit 3'
}

# shellcheck disable=SC2016  # The shell on the board replaces the variable.
@test "a program finds the signals as its caller left them" {
  local mask='grep -E "^Sig(Blk|Ign)" /proc/self/status'
  expect 0 "$(perl -e '$SIG{CHLD} = "IGNORE"; exec @ARGV' sh -c "$mask")" \
    perl -e '$SIG{CHLD} = "IGNORE"; exec @ARGV' ovxid replay "$board" sh -c "$mask"
}

# shellcheck disable=SC2016  # The shells replace the variables.
@test "a program that stops gives the terminal back to its shell, and goes on with it" {
  run timeout 20 script --quiet --return --command \
    "bash --norc -mc 'ovxid replay \"$board\" sh -c \"kill -TSTP \\\$\\\$; echo on\"; echo stopped; fg'" /dev/null
  [[ $status -eq 0 && $output == *stopped*on* ]]
}

@test "Ctrl-C comes once" {
  local program='trap "echo heard" INT; echo ready; sleep 1; sleep 0.3; sleep 0.3; echo end'
  {
    eventually grep -qs ^ready "$said"
    printf '\003'
    eventually grep -q ^end "$said"
  } | timeout 20 script --quiet --flush --command "ovxid replay '$board' sh -c '$program'" "$said" >/dev/null
  expect 0 1 grep -cE "^(\^C)?heard" "$said"
}

@test "Ctrl-C reaches a program in a group of its own" {
  {
    eventually grep -qs ^ready "$said"
    printf '\003'
    eventually grep -qE "^(\^C)?heard" "$said"
  } | timeout 20 script --quiet --flush --command \
    "ovxid replay '$board' timeout 9 sh -c 'trap \"echo heard; exit\" INT; echo ready; sleep 1; sleep 1; sleep 1'" \
    "$said" >/dev/null
  expect 0 1 grep -cE "^(\^C)?heard" "$said"
}

@test "a comparison waits for its children although its caller ignores the end of them" {
  ovxid record >"$BATS_TEST_TMPDIR/here"
  run perl -e '$SIG{CHLD} = "IGNORE"; exec @ARGV' ovxid replay "$BATS_TEST_TMPDIR/here"
  [[ $output != *"No child processes"* && $status -ne 125 ]]
}

# shellcheck disable=SC2016  # The shell on the board replaces the variable.
@test "a stopped program that has no terminal goes on when it is told alone" {
  start setsid sh -c 'echo $$; kill -STOP $$; uname -m'
  eventually test -s "$said"
  eventually grep -q '^State:.T' "/proc/$(head -n 1 "$said")/status"
  kill -CONT "$(head -n 1 "$said")"
  wait "$replay"
  expect 0 armv7l tail -n 1 "$said"
}

# shellcheck disable=SC2016  # The shell replaces the variables.
@test "the output ends when the program closes it" {
  mkfifo "$BATS_TEST_TMPDIR/output"
  expect 0 '' timeout 20 bash -c 'ovxid replay "$1" sh -c "exec sleep 60 >&- 2>&-" >"$2" 2>&1 &
    cat "$2"; kill "$!"; wait' - "$board" "$BATS_TEST_TMPDIR/output"
}

@test "a program has no descriptors but its own" {
  expect 0 "$(ls /proc/self/fd)" on_board ls /proc/self/fd
}

# shellcheck disable=SC2016  # The shell replaces the variable.
@test "a stream that is closed stays closed" {
  expect 0 "$(bash -c 'ls /proc/self/fd <&-')" bash -c 'ovxid replay "$1" ls /proc/self/fd <&-' - "$board"
}

@test "a process that stays behind sees the board" {
  local names=$BATS_TEST_TMPDIR/names
  on_board sh -c "(sleep 1; uname -m >'$names') >/dev/null 2>&1 3>&- &"
  eventually test -s "$names"
  expect 0 armv7l cat "$names"
}

# shellcheck disable=SC2016  # The shell on the board replaces the variable.
@test "uname fails when the process that answers was killed" {
  start sh -c 'echo ready; sleep 0.5; while [ -e "$1" ]; do sleep 0.1; done; uname -m' - "$board"
  eventually said_is ready
  eventually pgrep --parent "$replay" --exact ovxid-replay >/dev/null
  kill -KILL "$(pgrep --parent "$replay" --exact ovxid-replay)"
  rm "$board"
  ends_with 1
  expect 0 'uname: cannot get system name: Function not implemented' tail -n 1 "$said"
}

@test "twenty replays leave no process where nobody waits for orphans" {
  local namespace=(unshare --user --map-root-user --pid --fork --mount-proc)
  needs "${namespace[@]}" true
  expect 0 /proc/1 "${namespace[@]}" perl -e 'system @ARGV for 1 .. 20; print glob "/proc/[0-9]*"' \
    ovxid replay "$board" true
}
