#!/usr/bin/env bash
# Compares what the library file exports with what the header declares, and counts it.
# usage: check_exports.sh LIBRARY HEADER COUNT
set -euo pipefail
library=$1 header=$2 count=$3
declared=$(sed -nE 's/^TOLVEX_API int ([A-Za-z_]+)\(.*/\1/p' "$header" | LC_ALL=C sort)
case $library in
  *.dll) exported=$(x86_64-w64-mingw32-objdump -p "$library" |
           sed -nE '/^\[Ordinal\/Name Pointer\] Table/,/^$/s/^[[:space:]]*\[ *[0-9]+\] ([^ ]+)$/\1/p') ;;
  *)     exported=$(nm -D --defined-only "$library" | awk '{ print $3 }') ;;
esac
exported=$(LC_ALL=C sort <<<"$exported")
[ -n "$declared" ] || { echo "no declarations found in $header"; exit 1; }
diff <(echo "$declared") <(echo "$exported") ||
  { echo "declared (<) and exported (>) names differ"; exit 1; }
found=$(wc -l <<<"$exported")
[ "$found" -eq "$count" ] || { echo "$found exported names, expected $count"; exit 1; }
echo "$found exported names, all of them declared"
