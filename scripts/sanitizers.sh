# shellcheck shell=bash disable=SC2034
# SPDX-License-Identifier: MIT
# Sourced after lib.sh by scripts that run programs of build/asan.

# Leaks in unloaded libraries have no name, so no suppression can match them. keep_libraries builds
# a library that keeps all of them loaded, and suppresses memory that libraries allocate once and
# never free.
keep_libraries() {
  echo 'int dlclose(void *h) { (void)h; return 0; }' |
    gcc -xc -shared -fPIC - -o build/asan/libnodlclose.so
  # The session bus and the fonts belong to Qt's platform and live as long as the process. The
  # programs of the system, such as the shell, get the library too.
  printf 'leak:%s\n' libdbus-1.so libfontconfig.so /usr/bin/ > build/asan/lsan.supp
  export LSAN_OPTIONS=suppressions=$PWD/build/asan/lsan.supp:print_suppressions=0
  # Set inside the X server's shell, so that the server itself does not load it.
  sanitizer_preload="$(gcc -print-file-name=libasan.so):$PWD/build/asan/libnodlclose.so"
}
