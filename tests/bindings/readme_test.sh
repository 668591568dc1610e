#!/usr/bin/env bash
# Runs what the README of a binding shows, from the package to the receipt, in an empty environment outside the
# source tree and the build tree.
# usage: readme_test.sh SOURCE BUILD LANGUAGE PACKAGES ADDRESS
#   BUILD     the native build, for the simulator
#   PACKAGES  folder with the package of the language
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
TOLVEX_PACKAGES=$(cd "$4" && pwd) bash "$here/../docs/run_commands.sh" "$1" "$2" "bindings/$3/README.md" "$folder/here" "$5"
