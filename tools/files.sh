# shellcheck shell=bash
# Which files are the project's. Sourced by other scripts, which run in the project's folder.

# project_files PATH...: the files below these paths, each with a NUL byte behind its name. git is not asked,
# because an unpacked archive of the project knows nothing of it.
project_files() {
  find "$@" \( -path '*/.git' -o -path ./build \) -prune -o ! -type d -print0
}
