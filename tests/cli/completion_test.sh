#!/usr/bin/env bash
# The bash completion of kirameki-cli as bash runs it: subcommands, their flags (from the
# program's own --help), the values of --fire, and files of the type each flag takes.
set -u
completion="$1"
cli=$(realpath "$2")
library=/usr/share/bash-completion/bash_completion
[ -r "$library" ] || { echo "bash-completion is not installed"; exit 77; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/bin" "$work/files" "$work/files/folder"
ln -s "$cli" "$work/bin/kirameki-cli"
touch "$work/files/"{cut.asc,OLD.ASC,turn.sqi,shot.png,notes.txt,Setting.ini}

# Each line: the words typed (the last one being completed) | the completions expected.
cat >"$work/cases" <<'CASES'
kirameki-cli |tables model preview render settings capture gif design batch metrics --help --version
kirameki-cli re|render
kirameki-cli render --ou|--out
kirameki-cli model --cut 3 --j|--json
kirameki-cli preview --de|--design
kirameki-cli render --fire |on off
kirameki-cli render --design |OLD.ASC cut.asc folder
kirameki-cli capture --sqi |folder turn.sqi
kirameki-cli render --out |folder shot.png
kirameki-cli gif --settings |Setting.ini folder
CASES

PATH="$work/bin:$PATH" bash -c '
  source "$1"; source "$2"; cd "$3/files"
  failures=0
  while IFS="|" read -r typed expected; do
    read -r -a COMP_WORDS <<<"$typed"
    [[ $typed == *" " ]] && COMP_WORDS+=("")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); COMP_LINE=$typed; COMP_POINT=${#typed}
    COMPREPLY=()
    _kirameki_cli kirameki-cli "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
    got=$(printf "%s\n" "${COMPREPLY[@]}" | sort | tr "\n" " ")
    want=$(printf "%s\n" $expected | sort | tr "\n" " ")
    if [ "$got" != "$want" ]; then
      echo "FAIL: \"$typed\" completed to \"$got\", expected \"$want\""; failures=$((failures + 1))
    fi
  done <"$3/cases"
  [ "$failures" -eq 0 ] && echo "completion: all cases passed"
  exit $((failures > 0))
' completion-test "$library" "$completion" "$work"
