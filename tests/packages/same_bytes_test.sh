#!/usr/bin/env bash
# Makes the packages a second time, of the library compiled a second time in another folder, and
# compares. (./run package --check compiles all of it again.)
# usage: same_bytes_test.sh SOURCE BUILD windows|debian PACKAGES FOLDER
set -euo pipefail
. "$(dirname "$0")/common.sh"
source=$1 build=$2 system=$3 packages=$4 folder=$5
case $system in
  windows) preset=windows library=tolvex_dll.dll ;;
  debian) preset=linux library=libtolvex_dll.so ;;
esac
# In a folder whose path is longer than this one's, outside of it.
elsewhere=$(mktemp -d)/of/another/name
trap 'rm -rf "${elsewhere%/of/another/name}"' EXIT
mkdir -p "$elsewhere"
cd "$source"
. packaging/common.sh
git_files CMakeLists.txt CMakePresets.json cmake src sim tools examples packaging docs bindings README.md CHANGELOG.md |
  tar -c -T - | tar -x -C "$elsewhere"
(
  cd "$elsewhere"
  export CCACHE_DISABLE=1
  cmake --preset $preset -DTOLVEX_BUILD_TESTS=OFF -DTOLVEX_BUILD_BENCH=OFF >/dev/null
  cmake --build --preset $preset --target tolvex_dll -j 2 >build.log || { cat build.log; exit 1; }
)
again=$elsewhere/build/$preset
# What was not compiled again is taken from the first build.
for program in "$build"/bin/tolvexctl* "$build"/bin/zelkad-sim*; do cp "$program" "$again/bin/"; done
rm -rf "$folder/again"
"$elsewhere/packaging/$system/make" "$again" "$folder/again"
(cd "$packages" && sha256sum -- *) >"$folder/sums"
(cd "$folder/again" && sha256sum --check --quiet "$folder/sums") || failed "the packages differ when they are made again"
echo "the same bytes"
