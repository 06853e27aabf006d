# shellcheck shell=bash
# SPDX-License-Identifier: MIT

_zelk() {
  local word=${COMP_WORDS[COMP_CWORD]}
  if [[ $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W '--dissociate --version --help' -- "$word")
  else
    compopt -o filenames -o nosort
    mapfile -t COMPREPLY < <(compgen -d -- "$word"; compgen -f -X '!*.[cC][oO][nN]' -- "$word")
  fi
}
complete -F _zelk zelk
