# shellcheck shell=bash
# What a board boots, made from Debian's packages and ours: a kernel, a system, and the device tree
# of its machine with the board's node in it. Sourced by the script `board`.
#
# Initramfs archives may follow one another, so the parts of one are made apart: the system once for
# an architecture, the modules once for a kernel, and the catalogue for the board. They are not
# compressed, which boots fastest.

readonly parts=$PWD/build/board_parts
readonly userland=(bash busybox)
readonly simulation=(tests/simulation/{board,child,kernel,logger,world}.cpp)
# What the card and the disk take, on the buses that machines have.
readonly modules=(virtio_pci virtio_mmio virtio_net virtio_blk)

# resolve ARCHITECTURE PACKAGE...: the packages that installing these in an empty system takes, each
# with its address, its file name and its hash. What this machine has installed plays no part. Files
# of ours among the packages are left out: they come from no index, so apt knows no hash for them.
resolve() {
  apt-get -qq --yes --print-uris --option APT::Architecture="$1" --option APT::Architectures="$1" \
    --option APT::Install-Recommends=false --option Acquire::ForceHash=SHA256 \
    --option Dir::State::status="$parts/status" --option Dir::Cache="$parts/none" \
    install "${@:2}" | sed -n "s/^'\([^']*\)' \([^ ]*\) [0-9]* \(SHA256:\)/\1 \2 \3/p"
}

# download LIST PATTERN ARCHITECTURE PACKAGE...: downloads what these packages take, as far as its
# file names match and it is not there yet. What `resolve` told about it goes to LIST.
download() {
  local address file hash
  resolve "${@:3}" | awk -v pattern="$2" '$2 ~ pattern' >"$1" && [[ -s $1 ]] || return
  while read -r address file hash; do
    if [[ ! -e $parts/packages/$file ]]; then
      echo "fetch   $file"
      /usr/lib/apt/apt-helper -qq --option APT::Sandbox::User=root \
        download-file "$address" "$parts/$file" "$hash" &&
        mv "$parts/$file" "$parts/packages" || return
    fi
  done <"$1"
}

refresh_and_download() {
  apt_get update || true
  download "$@"
}

# An index that is old, or that this machine does not have yet, is refreshed only when it turns out
# that it does not do.
fetch() {
  mkdir -p "$parts/none/archives/partial" "$parts/packages"
  : >"$parts/status"
  if ! download "$@" 2>/dev/null; then
    add_architecture "$3"
    try_again refresh_and_download "$@"
  fi
}

# is_current TARGET SOURCE...
is_current() {
  local source
  for source in "${@:2}" "${BASH_SOURCE[0]}"; do
    [[ $1 -nt $source ]] || return
  done
}

# archive DIRECTORY FILE: as the kernel unpacks it, all of it root's.
archive() {
  (cd "$1" && find . | LC_ALL=C sort | cpio --quiet --create --format=newc --owner=0:0) >"$2"
}

