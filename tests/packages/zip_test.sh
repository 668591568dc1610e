#!/usr/bin/env bash
# From the zip to a printed receipt: unpacks it, builds the examples against it as its README says, with
# CMake and with a compiler alone, and runs them with the library and the simulator from the zip.
# usage: zip_test.sh PACKAGES FOLDER ADDRESS WINEPREFIX LAUNCHER
set -euo pipefail
. "$(dirname "$0")/common.sh"
zip=$(one "$1"/tolvex-*-win-x64.zip)
folder=$(realpath -m "$2") address=$3 launcher=$5
export WINEPREFIX=$4
rm -rf "$folder"
mkdir -p "$folder"
unzip -q "$zip" -d "$folder"
package=$folder/$(basename "$zip" .zip)
equals "what lies in the zip" "CHANGELOG.md README.md THIRD-PARTY-NOTICES.txt bin cmake config docs examples include lib sbom.cdx.json" \
  "$(cd "$package" && echo *)"
equals "what lies in lib" "libtolvex_dll.dll.a pkgconfig tolvex_dll.def tolvex_dll.lib" "$(cd "$package/lib" && echo *)"
mkdir -p "$WINEPREFIX/drive_c/VARN/Log" # by hand, as the README says

# The sale, built by a CMake project that knows nothing but where the package is.
cmake -S "$package/examples/c/checkout" -B "$folder/checkout" -G Ninja -DCMAKE_SYSTEM_NAME=Windows \
  -DCMAKE_C_COMPILER=x86_64-w64-mingw32-gcc -DCMAKE_RC_COMPILER=x86_64-w64-mingw32-windres \
  -DCMAKE_PREFIX_PATH="$package" >"$folder/cmake.log" || { cat "$folder/cmake.log"; failed "CMake did not find it"; }
cmake --build "$folder/checkout" >"$folder/build.log" || { cat "$folder/build.log"; failed "it did not build"; }
cmp "$folder/checkout/tolvex_dll.dll" "$package/bin/tolvex_dll.dll" || failed "the library is not beside the program"
bash "$checkout_test" "$package/examples/c/checkout/play" "$folder/sale" "$address" \
  "$package/bin/zelkad-sim.exe" "$folder/checkout/checkout.exe" "$folder/checkout/tolvex_dll.dll" "$launcher"
[ -s "$WINEPREFIX/drive_c/VARN/Log/DLL_0.log" ] || failed "the library wrote no log"

# A program for Linux is told that this package is not for it.
if cmake -S "$package/examples/c/checkout" -B "$folder/native" -G Ninja -DCMAKE_PREFIX_PATH="$package" \
  >"$folder/native.log" 2>&1; then failed "a native build took the package for Windows"; fi
tr -s ' \n' ' ' <"$folder/native.log" | grep -q 'This package of tolvex is for Windows x64, but the program is built for Linux\.' ||
  { cat "$folder/native.log"; failed "it does not say why a native build is refused"; }

# The test of a till, with the compiler and pkg-config alone.
# shellcheck disable=SC2046  # options are words
x86_64-w64-mingw32-gcc "$package/examples/ci/till_test.c" -o "$folder/till_test.exe" \
  $(PKG_CONFIG_LIBDIR=$package/lib/pkgconfig PKG_CONFIG_PATH="" pkg-config --cflags --libs tolvex)
bash "$package/examples/ci/pipeline" "$folder/ci" "$address" "$package/bin/zelkad-sim.exe" \
  "$folder/till_test.exe" "$package/bin/tolvex_dll.dll" "$launcher"

tool_weighs "$folder" "$address" "$package/bin/zelkad-sim.exe" "$package/bin/tolvexctl.exe" "$launcher"
rm -rf "$WINEPREFIX/drive_c/VARN"
echo "the zip serves from nothing to a receipt"
