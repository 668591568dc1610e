#!/usr/bin/env bash
# What a package says about itself: its documents lead to files that are there, its bill of materials is
# that of its files, and the licences of others are in it in full.
# usage: contents_test.sh STAGE windows|debian
set -euo pipefail
. "$(dirname "$0")/common.sh"
stage=$1
if [ "$2" = windows ]; then
  root=$(one "$stage"/tolvex-*-win-x64)
  notices=$root/THIRD-PARTY-NOTICES.txt sbom=$root/sbom.cdx.json
else
  root=$stage/both
  rm -rf "$root"
  mkdir "$root"
  cp -r "$stage"/tolvex/usr "$stage"/tolvex-dev/usr "$root/"
  notices=$root/usr/share/doc/tolvex/copyright sbom=$root/usr/share/doc/tolvex/sbom.cdx.json
fi

# Links to files, outside of examples of code.
documents=0
while IFS= read -r document; do
  documents=$((documents + 1))
  while IFS= read -r link; do
    [ -e "${document%/*}/$link" ] || failed "${document#"$root/"} leads to $link, which is not there"
  done < <(awk '/^ *```/ { code = !code } !code' "$document" | grep -oE '\]\([^)# ]+' | sed 's/^](//' | grep -vE '^[a-z]+:' || true)
done < <(find "$root" -name '*.md')
[ "$documents" -ge 8 ] || failed "only $documents documents"

# The reference: a page of each group of exports, and every link of it leads to something.
reference=$(find "$root" -type d -name html)
[ -f "$reference/index.html" ] || failed "no reference"
grep -q 'BeginPrint' "$reference"/*.html || failed "the reference lacks BeginPrint"
for page in "$reference"/*.html; do
  while IFS= read -r link; do
    [ -e "$reference/$link" ] || failed "${page#"$root/"} leads to $link, which is not there"
  done < <(grep -oE 'href="[^"#]+' "$page" | sed 's/^href="//' | grep -vE '^[a-z]+:' | sort -u || true)
done

# The bill of materials: each file with its sum, each of the works of others with its version.
files=0
while read -r file sum; do
  files=$((files + 1))
  equals "the sum of $file" "$(sha256sum "$root/$file" | cut -c1-64)" "$sum"
done < <(tr -d '\n' <"$sbom" | grep -oE '"type": "file", "bom-ref": "file:[^"]*", "name": "[^"]*", "version": "[^"]*", *"hashes": \[\{"alg": "SHA-256", "content": "[0-9a-f]{64}' |
  sed -E 's/.*"name": "([^"]*)".* "content": "/\1 /')
equals "files in the bill of materials" 3 "$files"
grep -oE 'pkg:deb/debian/[^"]*' "$sbom" | sed 's|pkg:deb/debian/||; s/%2B/+/g' | while IFS=@ read -r package version; do
  equals "the version of $package" "$(dpkg-query -W -f='${Version}' "$package")" "$version"
done

for phrase in 'Milo Yip' 'Boost Software License - Version 1.0' 'Henry Schreiner' 'Niels Lohmann' 'Sean Barrett' 'Dimitri van Heesch' 'OpenJS Foundation' 'Ariel Flesler'; do
  grep -q "$phrase" "$notices" || failed "the notices lack: $phrase"
done
if [ "$2" = windows ]; then
  for phrase in 'GCC RUNTIME LIBRARY EXCEPTION' 'winpthreads' 'NSIS'; do
    grep -q "$phrase" "$notices" || failed "the notices lack: $phrase"
  done
fi
echo "the package tells what it is made of"
