# shellcheck shell=bash
# What a board boots, made from Debian's packages and ours: a kernel, a system, and the device tree
# of its machine with the board's node in it. Sourced by the script `board`.
#
# An initramfs may consist of several archives, so its parts are made separately: the system once for
# each architecture, and the rest for each board. They are not compressed, because that boots fastest.

readonly parts=$PWD/build/board_parts
readonly userland=(bash busybox)
readonly simulation=(tests/simulation/{board,child,kernel,logger}.cpp replay/{capture,ip,namespaces,tmpfs}.cpp)

# apt_of ARCHITECTURE COMMAND ARGUMENT...: what a command of apt tells about an empty system.
apt_of() {
  "$2" --quiet=2 --option APT::Architecture="$1" --option APT::Architectures="$1" \
    --option Dir::State::status="$parts/status" --option Dir::Cache="$parts/none" "${@:3}"
}

# resolve ARCHITECTURE PACKAGE...: prints the address, the file name and the hash of every package that
# an empty system needs to install these; what is installed on this machine does not matter. Package
# files of our own are not printed: apt knows the hash only of what is in an index.
resolve() {
  apt_of "$1" apt-get --yes --print-uris --option APT::Install-Recommends=false \
    --option Acquire::ForceHash=SHA256 install "${@:2}" |
    sed -n "s/^'\([^']*\)' \([^ ]*\) [0-9]* \(SHA256:\)/\1 \2 \3/p"
}

# download LIST PATTERN ARCHITECTURE PACKAGE...: writes the lines of `resolve` whose file names match to
# LIST, and downloads those files that are not there yet.
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

# lay_out: what apt and its downloads need.
lay_out() {
  mkdir -p "$parts/none/archives/partial" "$parts/packages"
  : >"$parts/status"
}

# is_indexed ARCHITECTURE PACKAGE: whether apt's index has it.
is_indexed() {
  apt_of "$1" apt-cache show "$2" >/dev/null 2>&1
}

# is_no_package ARCHITECTURE PACKAGE: whether Debian has no such package, as far as apt can know.
is_no_package() {
  lay_out
  ! is_indexed "$@" && index_architecture "$1" && ! is_indexed "$@"
}

# index_architecture ARCHITECTURE: has apt know the packages of the architecture. Fails if it does not come to.
index_architecture() {
  if ! is_indexed "$1" "${userland[0]}"; then
    add_architecture "$1"
    apt_get update || true
  fi
  is_indexed "$1" "${userland[0]}"
}

is_made_kernel() {
  is_current "$parts/kernels/$1/release"
}

# apt's index is refreshed only if the download fails: it may be old, or lack the architecture.
fetch() {
  lay_out
  if ! download "$@" 2>/dev/null; then
    add_architecture "$3"
    try_again refresh_and_download "$@"
  fi
}

# is_current TARGET SOURCE...: whether the target is newer than its sources and this script.
is_current() {
  local source
  for source in "${@:2}" "${BASH_SOURCE[0]}"; do
    [[ $1 -nt $source ]] || return
  done
}

# archive DIRECTORY FILE: packs the directory as an initramfs whose files belong to root.
archive() {
  (cd "$1" && find . | LC_ALL=C sort | cpio --quiet --create --format=newc --owner=0:0) >"$2"
}

