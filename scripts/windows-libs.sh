# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# Sourced after lib.sh: gets the libraries that ZELK for Windows needs. Keeps them in the user's
# cache folder, where cmake/windows-mingw.cmake looks for them.

windows_cache=${XDG_CACHE_HOME:-$HOME/.cache}/zelk/windows
windows_libraries=$windows_cache/libraries
mingw=x86_64-w64-mingw32

# source_of PACKAGE: unpacks a package's source in the working folder. Uses the Debian servers of
# this machine, without changing the system's package lists.
source_of() {
  local folder options
  folder=$(mktemp -d)
  mkdir -p "$folder/lists/partial"
  # shellcheck disable=SC2016 # apt's own placeholders
  apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Identifier: Packages' 'Origin: Debian' | sort -u > "$folder/sources.list"
  [ -s "$folder/sources.list" ] || die "no Debian package servers are known here"
  options=(-q -o "Dir::Etc::SourceList=$folder/sources.list" -o Dir::Etc::SourceParts=/dev/null
    -o "Dir::State::Lists=$folder/lists" -o APT::Sandbox::User=root)
  { apt-get "${options[@]}" update && apt-get "${options[@]}" source "$1"; } >&2
  rm -rf "$folder"
}

# in_build_folder COMMAND...: runs it in a folder that is removed afterwards, also after a failure.
in_build_folder() (
  mkdir -p "$windows_cache"
  folder=$(mktemp -d "$windows_cache/build.XXXXXX")
  trap 'rm -rf "$folder"' EXIT
  cd "$folder" || exit
  "$@"
)

build_libdeflate() {
  local source
  source_of libdeflate
  source=$(echo "$PWD"/libdeflate-*/)
  make -s -C "$source" -j "$(nproc)" CC=$mingw-gcc-posix AR=$mingw-ar libdeflatestatic.lib >&2
  install -D -m 644 "$source/libdeflatestatic.lib" "$1/lib/libdeflate.a"
  install -D -m 644 "$source/libdeflate.h" "$1/include/libdeflate.h"
  install -D -m 644 "$source/COPYING" "$1/licences/libdeflate.txt"
}

# Copies the header libraries, because a cross compiler must not find the build machine's headers.
copy_header_libraries() {
  mkdir -p "$1/include" "$1/share/cmake"
  cp -r /usr/include/CLI /usr/include/nlohmann "$1/include"
  cp -r /usr/share/cmake/CLI11 /usr/share/cmake/nlohmann_json "$1/share/cmake"
  cp /usr/share/doc/libcli11-dev/copyright "$1/licences/CLI11.txt"
  cp /usr/share/doc/nlohmann-json3-dev/copyright "$1/licences/nlohmann-json.txt"
}

# Builds in a scratch folder first, so that the libraries appear all at once or not at all.
make_libraries() {
  build_libdeflate "$PWD/libraries"
  copy_header_libraries "$PWD/libraries"
  rm -rf "$windows_libraries"
  mv libraries "$windows_libraries"
}

get_libraries() {
  local versions
  versions=$(dpkg-query -W libdeflate-dev libcli11-dev nlohmann-json3-dev)
  [ "$(cat "$windows_libraries/versions" 2>/dev/null)" != "$versions" ] || return 0
  say "building the libraries for Windows"
  in_build_folder make_libraries
  printf '%s\n' "$versions" > "$windows_libraries/versions"
}

# The archive, like the result of build_qt, is one folder with bin, lib, include and plugins.
unpack_qt() {
  mkdir unpacked
  tar -xf "$1" -C unpacked --strip-components=1
  [ -e unpacked/bin/Qt6Widgets.dll ] || die "$1 does not contain Qt for Windows"
  rm -rf "$windows_cache/qt"
  mv unpacked "$windows_cache/qt"
}

build_qt() {
  local source start=$SECONDS
  source_of qt6-base
  source=$(echo "$PWD"/qt6-base-*/)
  cmake -G Ninja -S "$source" -B build -Wno-dev --toolchain "$1/cmake/windows-mingw.cmake" \
    -DCMAKE_INSTALL_PREFIX="$PWD/built" -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=ON \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
    -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF \
    -DINPUT_opengl=desktop "${qt_features[@]/#/-DFEATURE_}" >&2
  cmake --build build >&2
  cmake --install build --strip >&2
  rm -rf "$windows_cache/qt"
  mv built "$windows_cache/qt"
  say "building Qt took $((SECONDS - start)) s"
}

# Features that ZELK does not use are off. Debian's source lacks wintab (tabletevent). The fonts
# need direct2d, but not the platform plugin of that name (direct2d1_1).
qt_features=(
  testlib=ON printsupport=ON widgets=ON direct2d=ON direct2d1_1=OFF tabletevent=OFF
  network=OFF dbus=OFF sql=OFF xml=OFF concurrent=OFF vulkan=OFF pkg_config=OFF glib=OFF icu=OFF
  zstd=OFF static_runtime=OFF system_zlib=OFF system_pcre2=OFF system_png=OFF system_jpeg=OFF
  system_freetype=OFF system_harfbuzz=OFF system_doubleconversion=OFF)

# Sets windows_qt to $ZELK_QT_WINDOWS, the unpacked $ZELK_QT_WINDOWS_ARCHIVE, the Qt that an earlier
# run left in the cache, or one that is built now. Its version must be that of the machine's own Qt,
# because the build uses that Qt's tools.
get_qt() {
  local wanted have
  windows_qt=${ZELK_QT_WINDOWS:-$windows_cache/qt}
  wanted=$(dpkg-query -W -f '${Version}' qt6-base-dev)
  if [ -n "${ZELK_QT_WINDOWS:-}" ]; then
    [ -e "$windows_qt/bin/Qt6Widgets.dll" ] || die "no Qt for Windows in $windows_qt"
    return
  fi
  if [ -n "${ZELK_QT_WINDOWS_ARCHIVE:-}" ]; then
    wanted=$(sha256sum < "$ZELK_QT_WINDOWS_ARCHIVE")
  fi
  have=$(cat "$windows_qt/version" 2>/dev/null) || true
  [ "$have" != "$wanted" ] || return 0
  if [ -n "${ZELK_QT_WINDOWS_ARCHIVE:-}" ]; then
    say "unpacking Qt for Windows from $ZELK_QT_WINDOWS_ARCHIVE"
    in_build_folder unpack_qt "$(realpath "$ZELK_QT_WINDOWS_ARCHIVE")"
  else
    say "building Qt for Windows: this takes about 15 minutes, once"
    in_build_folder build_qt "$PWD"
  fi
  printf '%s\n' "$wanted" > "$windows_qt/version"
}
