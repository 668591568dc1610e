#!/usr/bin/env bash
# The reference has every export, and the guide says how long each may take.
# usage: check_complete.sh SOURCE FOLDER
#   FOLDER  for the reference that is made
set -euo pipefail
source=$(cd "$1" && pwd) folder=$2
"$source/docs/reference/make" "$folder"
state=0
complain() {
  echo "FAILED: $1" >&2
  state=1
}

mapfile -t exports < <(sed -nE 's/^TOLVEX_API int ([A-Za-z_]+)\(.*/\1/p' "$source/src/api/exports.h")
[ "${#exports[@]}" = 121 ] || complain "${#exports[@]} exports instead of 121"
time=$(sed -n '/^## Time/,/^## Results/p' "$source/docs/integration.md")
reference=$(cat "$folder"/html/group__*.html)
for name in "${exports[@]}"; do
  # An entry with a text of its own: Doxygen warns of those without.
  grep -qE "<td class=\"memname\">int $name +</td>" <<<"$reference" || complain "$name is not in the reference"
  case $name in *_stdcall) continue ;; esac
  grep -qF "\`$name\`" <<<"$time" || complain "docs/integration.md does not say how long $name may take"
done

# Conventions, records and result codes are there, too.
grep -q 'no terminating NUL\|NO terminating NUL' "$folder/html/exports_8h.html" || complain "the reference lacks the conventions"
for word in tolvex_base_info tolvex_weight TOLVEX_RESULT_OUT_OF_PAPER TOLVEX_WEIGHT_STABLE; do
  grep -q "$word" <<<"$reference" || complain "the reference lacks $word"
done
[ -f "$folder/html/md_docs_result_codes.html" ] || ls "$folder"/html/*result*codes*.html >/dev/null || complain "the reference lacks the result codes"
# Marks that Doxygen did not understand stand in the pages as they are.
! grep -n '`' "$folder"/html/docs-*.html || complain "the pages show backquotes"
! grep -nE '&lsquo;-|</code>[A-Za-z]' "$folder"/html/docs-*.html || complain "the pages show code as text"

[ $state = 0 ] && echo "all ${#exports[@]} exports are documented"
exit $state
