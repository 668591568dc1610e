#!/usr/bin/env bash
# Links a program with a linker that reads what Microsoft's reads, against the import library of the zip
# and nothing else, and runs it.
# usage: import_library_test.sh BUILD FOLDER LAUNCHER
set -euo pipefail
. "$(dirname "$0")/common.sh"
package=$(one "$1"/packages/tolvex-*-win-x64)
folder=$(realpath -m "$2") launcher=$3
rm -rf "$folder"
mkdir -p "$folder"

# Every export once, so that each name is looked up in the import library. Without a run-time library:
# what start() returns is the exit code.
{
  echo '#include <exports.h>'
  echo 'typedef void (*function)(void);'
  echo 'function volatile last;'
  echo 'int start(void) {'
  sed -nE 's/^TOLVEX_API int ([A-Za-z_]+)\(.*/  last = (function)\1;/p' "$package/include/exports.h"
  echo '  if (last == 0 || getHighResWeightMode() != 0 || setHighResWeightMode(1) != 0) return 1;'
  echo '  return getHighResWeightMode() == 1 ? 42 : 2;'
  echo '}'
} >"$folder/program.c"
x86_64-w64-mingw32-gcc -O1 -c -I "$package/include" "$folder/program.c" -o "$folder/program.obj"
lld-link /nologo /nodefaultlib /entry:start /subsystem:console /out:"$folder/program.exe" \
  "$folder/program.obj" "$package/lib/tolvex_dll.lib"
imported=$(x86_64-w64-mingw32-objdump -p "$folder/program.exe" | sed -nE 's/^[[:space:]]*[0-9a-f]+[[:space:]]+[0-9]+[[:space:]]+([A-Za-z_]+)$/\1/p' | sort)
equals "the program's imports" "$(sed -nE 's/^TOLVEX_API int ([A-Za-z_]+)\(.*/\1/p' "$package/include/exports.h" | sort)" "$imported"

cp "$package/bin/tolvex_dll.dll" "$folder/"
status=0
"$launcher" "$folder/program.exe" || status=$?
equals "what the program answers" 42 "$status"
echo "the import library serves"
