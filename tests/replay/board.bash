# shellcheck shell=bash
# The board that the tests replay, and what they expect of it. Sourced by the files of tests.

build=${OVXID_BUILD_DIR:-$BATS_TEST_DIRNAME/../../build/release}
board=$BATS_TEST_TMPDIR/board.json
namespaces=$BATS_TEST_DIRNAME/../simulation/namespaces
export PATH=$build/replay:$build/cli:$PATH LC_ALL=C

# What the document of the board has: a JSON text for each key.
declare -gA document

write_board() {
  local key separator='{'
  for key in "${!document[@]}"; do
    printf '%s"%s": %s\n' "$separator" "$key" "${document[$key]}"
    separator=,
  done >"$board"
  echo '}' >>"$board"
}

# with KEY JSON: the board has this now.
with() {
  document[$1]=$2
  write_board
}

# without KEY...: the board has these no more.
without() {
  local key
  for key in "$@"; do
    unset "document[$key]"
  done
  write_board
}

property() {
  printf '{"name": "%s", "value": "%s"}' "$1" "$2"
}

# shellcheck disable=SC2034  # The tests use it.
card='{"name": "io@1", "content": [{"name": "label", "value": "front"}]}'

# A 32-bit board with two addresses of a card that a PC has not, and a catalogue.
make_board() {
  document=(
    [format]=1
    [ovxid]='"1.1.0"'
    [release]='"5.10.0-kestrel2"'
    [machine]='"armv7l"'
    [device_tree]=true
    [cpuinfo]='["Hardware\t: Kestrel Rev B\n"]'
    [catalogue]='["Kestrel:12:kestrel2\n"]'
    [interface_room]=25
  )
  with_interfaces 'lo 127.0.0.1 00:00:00:00:00:00' 'wan0 10.0.0.1 52:54:00:0a:0b:ff' \
    'wan0:b 10.0.0.2 52:54:00:0a:0b:ff' 'eth0 192.168.7.1 02:00:00:00:00:09'
  with_node "$(property flag '')" "$card" "$(property wan 'wan0\u0000')"
}

# with_node JSON...: its entries.
with_node() {
  local IFS=,
  with node "[$*]"
}

# with_interfaces 'NAME ADDRESS MAC'...: without an address or a MAC address where there is a -.
with_interfaces() {
  local line name address mac list=''
  for line in "$@"; do
    read -r name address mac <<<"$line"
    list+="${list:+, }{\"name\": \"$name\""
    [[ $address == - ]] || list+=", \"address\": \"$address\""
    [[ $mac == - ]] || list+=", \"mac\": \"$mac\""
    list+='}'
  done
  with interfaces "[$list]"
}

# What may not be read.
# shellcheck disable=SC2034  # The tests use it.
closed='{"open_error": "EACCES"}'

# shellcheck disable=SC2034  # The tests use it.
listing='OVX_ID=12
OVX_DESC=Kestrel
OVX_FLAG=
OVX_LABEL=front
OVX_WAN=wan0
OVX_WAN_ID=52540abffff'

on_board() {
  ovxid replay "$board" -- "$@"
}

list() {
  on_board ovxid list | tr -d '\0'
}

# expect STATUS WANTED COMMAND...: of the command's output and complaints.
expect() {
  local status=0 got
  got=$("${@:3}" 2>&1) || status=$?
  if [[ $status -ne $1 || $got != "$2" ]]; then
    printf 'the status is %s and not %s, or this is not\n%s\nbut\n%s\n' "$status" "$1" "$2" "$got"
    return 1
  fi
}

# needs COMMAND...: the machine does not allow the test if the command fails.
needs() {
  local complaint
  complaint=$("$@" 2>&1) || skip "${complaint:-$*}"
}

# needs_namespaces_for COMMAND...: such as setpriv, for what it runs, or unshare, which may be refused itself.
needs_namespaces_for() {
  local status=0 reason
  reason=$("$@" "$namespaces" true 2>&1) || status=$?
  [[ $status -ne 77 && $reason != 'unshare: unshare failed: '* ]] || skip "$reason"
  [[ $status -eq 0 ]] || echo "$reason"
  return "$status"
}

needs_namespaces() {
  needs_namespaces_for env
}
