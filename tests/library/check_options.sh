#!/usr/bin/env bash
# Checks the options that each file of the library and of the programs is compiled with.
# usage: check_options.sh COMPILE_COMMANDS OPTION...
set -euo pipefail
commands=$1
shift
fail() { echo "FAILED: $*"; exit 1; }
count=0
while IFS=$'\t' read -r file command; do
  count=$((count + 1))
  for option; do
    case " $command " in *" $option "*) ;; *) fail "$file is compiled without $option" ;; esac
  done
  # The last one counts.
  case " $command " in *" -Wno-format"* | *" -fno-stack-protector "*) fail "$file takes a check away" ;; esac
done < <(awk '
  /^ *"command": / { command = $0 }
  /^ *"file": / { file = $2; gsub(/[",]/, "", file); if (file ~ "/(src|sim|tools)/" && file ~ /\.(cpp|cxx|c)$/ && command !~ / -o (tests|fuzz)\//) print file "\t" command }' "$commands")
[ "$count" -ge 40 ] || fail "only $count commands were found"
echo "$count files are compiled with $*"
