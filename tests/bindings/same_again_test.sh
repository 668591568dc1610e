#!/usr/bin/env bash
# A package that is made again is the same, byte for byte.
# usage: same_again_test.sh MAKE LINUX-BUILD WINDOWS-BUILD MADE
set -euo pipefail
again=$(mktemp -d)
trap 'rm -rf "$again"' EXIT
sleep 1.1 # another time of day, and for zip another second
"$1" "$2" "$3" "$again"
(cd "$4" && sha256sum -- *) >"$again.sums"
trap 'rm -rf "$again" "$again.sums"' EXIT
(cd "$again" && sha256sum --check "$again.sums")
[ "$(ls "$4")" = "$(ls "$again")" ] || { echo "FAILED: other files" >&2; exit 1; }
