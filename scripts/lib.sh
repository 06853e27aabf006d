# shellcheck shell=bash disable=SC2034
# SPDX-License-Identifier: MIT
# Sourced by the scripts beside it. Changes to the top folder of the project.
set -euo pipefail
caller_folder=$PWD
cd "$(dirname "${BASH_SOURCE[0]}")/.."

core_packages=(cmake ninja-build g++ ccache googletest libdeflate-dev nlohmann-json3-dev libcli11-dev)
gui_packages=(qt6-base-dev libqt6opengl6-dev)
display_packages=(xvfb xauth xdotool imagemagick at-spi2-core dbus-daemon)
windows_packages=(g++-mingw-w64-x86-64-posix wine wine64 nsis dpkg-dev make unzip)
package_packages=(dpkg-dev lintian desktop-file-utils appstream man-db debootstrap xz-utils)
bench_packages=(libbenchmark-dev libpugixml-dev)

# Messages of the scripts themselves and of the package manager go to stderr.
say() { printf '== %s\n' "$*" >&2; }
die() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# Installs the named Debian packages that are missing.
need_packages() {
  if ! command -v dpkg-query >/dev/null; then
    say "this is not a Debian system: assuming that these are installed: $*"
    return
  fi
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "installing ${missing[*]}"
  if [ -z "${ZELK_APT_UPDATED:-}" ]; then
    as_root apt-get update -q >&2
    export ZELK_APT_UPDATED=1
  fi
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends \
    "${missing[@]}" </dev/null >&2
}

# configure_and_build PRESET [CMAKE-ARGUMENT...] [-- TARGET...]
configure_and_build() {
  local preset=$1 arguments=() start=$SECONDS
  shift
  while [ $# -gt 0 ] && [ "$1" != -- ]; do arguments+=("$1"); shift; done
  [ $# -eq 0 ] || shift
  cmake --preset "$preset" "${arguments[@]}"
  cmake --build "build/$preset" ${1+--target "$@"}
  say "configuring and building $preset took $((SECONDS - start)) s"
}

# Gives programs private folders for settings, data and caches, so that they neither read nor change
# the user's. Removes them when the script ends.
private_folders() {
  local folder kind
  folder=$(mktemp -d)
  # shellcheck disable=SC2064 # expanded now on purpose
  trap "rm -rf '$folder'" EXIT
  for kind in RUNTIME_DIR CONFIG_HOME DATA_HOME STATE_HOME CACHE_HOME; do
    mkdir -m 700 "$folder/$kind"
    export "XDG_$kind=$folder/$kind"
  done
  export WINEPREFIX=$folder/wine LC_ALL=C.UTF-8
  unset ZELK_REGISTRY
}

# Runs a command under a new X server. The server does not reset when its last program ends
# (-noreset), because it refuses connections during a reset.
screen_width=1280
screen_height=800
with_display() {
  xvfb-run -a -s "-screen 0 ${screen_width}x${screen_height}x24 -noreset" "$@"
}
