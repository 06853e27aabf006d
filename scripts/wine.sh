# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# Sourced after lib.sh: runs Windows programs under Wine, in the prefix $WINEPREFIX.

export WINEDEBUG=-all LC_ALL=C.UTF-8
# Disables .NET, the browser and the debugger. With the debugger a crashed program would end without
# an error.
export WINEDLLOVERRIDES='mscoree,mshtml=;winedbg.exe=d'
wineserver=/usr/lib/wine/wineserver

end_wine() {
  "$wineserver" -k || true
  "$wineserver" -w || true
}

registry_text() { wine reg add "$1" /v "$2" /t REG_SZ /d "$3" /f >/dev/null; }

# Makes the prefix. Without a window manager Wine waits seconds for each "managed" window, and
# without replacements Qt uses a serif font.
make_prefix() (
  unset DISPLAY
  local font
  wine wineboot -i >/dev/null 2>&1
  wine winecfg -v win10
  registry_text 'HKCU\Software\Wine\X11 Driver' Managed N
  for font in 'MS Shell Dlg' 'MS Shell Dlg 2' 'Segoe UI' Tahoma; do
    registry_text 'HKCU\Software\Wine\Fonts\Replacements' "$font" 'DejaVu Sans'
  done
  end_wine # a server started without a display could not show windows
) 2>/dev/null

# in_wine COMMAND...: runs it under a private display, with one Wine server for all programs.
in_wine() {
  local code=0
  # shellcheck disable=SC2016 # for the inner shell
  with_display bash -c '"$0" -p; wine cmd /c exit >/dev/null 2>&1; "$@"' "$wineserver" "$@" ||
    code=$?
  end_wine
  return $code
}
