#!/usr/bin/env bash
# Each entry of not_run.txt is about a command that a document shows, and has a reason.
# usage: check_not_run.sh SOURCE DOCUMENT...
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$1"
shift
state=0
shown=$(sed -nE 's/^[$>] //p' "$@")
while IFS=$'\t' read -r pattern reason; do
  case $pattern in "" | "#"*) continue ;; esac
  if [ -z "$reason" ]; then
    echo "FAILED: no reason: $pattern" >&2
    state=1
  elif ! grep -qxE -- "$pattern" <<<"$shown"; then
    echo "FAILED: no document shows it: $pattern" >&2
    state=1
  fi
done <"$here/not_run.txt"
[ $state = 0 ] && echo "every entry is needed"
exit $state
