# What the makers of packages share. Sourced, with the root of the source tree as the working folder.
# shellcheck shell=bash

fail() {
  printf '%s: %s\n' "${0##*/}" "$1" >&2
  shift
  for hint in "$@"; do printf '  %s\n' "$hint" >&2; done
  exit 1
}

full_version=$(sed -nE 's/^project\(tolvex VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)
# shellcheck disable=SC2034  # used by those who source this
version=${full_version%.*}

# Every time that a package tells is that of the commit, so that a commit gives the same files always.
if [ -z "${SOURCE_DATE_EPOCH:-}" ]; then
  SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null) ||
    fail "There is no commit here that tells the packages' time." \
      "Set SOURCE_DATE_EPOCH to a time in seconds since 1970."
fi
export SOURCE_DATE_EPOCH LC_ALL=C.UTF-8 TZ=UTC
umask 022

# The Debian package that a file comes from, without its architecture.
package_of() {
  local file=$1 owner
  owner=$(dpkg-query -S "$(realpath -s "$file")" 2>/dev/null | head -n 1) ||
    fail "No package owns $file, whose licence has to be told." "Install what ./run package needs."
  owner=${owner%%: *}
  echo "${owner%%:*}"
}

# third_party SYSTEM: the rows of third-party.tsv that are in the system's packages, the file replaced
# by the package that it comes from and its version.
third_party() {
  local name file licence systems purpose package
  while IFS=$'\t' read -r name file licence systems purpose; do
    [ "$systems" = both ] || [ "$systems" = "$1" ] || continue
    package=$(package_of "$file")
    printf '%s\t%s\t%s\t%s\t%s\n' "$name" "$package" \
      "$(dpkg-query -W -f='${Version}' "$package")" "$licence" "$purpose"
  done <packaging/third-party.tsv
}

# A package's copyright file. Boost's lists each of its files, megabytes of them: its licences are enough. Of
# Doxygen only what it puts into its pages is passed on: its own scripts and those of others.
licence_texts() {
  local file=/usr/share/doc/$1/copyright
  [ -r "$file" ] || fail "$file is missing, which tells the licence of $1."
  case $1 in
    libboost*) perl -00 -ne 'print if /\ALicense: (BSL-1\.0|Zlib)\n ./' "$file" ;;
    doxygen)
      printf 'Scripts of the pages: Copyright (C) 1997-2020 by Dimitri van Heesch\nLicense: Expat\n\n'
      perl -00 -ne 'print if m{\AFiles: jquery/} || /\ALicense: Expat\n ./' "$file" ;;
    *) cat "$file" ;;
  esac
}

# notices SYSTEM [WHAT]: what of others is in the system's packages, with all licences in full; with "library"
# only what is in the library itself.
notices() {
  local rows name package its_version licence purpose subject="The library, the programs and the documents contain"
  rows=$(third_party "$1")
  if [ "${2:-}" = library ]; then
    rows=$(grep 'the library' <<<"$rows")
    subject="The library contains"
  fi
  printf 'Third-party notices of tolvex %s\n\n' "$full_version"
  printf '%s parts of the works below. Each is named with its\n' "$subject"
  printf 'licence, its version as packaged by Debian, and what it serves for; the texts of the licences follow.\n\n'
  while IFS=$'\t' read -r name package its_version licence purpose; do
    printf '  %s\n    %s %s\n    %s\n    %s\n' "$name" "$package" "$its_version" "$licence" "$purpose"
  done <<<"$rows"
  while IFS=$'\t' read -r name package its_version licence purpose; do
    printf '\n%s\n%s (%s %s)\n%s\n\n' "$(printf '=%.0s' {1..100})" "$name" "$package" "$its_version" \
      "$(printf '=%.0s' {1..100})"
    licence_texts "$package"
  done <<<"$rows"
}

