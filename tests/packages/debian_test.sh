#!/usr/bin/env bash
# From the Debian packages to a printed receipt: installs them into a root of their own, with the
# dependencies of this machine, builds the examples against what lies there, and runs it.
# usage: debian_test.sh PACKAGES FOLDER ADDRESS
set -euo pipefail
. "$(dirname "$0")/common.sh"
runtime=$(one "$1"/tolvex_*_amd64.deb)
development=$(one "$1"/tolvex-dev_*_amd64.deb)
folder=$(realpath -m "$2") address=$3
root=$folder/root
rm -rf "$folder"
mkdir -p "$root/var/lib/dpkg"/{info,updates,triggers}
cp /var/lib/dpkg/status "$root/var/lib/dpkg/"
cp /var/lib/dpkg/info/*.list "$root/var/lib/dpkg/info/"
as_root=()
[ "$(id -u)" = 0 ] || as_root=(fakeroot)
# Documentation belongs to it, also where this machine leaves it out.
package_manager() { "${as_root[@]}" dpkg --root="$root" --force-script-chrootless --path-include='/usr/share/*' "$@" >"$folder/dpkg.log" 2>&1 ||
  { cat "$folder/dpkg.log"; failed "dpkg $1"; }; }
files() { (cd "$root" && find . -path ./var -prune -o ! -type d -print | sort); }

package_manager --install "$runtime" "$development"
equals "state" "install ok installed" "$(dpkg-query --admindir="$root/var/lib/dpkg" -W -f='${Status}' tolvex)"
folders=$(cd "$root" && echo usr/lib/*/libtolvex_dll.so)
libraries=$root/${folders%/*}
export LD_LIBRARY_PATH=$libraries
doc=$root/usr/share/doc
equals "programs" "tolvexctl zelkad-sim" "$(cd "$root/usr/bin" && echo *)"
for page in man1/tolvexctl.1 man1/zelkad-sim.1 man3/tolvex.3; do
  gzip -dc "$root/usr/share/man/$page.gz" | sed 's/\\-/-/g' >"$folder/${page#*/}"
  grep -q '^\.TH ' "$folder/${page#*/}" || failed "no manual page $page"
done
# Every option that a program has stands in its manual page.
for program in tolvexctl zelkad-sim; do
  for option in $("$root/usr/bin/$program" --help | grep -oE '(^|[ ,])--[a-z][a-z-]+' | grep -oE -- '--[a-z-]+' | sort -u); do
    grep -q -- "$option" "$folder/$program.1" || failed "the manual page of $program lacks $option"
  done
done

# The tool finds the library where the system keeps such things.
XDG_STATE_HOME=$folder/state LD_LIBRARY_PATH="" tool_weighs "$folder" "$address" "$root/usr/bin/zelkad-sim" "$root/usr/bin/tolvexctl"

# The sale, by CMake.
cmake -S "$doc/tolvex-dev/examples/c/checkout" -B "$folder/checkout" -G Ninja -DCMAKE_PREFIX_PATH="$root/usr" \
  >"$folder/cmake.log" || { cat "$folder/cmake.log"; failed "CMake did not find it"; }
cmake --build "$folder/checkout" >"$folder/build.log" || { cat "$folder/build.log"; failed "it did not build"; }
bash "$checkout_test" "$doc/tolvex-dev/examples/c/checkout/play" "$folder/sale" "$address" \
  "$root/usr/bin/zelkad-sim" "$folder/checkout/checkout" "$libraries/libtolvex_dll.so"

# The test of a till, by pkg-config.
# shellcheck disable=SC2046  # options are words
cc "$doc/tolvex-dev/examples/ci/till_test.c" -o "$folder/till_test" \
  $(PKG_CONFIG_SYSROOT_DIR=$root PKG_CONFIG_LIBDIR=$libraries/pkgconfig PKG_CONFIG_PATH="" pkg-config --cflags --libs tolvex)
bash "$doc/tolvex-dev/examples/ci/pipeline" "$folder/ci" "$address" "$root/usr/bin/zelkad-sim" \
  "$folder/till_test" "$libraries/libtolvex_dll.so"

package_manager --purge tolvex-dev tolvex
equals "what is left" "" "$(files)"
echo "the packages serve from nothing to a receipt"
