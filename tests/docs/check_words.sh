#!/usr/bin/env bash
# Commands in running text, between backquotes: the programs know the words and options.
# usage: check_words.sh SOURCE BUILD DOCUMENT...
set -euo pipefail
cd "$1"
build=$(cd "$2" && pwd)
shift 2
state=0
declare -A helps

# The help of a program or of one of its commands; empty when it knows no such command.
help_of() {
  local key="$*"
  [ -n "${helps[$key]+known}" ] || helps[$key]=$("$@" --help 2>/dev/null || true)
  help=${helps[$key]}
}

complain() {
  echo "FAILED: $document: $1: \`$text\`" >&2
  state=1
}

# Each option has to stand in the help that is given.
check_options() {
  local word
  for word in $text; do
    case $word in
      -?*) grep -qE -- "(^|[ ,])${word%%[=,]*}([ ,=]|$)" <<<"$1" || complain "there is no option $word" ;;
    esac
  done
}

check_tolvexctl() {
  local words command="" all i
  read -ra words <<<"${text#tolvexctl}"
  for ((i = 0; i < ${#words[@]}; i++)); do
    case ${words[i]} in
      --app | --host | --timeout | --library) i=$((i + 1)) ;;
      -*) ;;
      *) command=${words[i]}; break ;;
    esac
  done
  help_of "$build/bin/tolvexctl"
  all=$help
  if [[ $command =~ ^[A-Z]+$ ]]; then
    return # stands for any
  elif [ -n "$command" ]; then
    if ! grep -qE "^ +$command( |,|$)" <<<"$all"; then
      complain "there is no command $command"
      return
    fi
    help_of "$build/bin/tolvexctl" "$command"
    all+=$'\n'$help
  fi
  check_options "$all"
}

run_help=$(./run help)
for document in "$@"; do
  while IFS= read -r text; do
    text=${text//\`/}
    case $text in
      "./run") ;;
      "./run "*) read -r _ word _ <<<"$text"; grep -q "^  $word " <<<"$run_help" || complain "there is no word $word" ;;
      "tolvexctl "*) check_tolvexctl ;;
      "zelkad-sim "*) help_of "$build/bin/zelkad-sim"; check_options "$help" ;;
    esac
  done < <(awk '/^```/ { inBlock = !inBlock; next } !inBlock' "$document" | tr '\n' ' ' | grep -oE '`[^`]+`')
done
[ $state = 0 ] && echo "all words are known"
exit $state
