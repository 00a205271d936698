# shellcheck shell=bash
# The file `machine` of a board, which says how qemu makes it. Sourced by the script `board`.

# The board that was read last: its keys and their values, its name, and the architecture of its kernel.
declare -A board=()
declare -A pattern=() meaning=() usual=()

# key NAME PATTERN MEANING [USUAL]: a key, the values that it may have, in words too, and the one of a board that
# does not have the key.
key() {
  pattern[$1]=$2
  meaning[$1]=$3
  usual[$1]=${4-}
}

word='[^[:space:]]+'
mac='[0-9a-f]{2}(:[0-9a-f]{2}){5}'
architectures=$(list_architectures | paste -sd '|')
key architecture "$architectures" "one of $architectures"
key kernel "[a-z0-9.+-]+(:($architectures))?" 'a package or, for another architecture, a package:architecture'
key machine "$word" 'what qemu calls a machine'
key cpu "$word" 'what qemu calls a processor'
key memory '[1-9][0-9]*' 'a number of MiB' 256
key mac "$mac( $mac)*" 'addresses in lower-case letters, such as 52:54:00:12:34:5a, with one blank between'
key card "$word" "'virtio', 'board' or what qemu calls a device" virtio
key modules "$word( $word)*" 'names of modules, with one blank between'
key address '[0-9]+(\.[0-9]+){3}/[0-9]+' 'an address such as 10.0.2.15/24'
key serial '[0-9]+' 'the number of a port, beginning with 0' 0
key console "$word" 'what the kernel calls a port, such as ttyS0'
key dtb "$word" 'a file in the package of the kernel'
key arguments '.+' 'arguments of the kernel'
key init systemd systemd
key exhaustion 'yes|no' 'yes or no' no
key icount "$word" 'what qemu has behind -icount'
key slow 'yes|no' 'yes or no' no
unset word mac architectures

# read_machine NAME: sets `board` to what its file says.
read_machine() {
  local -A line=()
  local name
  set_usual_values "$1"
  read_settings
  for name in architecture kernel machine; do
    [[ -n ${line[$name]-} ]] || wrong '' "'$name' is missing"
  done
  for name in address card; do
    [[ -z ${line[$name]-} || -n ${board[mac]} ]] || wrong "${line[$name]}" "'$name' is of no use without 'mac'"
  done
  set_kernel_architecture
}

set_usual_values() {
  local name
  board=([name]=$1)
  for name in "${!usual[@]}"; do
    board[$name]=${usual[$name]}
  done
}

read_settings() {
  local text count=0
  while IFS= read -r text || [[ -n $text ]]; do
    count=$((count + 1))
    case $text in
      *$'\r') wrong "$count" 'the line ends in a carriage return; only a newline may end it' ;;
      '' | '#'*) ;;
      [!=]*=*) read_setting "$count" "${text%%=*}" "${text#*=}" ;;
      *) wrong "$count" "${text@Q} is no key=value" ;;
    esac
  done <"tests/boards/${board[name]}/machine"
}

# read_setting LINE KEY VALUE
read_setting() {
  [[ -n ${pattern[$2]-} ]] || wrong "$1" "there is no key ${2@Q}"
  [[ -z ${line[$2]-} ]] || wrong "$1" "'$2' is in line ${line[$2]} already"
  [[ $3 =~ ^(${pattern[$2]})$ ]] || wrong "$1" "'$2' is ${3@Q}, but should be ${meaning[$2]}"
  line[$2]=$1
  board[$2]=$3
}

# A kernel of another architecture than the programs' has that behind a colon.
set_kernel_architecture() {
  board[kernel_architecture]=${board[architecture]}
  [[ ${board[kernel]} != *:* ]] || board[kernel_architecture]=${board[kernel]#*:}
  board[kernel]=${board[kernel]%:*}
}

# wrong LINE MESSAGE
wrong() {
  fail 1 "tests/boards/${board[name]}/machine${1:+:$1}: $2"
}

# place KEY: where the board has the key: its file, and the line if it is there.
place() {
  local machine=tests/boards/${board[name]}/machine line
  line=$(sed -n "/^$1=/{=;q}" "$machine")
  echo "$machine${line:+:$line}"
}
