#!/usr/bin/env bash
# Every link to a file of the project, and to a heading in one, leads somewhere.
# usage: check_links.sh SOURCE DOCUMENT...
set -euo pipefail
cd "$1"
shift
state=0

# The anchors of a document's headings, as GitHub names them.
anchors() {
  awk '/^```/ { inBlock = !inBlock } !inBlock && /^#+ /' "$1" |
    sed -E 's/^#+ +//; s/\[([^]]*)\]\([^)]*\)/\1/g; s/`//g' | tr '[:upper:]' '[:lower:]' |
    sed -E 's/[^a-z0-9 _-]//g; s/ /-/g'
}

complain() {
  echo "FAILED: $1: $2" >&2
  state=1
}

for document in "$@"; do
  folder=$(dirname "$document")
  while read -r link; do
    case $link in http:* | https:* | "") continue ;; esac
    file=${link%%#*} anchor=""
    [ "$file" = "$link" ] || anchor=${link#*#}
    if [ -z "$file" ]; then target=$document; else target=$folder/$file; fi
    if [ ! -e "$target" ]; then
      complain "$document" "no such file: $link"
    elif [ -n "$anchor" ] && ! anchors "$target" | grep -qxF -- "$anchor"; then
      complain "$document" "no such heading: $link"
    fi
  done < <(awk '/^```/ { inBlock = !inBlock } !inBlock' "$document" | tr '\n' ' ' | grep -oE '\]\([^)]+\)' | sed -E 's/^\]\(//; s/\)$//; s/^<(.*)>$/\1/; s/ +//g')
done
[ $state = 0 ] && echo "all links lead somewhere"
exit $state
