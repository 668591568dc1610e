#!/usr/bin/env bash
# The eight threads under Helgrind: locks taken in an order that may block, and what no lock protects.
# usage: helgrind.sh THREADS-PROGRAM SUPPRESSIONS EXCHANGES
set -euo pipefail
program=$1 suppressions=$2 exchanges=$3
command -v valgrind >/dev/null || { echo "BROKEN: there is no valgrind; ./run setup installs it"; exit 1; }
log=helgrind.log
if ! valgrind --tool=helgrind --error-exitcode=9 --num-callers=40 --suppressions="$suppressions" --log-file="$log" \
  "$program" --exchanges "$exchanges" --first-call-alone 1 >program.log; then
  tail -n 60 "$log"
  cat program.log
  echo "BROKEN: see $PWD/$log and above"
  exit 1
fi
figure=$(sed -n 's/^FIGURE: //p' program.log)
echo "FIGURE: $(grep -o 'ERROR SUMMARY: [0-9]* errors' "$log" | tail -n 1 | sed 's/.*: //') in $figure"
