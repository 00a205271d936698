# shellcheck shell=bash
# What happens to the board of docs/bring-up.md.

node=/proc/device-tree/orvanix

# property NAME TEXT: with the escapes of printf.
property() {
  # shellcheck disable=SC2059  # The text has escapes.
  printf "$2" >"$node/$1"
}

a_new_board() {
  export OVXID_RELEASE=6.1.55-kestrel2 OVXID_MACHINE=armv7l
  mkdir -p /proc/device-tree
  printf 'processor\t: 0\nmodel name\t: ARMv7 Processor rev 10 (v7l)\n\nHardware\t: Kestrel Rev B\n' >/proc/cpuinfo
  ip link add eth0 address 02:42:ac:11:00:02 type veth peer name peer0
}

another_release_and_hardware_line() {
  export OVXID_RELEASE=6.1.55-kestrel-2
  printf 'Hardware\t: Kestrel Rev B  \n' >/proc/cpuinfo
}

those_of_before() {
  export OVXID_RELEASE=6.1.55-kestrel2
  printf 'Hardware\t: Kestrel Rev B\n' >/proc/cpuinfo
}

a_first_device_tree() {
  mkdir "$node"
  property boardid '\0\0\0\014'
  property description 'Kestrel Rev B\0'
  property wan 'eth1\0'
  property site 'north gate\0'
}

a_better_device_tree() {
  property boardid '12\0'
  property wan 'eth0\0'
}

a_catalogue_with_near_misses() {
  rm -r "$node"
  printf 'Kestrel Rev B:12:Kestrel2\n' >/etc/known_ovx_ids
  printf 'Hardware\t: Kestrel Rev  B\n' >/proc/cpuinfo
}

the_pc() {
  umount --lazy /proc /etc
  unset LD_PRELOAD
}
