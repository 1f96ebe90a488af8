# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# Completion of captoria-cli for bash.

# Completes folders, and files with one of the given extensions in upper or lower case.
_captoria_cli_files() {
  local current=$1 file pattern
  shift
  compopt -o filenames 2>/dev/null
  while IFS= read -r file; do
    if [[ -d $file || $# -eq 0 ]]; then COMPREPLY+=("$file"); continue; fi
    for pattern in "$@"; do
      if [[ ${file,,} == *".$pattern" ]]; then COMPREPLY+=("$file"); fi
    done
  done < <(compgen -f -- "$current")
}

_captoria_cli_words() { mapfile -t COMPREPLY < <(compgen -W "$2" -- "$1"); }

_captoria_cli() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command='' options='' word
  for word in "${COMP_WORDS[@]:1:COMP_CWORD - 1}"; do
    if [[ $word != -* ]]; then command=$word; break; fi
  done
  COMPREPLY=()

  case $previous in
    --subtitle) _captoria_cli_files "$current" srt idx; return ;;
    --commands) _captoria_cli_files "$current" cbx; return ;;
    --data | --out)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -d -- "$current")
      return
      ;;
    --encoding) _captoria_cli_words "$current" "$(iconv -l 2>/dev/null | sed 's|//||g')"; return ;;
    --set | --first | --last | --threads) return ;;
  esac

  local of_a_run='--set --commands --remove-unknown --keep-temp --dry-run --json --quiet --data'
  case $command in
    '') _captoria_cli_words "$current" 'convert batch info cues render -h --help -V --version'; return ;;
    convert) options="--subtitle $of_a_run" ;;
    batch) options=$of_a_run ;;
    info) options='--json' ;;
    cues) options='--json --encoding --commands --data' ;;
    render) options='--out --set --commands --first --last --threads --json --data' ;;
    *) return ;;
  esac
  if [[ $current == -* ]]; then _captoria_cli_words "$current" "-h --help $options"; return; fi
  case $command in
    convert | info) _captoria_cli_files "$current" avi divx ;;
    cues) _captoria_cli_files "$current" srt idx ;;
    render) _captoria_cli_files "$current" srt ;;
    *) _captoria_cli_files "$current" ;;
  esac
}

complete -F _captoria_cli captoria-cli
