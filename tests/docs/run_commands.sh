#!/usr/bin/env bash
# Runs what a document shows: the commands of its ```console blocks, in their order, in a folder of
# their own that looks like the project's; compares what they print with what the document says they
# print; and compiles its listings.
# usage: run_commands.sh SOURCE BUILD DOCUMENT FOLDER ADDRESS
#   DOCUMENT  relative to SOURCE; FOLDER is made anew; ADDRESS is of the loopback range
# In a document:
#   ```console          "$ " begins a command, which a "\" at the end continues; other lines are what it
#                       prints, where "..." stands for anything, alone in a line for any lines
#   <!-- exit: 3 -->    before a block: the exit status of its last command, if it is not 0
#   <!-- stop -->       ends what goes on in the background
#   <!-- file: NAME --> before a block: its content is put there
#   <!-- run: COMMAND -->  a command that is not shown, without an output to compare
#   ```bash             a script; <!-- check: COMMAND --> before it: has to be true at its end
#   ```c                without a file's name: statements that have to compile
# 127.0.0.1 in a document is ADDRESS here. What can not run here is listed in not_run.txt.
set -euo pipefail
source=$(cd "$1" && pwd) build=$(cd "$2" && pwd) document=$3 folder=$4 address=$5
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
failures=0
background=()
started=0
fail() {
  printf 'FAILED: %s:%s: %s\n' "$document" "$1" "$2" >&2
  failures=$((failures + 1))
}

# ---- The folder ----

"$here/sandbox.sh" "$source" "$build" "$folder" "$address"
cd "$folder"
folder=$PWD

# ---- What can not run here ----

# Whether a command is on the list: extended regular expressions, each with its reason behind a tab.
is_listed() {
  local pattern reason
  while IFS=$'\t' read -r pattern reason; do
    case $pattern in "" | "#"*) continue ;; esac
    if [[ $1 =~ ^($pattern)$ ]]; then
      [ -n "$reason" ] || fail "-" "not_run.txt gives no reason for $pattern"
      return 0
    fi
  done <"$here/not_run.txt"
  return 1
}

# ---- Commands ----

# Whether what was printed is what the document shows.
matches() {
  SHOWN=$1 awk '
    function literal(text) { gsub(/[][\\.^$*+?(){}|]/, "\\\\&", text); return text }
    function pattern(text,  parts, n, i, all) {
      n = split(text, parts, "\\.\\.\\.")
      for (i = 1; i <= n; i++) all = all (i > 1 ? "[^\n]*" : "") literal(parts[i])
      return all
    }
    { printed = printed $0 "\n" }
    END {
      n = split(ENVIRON["SHOWN"], line, "\n")
      for (i = 1; i < n; i++) all = all (line[i] == "..." ? "([^\n]*\n)*" : pattern(line[i]) "\n")
      exit printed ~ ("^" all "$") ? 0 : 1
    }' | cat
  return "${PIPESTATUS[0]}"
}


# A command that ends in "&" goes on until the document is done, or says <!-- stop -->; it has begun
# when it says "ready".
start_command() {
  # A file of its own: what an earlier one printed, "ready" too, must not be taken for this one's.
  local process output=$folder/.background-$((started += 1))
  : >"$output"
  printf '. %q\nexec %s\n' "$folder/.state" "$1" >"$folder/.start"
  bash "$folder/.start" >"$output" 2>&1 </dev/null &
  process=$!
  background+=("$process")
  for _ in $(seq 600); do
    ! grep -q '\bready\b' "$output" || break
    kill -0 "$process" 2>/dev/null || break
    sleep 0.05
  done
  cp "$output" "$folder/.output"
  grep -q '\bready\b' "$output"
}

stop_commands() {
  local process
  for process in "${background[@]}"; do
    kill -INT "$process" 2>/dev/null || continue
    wait "$process" || true
  done
  background=()
}

# One command, in a shell that goes on where the one before it ended: folder, variables.
run_foreground() {
  printf '%s\n' "$1" >"$folder/.command"
  timeout 120 bash -c '
    . "$1/.state"; . "$1/.command"; status=$?
    { printf "cd %q\n" "$PWD"; export -p; } >"$1/.state.new"; mv "$1/.state.new" "$1/.state"; exit $status' \
    run "$folder" >"$folder/.output" 2>&1 </dev/null
}

