# shellcheck shell=bash
# The Debian packages that the project needs, grouped by purpose. Sourced by other scripts.

# shellcheck disable=SC2034  # Read by name, in install_packages.
{
  packages_build=(g++ cmake ninja-build liblog4cpp5-dev nlohmann-json3-dev libfdt-dev libseccomp-dev
    libutfcpp-dev)
  packages_test=(libgtest-dev libgmock-dev bats binutils busybox device-tree-compiler iproute2)
  # The tests with the label "check" need these, too.
  packages_check=(pkgconf pahole jq bash-completion fish zsh python3-jsonschema man-db groff-base mandoc systemd)
  # And those with the label "fleet" these.
  packages_fleet=(ansible-core curl prometheus prometheus-node-exporter)
  packages_lint=(clang libclang-rt-dev clang-format clang-tidy cppcheck shellcheck)
  packages_docs=(doxygen)
  packages_coverage=(gcovr)
  packages_bench=(libbenchmark-dev valgrind)
  packages_package=(build-essential debhelper dpkg-dev lintian)
  packages_abi=(binutils pahole)
  packages_board=(iproute2 device-tree-compiler cpio kmod pkgconf)
  packages_install_test=(autopkgtest debootstrap debian-archive-keyring zstd)
  # In the clean root of tests/packages: what the tests in debian/tests need, and what our packages need.
  packages_consumer=(g++ make cmake pkgconf)
  packages_brought_along=(liblog4cpp5-dev)
}

can_be_root() {
  [[ $EUID -eq 0 ]] || command -v sudo >/dev/null
}

as_root() {
  if ! can_be_root; then
    echo "Root or sudo is needed to run: $*" >&2
    return 1
  elif [[ $EUID -eq 0 ]]; then
    "$@"
  else
    sudo "$@"
  fi
}

# add_architecture ARCHITECTURE: allows its packages to be installed beside this machine's own.
add_architecture() {
  if ! { dpkg --print-architecture; dpkg --print-foreign-architectures; } | grep -x "$1" >/dev/null; then
    as_root dpkg --add-architecture "$1"
  fi
}

# is_installed PACKAGE[:ARCHITECTURE]: without an architecture, this machine's is meant.
is_installed() {
  local architecture
  architecture=$(dpkg --print-architecture)
  [[ $1 != *:* ]] || architecture=${1#*:}
  dpkg-query --show --showformat='${db:Status-Status} ${Architecture}\n' "${1%:*}" 2>/dev/null |
    grep -Ex "installed ($architecture|all)" >/dev/null
}

# Some packages have services, which systemd is not to start.
apt_get() {
  as_root env LC_ALL=C DEBIAN_FRONTEND=noninteractive SYSTEMD_OFFLINE=1 \
    apt-get --quiet --option DPkg::Lock::Timeout=600 --option Acquire::Retries=3 "$@"
}

# announce PACKAGE...: says what apt will install for these, and how much that is. It changes nothing, so
# that it needs neither root nor apt's locks.
announce() {
  local plan
  plan=$(LC_ALL=C apt-get --option Debug::NoLocking=1 --no-install-recommends --assume-no install "$@" 2>/dev/null) || true
  echo "Missing: $*." >&2
  sed -En 's/.* ([0-9]+) newly installed.*/apt will install \1 packages:/p
    s/^Need to get (.*) of archives.*/\1 to download,/p
    s/^After this operation, (.*) of additional disk space.*/\1 on the disk./p' <<<"$plan" | paste -sd ' ' >&2
}

install_from_index() {
  announce "$@"
  apt_get install --yes --no-install-recommends "$@"
}

# A failed update is no reason to stop: the packages may come from an index that was not affected.
refresh_and_install() {
  apt_get update || true
  install_from_index "$@"
}

# Each update gives this folder a new date. It knows no architecture that was added later.
has_recent_index() {
  [[ -n $(find /var/lib/apt/lists/partial -maxdepth 0 -mmin -60 2>/dev/null) ]] &&
    [[ ! /var/lib/dpkg/arch -nt /var/lib/apt/lists/partial ]]
}

# Messages of apt after which trying again may help: the mirror is being updated, so that its index and
# its packages do not match, the network fails, or another apt is running.
passing_failures='Hash Sum mismatch|unexpected size|404 +Not Found|Could not get lock'
passing_failures+='|Temporary failure|Could not connect|Unable to connect|Connection (failed|timed out)'
passing_failures+="|Failed getting release file|Couldn't download"

# try_again COMMAND...: runs it up to four times, as long as it fails with one of these messages.
try_again() {
  local attempt log
  log=$(mktemp)
  for attempt in 1 2 3 4; do
    if "$@" 2>&1 | tee "$log" >&2; then
      rm "$log"
      return 0
    fi
    if ! grep -Eq "$passing_failures" "$log"; then
      rm "$log"
      echo "apt failed; its messages above tell why" >&2
      return 1
    fi
    if [[ $attempt -lt 4 ]]; then
      echo "apt failed (attempt $attempt of 4); trying again in $((attempt * 10)) s" >&2
      sleep $((attempt * 10))
    fi
  done
  rm "$log"
  echo "apt failed four times because of its mirror or the network; try again later" >&2
  return 1
}

# install_packages GROUP...: installs the packages of these groups that are missing.
install_packages() {
  local group package missing=()
  for group; do
    if ! [[ -v packages_$group ]]; then
      echo "tools/apt.sh has no packages for $group" >&2
      return 1
    fi
    local -n packages=packages_$group
    for package in "${packages[@]}"; do
      is_installed "$package" || missing+=("$package")
    done
  done
  [[ ${#missing[@]} -gt 0 ]] || return 0
  if ! can_be_root; then
    echo "Root or sudo is needed to install these packages: ${missing[*]}" >&2
    return 1
  fi
  for package in "${missing[@]}"; do
    [[ $package != *:* ]] || add_architecture "${package#*:}"
  done
  if ! has_recent_index || ! install_from_index "${missing[@]}"; then
    try_again refresh_and_install "${missing[@]}"
  fi
}