# sbom SYSTEM FOLDER FILE...: a bill of materials (CycloneDX 1.5), with the sums of the named files,
# which lie below FOLDER.
sbom() {
  local system=$1 folder=$2 name package its_version licence purpose file separator=""
  shift 2
  cat <<END
{
  "bomFormat": "CycloneDX",
  "specVersion": "1.5",
  "version": 1,
  "metadata": {
    "timestamp": "$(date -u -d "@$SOURCE_DATE_EPOCH" +%Y-%m-%dT%H:%M:%SZ)",
    "component": {"type": "library", "bom-ref": "tolvex", "name": "tolvex", "version": "$full_version",
      "description": "Device adapter library for point-of-sale applications, $system x64"}
  },
  "components": [
END
  for file in "$@"; do
    printf '%s    {"type": "file", "bom-ref": "file:%s", "name": "%s", "version": "%s",\n' \
      "$separator" "$file" "$file" "$full_version"
    printf '      "hashes": [{"alg": "SHA-256", "content": "%s"}]}' "$(sha256sum "$folder/$file" | cut -c1-64)"
    separator=$',\n'
  done
  while IFS=$'\t' read -r name package its_version licence purpose; do
    printf '%s    {"type": "library", "bom-ref": "deb:%s", "name": "%s", "version": "%s",\n' \
      "$separator" "$package" "$name" "$its_version"
    printf '      "description": "%s", "licenses": [{"expression": "%s"}],\n' "$purpose" "$licence"
    printf '      "purl": "pkg:deb/debian/%s@%s"}' "$package" "${its_version//+/%2B}"
  done < <(third_party "$system")
  printf '\n  ],\n  "dependencies": [\n    {"ref": "tolvex", "dependsOn": ['
  separator=""
  for file in "$@"; do
    printf '%s"file:%s"' "$separator" "$file"
    separator=", "
  done
  while IFS=$'\t' read -r name package its_version licence purpose; do
    printf ', "deb:%s"' "$package"
  done < <(third_party "$system")
  printf ']}\n  ]\n}\n'
}

# What of docs/ and examples/ users need: not what is for work on the library itself.
is_for_users() {
  case $1 in
    docs/development.md | docs/performance.md | docs/scale.md | examples/CMakeLists.txt) return 1 ;;
    docs/*/*) return 1 ;;
    docs/*.md | docs/*.png | docs/*.svg | examples/* | sim/README.md | bindings/*/README.md | CHANGELOG.md) return 0 ;;
    *) return 1 ;;
  esac
}

# What the README of a binding is called among the documents: bindings-python.md.
binding_guide() {
  local language=${1%/README.md}
  echo "bindings-${language#bindings/}.md"
}

# Documents, the reference made of the header, and examples, with links that fit. The folders are within
# the package ROOT.
#   documents ROOT DOCS-FOLDER EXAMPLES-FOLDER HEADER CHANGELOG
documents() {
  local root=$1 docs=$2 examples=$3 map file target
  map=$(mktemp)
  {
    printf 'src/api/exports.h\t%s\nexamples/\t%s/\n' "$4" "$examples"
    printf 'CHANGELOG.md\t%s\nsim/README.md\t%s/zelkad-sim.md\n' "$5" "$docs"
    printf 'docs\t%s\npackaging/config/\t%s/config/\n' "$docs" "$examples"
    for file in $(git_files docs); do
      if is_for_users "$file"; then printf '%s\t%s/%s\n' "$file" "$docs" "${file#docs/}"; fi
    done
    for file in bindings/*/README.md; do printf '%s\t%s/%s\n' "$file" "$docs" "$(binding_guide "$file")"; done
  } >"$map"
  for file in CHANGELOG.md sim/README.md bindings/*/README.md $(git_files docs examples); do
    is_for_users "$file" || continue
    case $file in
      CHANGELOG.md) target=$5 ;;
      sim/README.md) target=$docs/zelkad-sim.md ;;
      bindings/*) target=$docs/$(binding_guide "$file") ;;
      docs/*) target=$docs/${file#docs/} ;;
      examples/*) target=$examples/${file#examples/} ;;
    esac
    mkdir -p "$(dirname "$root/$target")"
    case $file in
      *.md) packaging/relink "$map" "$file" "$target" <"$file" >"$root/$target" ;;
      *) cp "$file" "$root/$target" ;;
    esac
    if [ -x "$file" ]; then chmod 755 "$root/$target"; else chmod 644 "$root/$target"; fi
  done
  docs/reference/make "$root/.reference" >/dev/null
  packaging/relink "$map" --pages "$root/.reference/html" "$docs/html"
  mv "$root/.reference/html" "$root/$docs/html"
  rm -r "$map" "$root/.reference"
  # In a package the reference has a place of its own.
  sed -i 's:^| reference |\(.*\) by `./run docs` in `build/docs/html/` |$:| [reference](html/index.html) |\1 |:' \
    "$root/$docs/README.md"
}

# The files of the source tree below some folders, without what was built or left there.
git_files() {
  if [ -e .git ]; then
    git ls-files --cached --others --exclude-standard -- "$@" | while read -r file; do
      if [ -f "$file" ]; then echo "$file"; fi
    done
  else
    find "$@" -type f
  fi | sort
}

# Gives all files of a folder the commit's time.
set_times() { find "$1" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +; }

# stripped_library BUILD FOLDER: the library of a build tree, as it is shipped.
stripped_library() {
  local stage library
  stage=$(mktemp -d)
  cmake --install "$1" --component runtime --strip --prefix "$stage" >"$stage/install.log" ||
    { cat "$stage/install.log" >&2; fail "Installing of $1 did not work; see above." "Build it first: ./run package does all of it."; }
  library=$(find "$stage" -name tolvex_dll.dll -o -name libtolvex_dll.so)
  install -D -m 755 "$library" "$2/${library##*/}"
  rm -rf "$stage"
}

# Refuses a build tree that lacks something.
require_built() {
  local file
  for file in "$@"; do
    [ -f "$file" ] || fail "$file is missing." "Build it first: ./run package does all of it."
  done
}
