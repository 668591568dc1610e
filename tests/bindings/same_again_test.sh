#!/usr/bin/env bash
# A package that is made again is the same, byte for byte.
# usage: same_again_test.sh MAKE LINUX-BUILD WINDOWS-BUILD MADE
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
sleep 2.1 # another time: zip's runs in steps of two seconds
"$1" "$2" "$3" "$folder/again"
(cd "$4" && sha256sum -- *) >"$folder/sums"
(cd "$folder/again" && sha256sum --check "$folder/sums")
[ "$(ls "$4")" = "$(ls "$folder/again")" ] || { echo "FAILED: other files" >&2; exit 1; }