run_command() {
  local number=$1 command=$2 expected=$3 wanted=$4 status=0 printed
  if is_listed "$command"; then return 0; fi
  command=${command//127.0.0.1/$address}
  if [[ $command == *" &" ]]; then
    start_command "${command% &}" || status=$?
  else
    run_foreground "$command" || status=$?
  fi
  printed=$(sed "s|$address|127.0.0.1|g; s|$folder/.home|/home/you|g; s|$folder|/home/you/tolvex|g; s/\r\$//" \
    "$folder/.output"; echo .)
  printed=${printed%.}
  if [ "$status" != "$wanted" ]; then
    fail "$number" "exit status $status instead of $wanted: $command"$'\n'"$printed"
  elif [ -n "$expected" ] && ! printf '%s' "$printed" | matches "$expected"; then
    fail "$number" "another output: $command"
    diff <(printf '%s' "$expected") <(printf '%s' "$printed") >&2 || true
  fi
}

console_block() {
  local begin=$1 wanted=$2 command="" expected="" number line at=$1 commands=() outputs=() places=()
  while IFS= read -r line; do
    at=$((at + 1))
    if [[ $line == '$ '* ]]; then
      [ -z "$command" ] || { commands+=("$command"); outputs+=("$expected"); places+=("$number"); }
      command=${line#\$ } expected="" number=$at
    elif [[ $command == *\\ ]]; then
      command=${command%\\}$line
    elif [ -z "$command" ]; then
      fail "$at" "output before any command: $line"
    else
      expected+=$line$'\n'
    fi
  done <<<"$block"
  [ -z "$command" ] || { commands+=("$command"); outputs+=("$expected"); places+=("$number"); }
  [ ${#commands[@]} -gt 0 ] || fail "$begin" "a console block without a command"
  local i last=$((${#commands[@]} - 1))
  for i in "${!commands[@]}"; do
    run_command "${places[i]}" "${commands[i]}" "${outputs[i]}" "$([ "$i" = "$last" ] && echo "$wanted" || echo 0)"
  done
}

# Commands for Windows are not run here; they have to be on the list.
windows_block() {
  local line at=$1
  while IFS= read -r line; do
    at=$((at + 1))
    [[ $line == '> '* ]] || continue
    is_listed "${line#> }" || fail "$at" "a command for Windows that not_run.txt does not list: $line"
  done <<<"$block"
}

# A script, and a check in its shell. What it started in the background is ended with it.
script_block() {
  local status=0
  {
    printf 'set -e\n%s\n%s\n' "${block//127.0.0.1/$address}" "$2"
    printf 'left=$(jobs -p)\n[ -z "$left" ] || kill -INT $left\nwait\n'
  } >"$folder/.script"
  timeout 120 bash -c '. "$1/.state"; . "$1/.script"' run "$folder" >"$folder/.output" 2>&1 </dev/null || status=$?
  [ "$status" = 0 ] || fail "$1" "the script ends with $status: $(cat "$folder/.output")"
}

statements_block() {
  {
    printf '#include <exports.h>\n#include <stdio.h>\n#include <string.h>\nvoid example(void);\nvoid example(void) {\n'
    printf '%s\n}\n' "$block"
  } >.statements.c
  cc -std=c99 -Wall -Wextra -Werror -Wno-unused -fsyntax-only -I "$source/src/api" .statements.c 2>.output ||
    fail "$1" "the listing does not compile: $(cat .output)"
}

# Blocks of other kinds hold no commands; programs at the beginning of a line look like one.
quiet_block() {
  local found
  found=$(grep -nE '^ *([$#>] |(\./run|zelkad-sim|tolvexctl|cc|gcc|cl|cmake|ctest|curl|apt(-get)?|npm|dpkg|[a-z0-9_-]*mingw32-gcc|export) )' <<<"$block" || true)
  [ -z "$found" ] || fail "$1" "a command in a block that is not run: $found"
}

# ---- The document ----

block="" kind="" fence="" file="" check="" wanted=0 begin=0 number=0 previous=""
while IFS= read -r line || [ -n "$line" ]; do
  number=$((number + 1))
  if [ -n "$fence" ]; then
    if [ "$line" != "$fence" ]; then
      block+=${block:+$'\n'}$line
      continue
    fi
    if [ -n "$file" ]; then
      mkdir -p "$(dirname "$file")"
      printf '%s\n' "${block//127.0.0.1/$address}" >"$file"
    else
      case $kind in
        console) console_block "$begin" "$wanted" ;;
        bat | powershell) windows_block "$begin" ;;
        bash) script_block "$begin" "$check" ;;
        c) statements_block "$begin" ;;
        *) quiet_block "$begin" ;;
      esac
    fi
    fence="" file="" check="" wanted=0
  elif [[ $line =~ ^'```'(.*)$ ]]; then
    kind=${BASH_REMATCH[1]} fence='```' block="" begin=$number
  elif [[ $line =~ ^'<!-- file: '(.*)' -->'$ ]]; then
    file=${BASH_REMATCH[1]}
  elif [[ $line =~ ^'<!-- exit: '([0-9]+)' -->'$ ]]; then
    wanted=${BASH_REMATCH[1]}
  elif [[ $line =~ ^'<!-- check: '(.*)' -->'$ ]]; then
    check=${BASH_REMATCH[1]}
  elif [[ $line =~ ^'<!-- run: '(.*)' -->'$ ]]; then
    run_command "$number" "${BASH_REMATCH[1]}" "" 0
  elif [ "$line" = '<!-- stop -->' ]; then
    stop_commands
  elif [[ $line == '    '* && -z $previous ]]; then
    fail "$number" "an indented block; use \`\`\` and say what it is"
  fi
  previous=$line
done <"$source/$document"

# What was started in the background ends with the document.
stop_commands
[ "$failures" = 0 ] || { echo "$failures failed" >&2; exit 1; }
echo "$document: everything shown works"
