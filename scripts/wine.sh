# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# Sourced after lib.sh: runs programs for Windows under Wine, in the prefix that $WINEPREFIX names.

export WINEDEBUG=-all LC_ALL=C.UTF-8
# No .NET and no browser are wanted; and a crash is to end a program with an error, where the
# debugger would let it end well.
export WINEDLLOVERRIDES='mscoree,mshtml=;winedbg.exe=d'
wineserver=/usr/lib/wine/wineserver

end_wine() {
  "$wineserver" -k || true
  "$wineserver" -w || true
}

registry_text() { wine reg add "$1" /v "$2" /t REG_SZ /d "$3" /f >/dev/null; }

# Makes the prefix. Without a window manager Wine waits seconds for each window that is "managed",
# and without replacements Qt takes a font with serifs.
make_prefix() (
  unset DISPLAY
  local font
  wine wineboot -i >/dev/null 2>&1
  wine winecfg -v win10
  registry_text 'HKCU\Software\Wine\X11 Driver' Managed N
  for font in 'MS Shell Dlg' 'MS Shell Dlg 2' 'Segoe UI' Tahoma; do
    registry_text 'HKCU\Software\Wine\Fonts\Replacements' "$font" 'DejaVu Sans'
  done
  end_wine # a server that was started without a display would give windows none
) 2>/dev/null

# in_wine COMMAND...: runs it under a display of its own, with a server that stays for all programs.
in_wine() {
  local code=0
  # shellcheck disable=SC2016 # for the inner shell
  with_display bash -c '"$0" -p; wine cmd /c exit >/dev/null 2>&1; "$@"' "$wineserver" "$@" ||
    code=$?
  end_wine
  return $code
}
