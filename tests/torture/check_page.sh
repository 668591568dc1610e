#!/usr/bin/env bash
# docs/reliability.md has a row for each long proof of a build, and for no other one.
# usage: check_page.sh PAGE FOLDER BUILD
#   FOLDER  where the build has a file for each of them
set -euo pipefail
page=$1 folder=$2 build=$3
told=$(awk -F' *[|] *' -v build="$build" '$4 == build && $3 ~ /^`\.\/run torture / { sub(/.*torture /, "", $3); sub(/`/, "", $3); print $3 }' "$page" | sort)
there=$(ls "$folder" | sort)
[ -n "$there" ] || { echo "FAILED: $folder is empty"; exit 1; }
if [ "$told" != "$there" ]; then
  echo "FAILED: told in $page (<), and there to be run in $build (>):"
  diff <(echo "$told") <(echo "$there")
  exit 1
fi
echo "all $(wc -l <<<"$there") are told"