# make_kernel ARCHITECTURE PACKAGE: makes kernels/PACKAGE from the kernel that the package depends on: the image, its
# release, the device trees that come with it, and its modules.
make_kernel() {
  local architecture=$1 package=$2 kernel=$parts/kernels/$2 file release
  ! is_made_kernel "$package" || return 0
  echo "kernel  $package"
  rm -rf "$kernel"
  mkdir -p "$kernel"
  fetch "$kernel/files" '^linux-image-[0-9]' "$architecture" "$package"
  read -r _ file _ <"$kernel/files"
  dpkg-deb --extract "$parts/packages/$file" "$kernel/package"
  release=$(basename "$kernel"/package/lib/modules/*)
  mv "$kernel/package/boot"/vmlinu[xz]-"$release" "$kernel/vmlinuz"
  if [[ -d $kernel/package/usr/lib/linux-image-$release ]]; then
    mv "$kernel/package/usr/lib/linux-image-$release" "$kernel/dtbs"
  fi
  /sbin/depmod --basedir "$kernel/package" "$release"
  echo "$release" >"$kernel/release"
}

# paths_of_module KERNEL MODULE: the files of the module and of those it needs, in the order in which they have to be
# loaded. Fails if the kernel has no such module. One that is built in has no file.
paths_of_module() {
  local kernel=$parts/kernels/$1 found
  found=$(/sbin/modprobe --quiet --dirname "$kernel/package" --set-version "$(<"$kernel/release")" --show-depends "$2") || return
  sed -n 's/^insmod \([^ ]*\).*/\1/p' <<<"$found"
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
    tests/boards/{init,session,program.cpp,set_clock.cpp} || return 0
  echo "system  $architecture"
  rm -rf "$system"
  mkdir -p "$system"
  unpack "$system/root" "$architecture" "$library" "$front_end" "${userland[@]}"
  unpack "$system/development" "$architecture" "$library" "$development"
  compile "$architecture" "$system/root/usr/bin/program" tests/boards/program.cpp
  compile "$architecture" "$system/root/usr/bin/set_clock" -D_FILE_OFFSET_BITS=64 -D_TIME_BITS=64 \
    tests/boards/set_clock.cpp
  mkdir -p "$system"/root/{proc,sys,dev,tmp,results}
  cp tests/boards/{init,session} "$system/root"
  archive_system "$system"
}

# make_systemd ARCHITECTURE: makes systemd/ARCHITECTURE.cpio, which some boards have beside the system.
make_systemd() {
  local systemd=$parts/systemd/$1
  ! is_current "$systemd.cpio" || return 0
  echo "systemd $1"
  rm -rf "$systemd"
  mkdir -p "$systemd"
  unpack "$systemd/root" "$1" systemd
  archive_system "$systemd"
}

# archive_system SYSTEM: makes SYSTEM.cpio from SYSTEM/root, without what no board uses.
archive_system() {
  rm -rf "$1"/root/usr/share "$1"/root/usr/lib/*/gconv
  archive "$1/root" "$1.new"
  mv "$1.new" "$1.cpio"
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

# compile ARCHITECTURE PROGRAM ARGUMENT...: makes a program for a system that is made already, linked
# against the library of our packages.
compile() {
  local development=$parts/systems/$1/development triplet compiler flags
  triplet=$(dpkg-architecture -a "$1" -qDEB_HOST_MULTIARCH)
  # It warns that this machine's compiler is of another architecture.
  compiler=$(dpkg-architecture -a "$1" -qDEB_HOST_GNU_TYPE 2>/dev/null)-g++
  flags=$(PKG_CONFIG_LIBDIR=$development/usr/lib/$triplet/pkgconfig \
    PKG_CONFIG_SYSROOT_DIR=$development PKG_CONFIG_ALLOW_SYSTEM_CFLAGS=1 \
    PKG_CONFIG_ALLOW_SYSTEM_LIBS=1 pkg-config --cflags --libs ovxid)
  # shellcheck disable=SC2086  # The flags are words.
  "$compiler" -Wall -Wextra -Werror "${@:3}" -o "$2" \
    $flags -Wl,-rpath-link="$development/usr/lib/$triplet"
}

# make_exhaustion ARCHITECTURE: makes exhaustion/ARCHITECTURE. On 32-bit machines the types choose the
# names of the C library's functions: the program stands in for some, so it is compiled with the same
# types as the library that calls them.
make_exhaustion() {
  local program=$parts/exhaustion/$1
  ! is_current "$program" "$parts/systems/$1.cpio" tests/exhaustion/* tests/simulation/* \
    replay/{capture,failure,ip,namespaces,tmpfs}.* || return 0
  echo "program $1"
  mkdir -p "$parts/exhaustion"
  compile "$1" "$program" -D_FILE_OFFSET_BITS=64 -D_TIME_BITS=64 -I tests -I . -I src \
    tests/exhaustion/*.cpp "${simulation[@]}"
}

# make_replayer: makes replayer, which has the programs of our packages that run on this machine, and transcript, which
# writes down what came of the commands.
make_replayer() {
  local machine package
  machine=$(dpkg --print-architecture)
  tools/package "$machine"
  rm -rf "$parts/replayer"
  mkdir -p "$parts/replayer"
  for package in libovxid1 ovxid ovxid-replay; do
    dpkg-deb --extract "$(built_package "$package" "$machine")" "$parts/replayer"
  done
  g++ -std=c++17 -I . -I src -o "$parts/transcript" \
    tests/boards/transcript.cpp replay/transcript.cpp encoding/{hexadecimal,utf8,visible}.cpp
}

# compose_tree NODE BASE TREE: makes TREE, which is the device tree BASE with the board's node added.
compose_tree() {
  dtc -qq -I dtb -O dts "$2" >"$3.base"
  printf '/include/ "%s"\n/include/ "%s"\n' "$3.base" "$PWD/$1" >"$3.source"
  dtc -q -I dts -O dtb -o "$3" "$3.source"
}
