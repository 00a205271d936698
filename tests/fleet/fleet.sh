# shellcheck shell=bash
# Simulated boards for Ansible: makes them, and lets ansible-playbook reach them. Sourced by other scripts,
# which set OVXID_BOARDS, the folder of the boards, and OVXID_OTHER_KERNEL.

fleet=$(realpath "$(dirname "${BASH_SOURCE[0]}")")

# Each runs its commands by tests/fleet/ssh, and nothing of the user's own settings counts.
export ANSIBLE_CONFIG=$fleet/ansible.cfg ANSIBLE_SSH_EXECUTABLE=$fleet/ssh LC_ALL=C.UTF-8
export ANSIBLE_HOME=$OVXID_BOARDS/.ansible ANSIBLE_REMOTE_TEMP=$OVXID_BOARDS/.remote

# board NAME: makes a board that nothing identifies. The functions below add to the last one.
board() {
  board=$OVXID_BOARDS/$1
  mkdir -p "$board"/{etc,proc}
}

# property NAME VALUE: of the device-tree node; the value may have the escapes of printf.
property() {
  mkdir -p "$board/proc/device-tree/orvanix"
  printf '%b' "$2" >"$board/proc/device-tree/orvanix/$1"
}

# hardware VALUE: of the Hardware line in /proc/cpuinfo.
hardware() {
  printf 'processor\t: 0\nHardware\t:%s\n' "$1" >"$board/proc/cpuinfo"
}

# kernel RELEASE [MACHINE]
kernel() {
  echo "$1" >"$board/release"
  echo "${2-aarch64}" >"$board/machine"
}

# catalogue TEXT: the board's /etc/known_ovx_ids.
catalogue() {
  printf '%b' "$1" >"$board/etc/known_ovx_ids"
}
