#!/usr/bin/env bash
# Makes the folder in which the commands of a document run: the project as a newcomer has it, built,
# with the programs installed as well. Programs find the service at ADDRESS.
# usage: sandbox.sh SOURCE BUILD FOLDER ADDRESS
# Where TOLVEX_PACKAGES names a folder, its files are there too, and the library is only in them.
set -euo pipefail
source=$1 build=$2 folder=$3 address=$4
rm -rf "$folder"
mkdir -p "$folder/build/linux/bin" "$folder/.bin" "$folder/.home"
folder=$(cd "$folder" && pwd)
cp -r "$source/examples" "$source/README.md" "$source/CHANGELOG.md" "$folder/"
for name in src sim docs cmake tests CMakeLists.txt; do ln -s "$source/$name" "$folder/$name"; done
bin=$folder/build/linux/bin
for program in libtolvex_dll.so zelkad-sim tolvexctl checkout till_test; do
  [ ! -e "$build/bin/$program" ] || ln "$build/bin/$program" "$bin/" 2>/dev/null || cp "$build/bin/$program" "$bin/"
done
for place in "$bin" "$folder" "$folder/.bin"; do
  printf '[zelkad]\nip_addr=%s\n' "$address" >"$place/zelkad_ip_config.ini"
done
for program in tolvexctl libtolvex_dll.so; do
  [ ! -e "$bin/$program" ] || ln -s "$bin/$program" "$folder/.bin/$program"
done

# The simulator at the address, unless the command says otherwise.
cat >"$folder/.bin/zelkad-sim" <<END
#!/bin/sh
case " \$* " in
  *" --help "* | *" --version "*) exec "$bin/zelkad-sim" "\$@" ;;
esac
case " \$* " in
  *" --address "*) exec "$bin/zelkad-sim" "\$@" ;;
  *) exec "$bin/zelkad-sim" --address $address "\$@" ;;
esac
END

# As the development package has it.
mkdir "$folder/.pkgconfig"
cat >"$folder/.pkgconfig/tolvex.pc" <<END
Name: tolvex
Description: device adapter library
Version: 3.0.3.2
Cflags: -I$source/src/api
Libs: -L$bin -ltolvex_dll
END

# ./run builds and tests the whole project: here it says whether it has the word, and starts the
# simulator.
cat >"$folder/run" <<END
#!/bin/sh
word=\${1:-help}
"$source/run" help | grep -q "^  \$word " || { echo "run: there is no command \$word" >&2; exit 1; }
case \$word in
  sim) shift; exec "$folder/.bin/zelkad-sim" "\$@" ;;
esac
END
chmod +x "$folder/run" "$folder/.bin/zelkad-sim"
cat >"$folder/.state" <<END
export PATH="$folder/.bin:$PATH" HOME="$folder/.home" XDG_STATE_HOME="$folder/.home/.local/state" LC_ALL=C.UTF-8
export PKG_CONFIG_PATH="$folder/.pkgconfig" LD_LIBRARY_PATH="$bin"
cd "$folder"
END

if [ -n "${TOLVEX_PACKAGES:-}" ]; then
  cp "$TOLVEX_PACKAGES"/* "$folder/"
  rm "$folder/.bin/libtolvex_dll.so"
  echo 'unset LD_LIBRARY_PATH TOLVEX_PACKAGES' >>"$folder/.state"
fi
