# shellcheck shell=bash
# SPDX-License-Identifier: MIT

# _zelkctl_files PATTERN: completes files that match, and folders.
_zelkctl_files() {
  compopt -o filenames
  mapfile -t COMPREPLY < <(shopt -s extglob nocasematch
    compgen -d -- "$word"
    compgen -f -X "!*.@($1)" -- "$word")
}

# _zelkctl_installed KIND: completes the names of installed stock, consists or routes.
_zelkctl_installed() {
  local msts=() i
  for ((i = 1; i < COMP_CWORD; ++i)); do
    [[ ${COMP_WORDS[i]} != --msts ]] || msts=(--msts "${COMP_WORDS[i + 1]//\\/}")
  done
  compopt -o filenames
  mapfile -t COMPREPLY < <(zelkctl "${msts[@]}" list "$1" 2>/dev/null |
    if [[ $1 == routes ]]; then sed 's/(.*//'; else cat; fi |
    while read -r name; do [[ $name != "${word//\\/}"* ]] || printf '%s\n' "$name"; done)
}

# Sets the options of the command and the kind of its arguments: words, names or files.
_zelkctl_command() {
  case $1 in
    '') words='list check health sheet figures tree resave edit replace undo shape texture render thumbnail contact-sheet' options='--version' ;;
    list) words='stock consists routes' options='--filter --json' ;;
    check) words='stock consist shape all use' options=$checks ;;
    'check stock') files='eng|wag' options="--no-consists --route $checks" ;;
    'check consist') files=con names=consists options=$checks ;;
    'check shape') files=s options=$checks ;;
    'check all') options="--filter $checks" ;;
    'check use') options="--stock --consist --route $checks" ;;
    health)
      options='--profile --filter --routes --consist --format --json --out --fail-on --verbose --quiet'
      options+=' --baseline --write-baseline --no-index'
      ;;
    sheet) files=con names=consists options='--units --json' ;;
    figures) files='eng|wag' options='--json' ;;
    tree | resave) files='*' ;;
    edit)
      files=con options='--out'
      words='add=Wagon, add=Engine, insert= copy= move= remove= clear forwards= backwards= flip= reverse'
      ;;
    replace) options='--dry-run --consist --activities' ;;
    shape) files=s ;;
    texture) files='ace|dds' options='--out --level' ;;
    thumbnail) files='eng|wag' options='--out --size' ;;
    contact-sheet) files=con names=consists options='--out --filter --size --units --no-loads' ;;
    render) files='s|eng|wag|con|act' options='--out --size --loose --camera --no-loads --season --snow --night --lights --wireframe --boxes --normals --mark-missing' ;;
  esac
}

_zelkctl() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command='' i
  local words='' files='' names='' options='' checks='--json --verbose --no-index --quiet --report'
  for ((i = 1; i < COMP_CWORD; ++i)); do
    case $command/${COMP_WORDS[i]} in
      */--msts) i=$((i + 1)) ;;
      /-*) ;;
      /*) command=${COMP_WORDS[i]} ;;
      check/stock | check/consist | check/shape | check/all | check/use)
        command="check ${COMP_WORDS[i]}"
        ;;
    esac
  done
  _zelkctl_command "$command"
  case $before in
    --msts) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
    --out | --report | --baseline | --write-baseline) _zelkctl_files '*' ;;
    --stock) _zelkctl_files 'eng|wag' ;;
    --route) _zelkctl_installed routes ;;
    --consist) _zelkctl_installed consists ;;
    --profile) mapfile -t COMPREPLY < <(compgen -W 'msts openrails both' -- "$word") ;;
    --format) mapfile -t COMPREPLY < <(compgen -W 'text json sarif html csv junit' -- "$word") ;;
    --units) mapfile -t COMPREPLY < <(compgen -W 'metric us uk' -- "$word") ;;
    --fail-on) mapfile -t COMPREPLY < <(compgen -W 'error warning note never' -- "$word") ;;
    --filter | --level | --size | --loose | --camera) ;;
    *)
      if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--help --msts $options" -- "$word")
        return
      fi
      mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
      [[ $words != *=* ]] || compopt -o nospace
      [[ ${#COMPREPLY[@]} -gt 0 || -z $names ]] || _zelkctl_installed "$names"
      [[ ${#COMPREPLY[@]} -gt 0 || -z $files ]] || _zelkctl_files "$files"
      ;;
  esac
}
complete -F _zelkctl zelkctl
