# shellcheck shell=bash
# The architectures of the packages and the boards. Sourced by other scripts.
#
# A row: Debian's name, qemu's program and the package that has it, the console of its usual machine, and
# for virtio cards there the bus in qemu and the modules in the kernel.
readonly architecture_table='
amd64     qemu-system-x86_64    qemu-system-x86   ttyS0     pci     virtio_net,virtio_pci
arm64     qemu-system-aarch64   qemu-system-arm   ttyAMA0   device  virtio_net,virtio_mmio
armel     qemu-system-arm       qemu-system-arm   ttyAMA0   device  virtio_net,virtio_mmio
armhf     qemu-system-arm       qemu-system-arm   ttyAMA0   device  virtio_net,virtio_mmio
i386      qemu-system-i386      qemu-system-x86   ttyS0     pci     virtio_net,virtio_pci
mips64el  qemu-system-mips64el  qemu-system-mips  ttyS0     pci     virtio_net,virtio_pci
ppc64el   qemu-system-ppc64     qemu-system-ppc   hvc0      pci     virtio_net,virtio_pci
s390x     qemu-system-s390x     qemu-system-misc  ttysclp0  ccw     virtio_net
'

list_architectures() {
  awk 'NF { print $1 }' <<<"$architecture_table"
}

# row_of ARCHITECTURE: the rest of its row. Fails if there is none.
row_of() {
  awk -v name="$1" '$1 == name { $1 = ""; print; found = 1 } END { exit !found }' <<<"$architecture_table"
}

# cross_packages ARCHITECTURE: what compiles and links our packages for it on another machine.
cross_packages() {
  printf '%s\n' "crossbuild-essential-$1" "liblog4cpp5v5:$1" "libseccomp-dev:$1"
}
