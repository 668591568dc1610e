#!/usr/bin/env bash
# The completion script as bash uses it.
# usage: completion_test.sh TOLVEXCTL [EMULATOR]
set -euo pipefail
program=("${@:2}" "$(realpath "$1")")
failures=0

# shellcheck disable=SC1090
source <("${program[@]}" completion bash | tr -d '\r')

# expect "WORD ..." "WHAT IT OFFERS": the last word is the one that is being typed.
expect() {
  local expected=$2
  read -ra COMP_WORDS <<<"$1"
  [[ $1 != *' ' ]] || COMP_WORDS+=("")
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  COMPREPLY=()
  _tolvexctl
  local offered
  offered=$(printf '%s\n' "${COMPREPLY[@]}" | sort | tr '\n' ' ')
  offered=${offered% }
  [ "$offered" = "$expected" ] && return
  printf 'FAILED: "%s" offers "%s" instead of "%s"\n' "$1" "$offered" "$expected" >&2
  failures=$((failures + 1))
}

expect "tolvexctl we" "weigh"
expect "tolvexctl --json we" "weigh"
expect "tolvexctl --timeout 5s pri" "print printers"
expect "tolvexctl weigh --st" "--stable"
expect "tolvexctl weigh --jso" "--json"
expect "tolvexctl settings cont" "contrast"
expect "tolvexctl settings autoprint o" "off on"
expect "tolvexctl settings log-level " "loadcell print"
expect "tolvexctl print - --job dot" "dot_lbl"
expect "tolvexctl cut --printer " "0 1 100 2"
expect "tolvexctl call read_sta" "read_standard read_standard_stdcall"
expect "tolvexctl call BeginP" "BeginPrint BeginPrint_stdcall"
expect "tolvexctl raw l" "lc"
expect "tolvexctl completion b" "bash"
expect "tolvexctl weigh --interval " ""
cd "$(mktemp -d)"
touch receipt.txt
expect "tolvexctl print rec" "receipt.txt"
expect "tolvexctl --library rec" "receipt.txt"
rm receipt.txt
rmdir "$PWD"

# Every word of the help is offered.
read -ra words <<<"$("${program[@]}" --help | tr -d '\r' | sed -n '/^Subcommands:/,/^$/s/^  \([a-z-]*\) .*/\1/p' | tr '\n' ' ')"
[ "${#words[@]}" -ge 17 ] || { echo "FAILED: the help has ${#words[@]} commands only" >&2; failures=1; }
for word in "${words[@]}"; do
  [[ " ${_tolvexctl_commands[tolvexctl]} " == *" $word "* ]] ||
    { echo "FAILED: $word is not offered" >&2; failures=1; }
done
[ "$failures" = 0 ]
