# shellcheck shell=bash
# The Debian packages that the project needs, by what they are needed for. Sourced by ./dev and the
# scripts beside this one.

# shellcheck disable=SC2034  # Read by name, in install_packages.
{
  packages_build=(g++ cmake ninja-build liblog4cpp5-dev libcli11-dev)
  packages_test=(libgtest-dev libgmock-dev iproute2 pkgconf pahole binutils)
  packages_check=(clang clang-format clang-tidy cppcheck shellcheck)
  packages_coverage=(gcovr)
}

as_root() {
  if [[ $EUID -eq 0 ]]; then
    "$@"
  else
    sudo "$@"
  fi
}

is_installed() {
  [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

# install_packages GROUP...: installs what is missing of these groups, and nothing when all is there.
install_packages() {
  local group package missing=()
  for group; do
    local -n packages=packages_$group
    for package in "${packages[@]}"; do
      is_installed "$package" || missing+=("$package")
    done
  done
  [[ ${#missing[@]} -gt 0 ]] || return 0
  echo "Installing ${missing[*]}" >&2
  as_root apt-get update --quiet
  as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install --quiet --yes --no-install-recommends "${missing[@]}"
}
