# shellcheck shell=bash disable=SC2034
# SPDX-License-Identifier: MIT
# Sourced after lib.sh by what runs programs of build/asan.

# Leaks in modules that were unloaded have no name, and so no suppression: keep_libraries makes what
# keeps them loaded. The rest is memory that libraries take once and never give back.
keep_libraries() {
  echo 'int dlclose(void *h) { (void)h; return 0; }' |
    gcc -xc -shared -fPIC - -o build/asan/libnodlclose.so
  # The session bus and the fonts: both belong to Qt's platform and live as long as the process.
  printf 'leak:libdbus-1.so\nleak:libfontconfig.so\n' > build/asan/lsan.supp
  export LSAN_OPTIONS=suppressions=$PWD/build/asan/lsan.supp:print_suppressions=0
  # For env inside the X server's shell, so that the server itself goes without.
  sanitizer_preload="$(gcc -print-file-name=libasan.so):$PWD/build/asan/libnodlclose.so"
}