# make_kernel ARCHITECTURE PACKAGE: makes kernels/PACKAGE, of the kernel that the package stands
# for: the image, its release, the device trees that come with it, and its modules.
make_kernel() {
  local architecture=$1 package=$2 kernel=$parts/kernels/$2 file release
  ! is_current "$kernel/release" || return 0
  echo "kernel  $package"
  rm -rf "$kernel"
  mkdir -p "$kernel/package"
  fetch "$kernel/files" '^linux-image-[0-9]' "$architecture" "$package"
  read -r _ file _ <"$kernel/files"
  dpkg-deb --extract "$parts/packages/$file" "$kernel/package"
  release=$(basename "$kernel"/package/lib/modules/*)
  mv "$kernel/package/boot/vmlinuz-$release" "$kernel/vmlinuz"
  if [[ -d $kernel/package/usr/lib/linux-image-$release ]]; then
    mv "$kernel/package/usr/lib/linux-image-$release" "$kernel/dtbs"
  fi
  archive_modules "$kernel" "$release"
  rm -rf "$kernel/package"
  echo "$release" >"$kernel/release"
}

# archive_modules KERNEL RELEASE: puts the modules and those they need into an archive, with their
# order.
archive_modules() {
  local kernel=$1 release=$2 module path
  mkdir -p "$kernel/root/modules"
  /sbin/depmod --basedir "$kernel/package" "$release"
  for module in "${modules[@]}"; do
    /sbin/modprobe --dirname "$kernel/package" --set-version "$release" --show-depends "$module"
  done | awk '$1 == "insmod" && !seen[$2]++ { print $2 }' >"$kernel/insmod"
  while read -r path; do
    cp "$path" "$kernel/root/modules"
    basename "$path"
  done <"$kernel/insmod" >"$kernel/root/modules/order"
  archive "$kernel/root" "$kernel/modules.cpio"
}

# built_package NAME ARCHITECTURE: the file that `package` made.
built_package() {
  local found=("$PWD"/build/packages/"$1"_*_"$2".deb)
  if [[ ${#found[@]} -gt 1 || ! -e ${found[0]} ]]; then
    echo "There should be one package $1 for $2: ${found[*]}" >&2
    return 1
  fi
  echo "${found[0]}"
}

# make_system ARCHITECTURE: makes systems/ARCHITECTURE.cpio, with our packages installed.
make_system() {
  local architecture=$1 system=$parts/systems/$1 library front_end development
  tools/package "$architecture"
  library=$(built_package libovxid1 "$architecture")
  front_end=$(built_package ovxid "$architecture")
  development=$(built_package libovxid-dev "$architecture")
  ! is_current "$system.cpio" "$library" "$front_end" "$development" \
    tests/boards/{init,commands,program.cpp} tests/exhaustion/* tests/simulation/* || return 0
  echo "system  $architecture"
  rm -rf "$system"
  mkdir -p "$system"
  unpack "$system/root" "$architecture" "$library" "$front_end" "${userland[@]}"
  unpack "$system/development" "$architecture" "$library" "$development"
  compile_programs "$system" "$architecture"
  rm -rf "$system"/root/usr/share "$system"/root/usr/lib/*/gconv
  mkdir -p "$system"/root/{proc,sys,dev,tmp,results}
  cp tests/boards/{init,commands} "$system/root"
  archive "$system/root" "$system.new"
  mv "$system.new" "$system.cpio"
}

# unpack DIRECTORY ARCHITECTURE PACKAGE...: unpacks them and all that they depend on.
unpack() {
  local directory=$1 file
  fetch "$directory.files" . "${@:2}"
  for file in "${@:3}"; do
    [[ $file != /* ]] || dpkg-deb --extract "$file" "$directory"
  done
  while read -r _ file _; do
    dpkg-deb --extract "$parts/packages/$file" "$directory"
  done <"$directory.files"
}

# compile SYSTEM ARCHITECTURE PROGRAM ARGUMENT...: makes a program of the system, linked against the
# library of our packages.
compile() {
  local root=$1/root development=$1/development triplet flags
  triplet=$(dpkg-architecture -a "$2" -qDEB_HOST_MULTIARCH)
  flags=$(PKG_CONFIG_LIBDIR=$development/usr/lib/$triplet/pkgconfig \
    PKG_CONFIG_SYSROOT_DIR=$development PKG_CONFIG_ALLOW_SYSTEM_CFLAGS=1 \
    PKG_CONFIG_ALLOW_SYSTEM_LIBS=1 pkg-config --cflags --libs ovxid)
  # shellcheck disable=SC2086  # The flags are words.
  "$triplet-g++" -O2 -Wall -Wextra -Werror "${@:4}" -o "$root/usr/bin/$3" \
    $flags -Wl,-rpath-link="$development/usr/lib/$triplet"
}

# On 32-bit machines the types choose the names of the C library's functions: the program that
# stands in for some is compiled with the same types as the library that calls them.
compile_programs() {
  compile "$1" "$2" program tests/boards/program.cpp
  compile "$1" "$2" exhaustion -D_FILE_OFFSET_BITS=64 -D_TIME_BITS=64 -I tests \
    tests/exhaustion/*.cpp "${simulation[@]}"
}

# compose_tree NODE BASE TREE: the tree BASE with the board's node in it.
compose_tree() {
  dtc -qq -I dtb -O dts "$2" >"$3.base"
  printf '/include/ "%s"\n/include/ "%s"\n' "$3.base" "$PWD/$1" >"$3.source"
  dtc -qq -I dts -O dtb -o "$3" "$3.source"
}
