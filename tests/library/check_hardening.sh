#!/usr/bin/env bash
# Checks the hardening of a file that is given away: the library or a program.
# usage: check_hardening.sh library|program FILE [SANITIZERS]
set -euo pipefail
kind=$1 file=$2 sanitizers=${3:-}
fail() { echo "FAILED: $file: $*"; exit 1; }

# The names of an import table that are not of these DLLs, which every Windows has.
windows_own='advapi32|bcrypt|kernel32|msvcrt|mswsock|ole32|shell32|user32|ws2_32'

check_pe() {
  local dump flag imports others sections
  dump=$(x86_64-w64-mingw32-objdump -p "$file")
  for flag in HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT; do
    grep -q "$flag" <<<"$dump" || fail "$flag is not set"
  done
  # Without relocations it could not be put at any other address.
  ! grep -q 'relocations stripped' <<<"$dump" || fail "it has no relocations"
  grep -E 'Base Relocation Directory' <<<"$dump" | grep -qvE 'Entry 5 0+ 0+ ' || fail "it has no relocations"
  grep -qE 'Delay Import Directory' <<<"$dump" || fail "objdump does not tell what is imported late"
  grep -E 'Delay Import Directory' <<<"$dump" | grep -qE 'Entry d 0+ 0+ ' || fail "it imports libraries late"
  imports=$(sed -nE 's/.*DLL Name: (.*)/\1/p' <<<"$dump")
  [ -n "$imports" ] || fail "no imports found"
  others=$(grep -viE "^($windows_own)\.dll$" <<<"$imports" || true)
  [ -z "$others" ] || fail "imports more than Windows' own libraries: $others"
  sections=$(llvm-readobj --sections "$file" | awk '$1 == "Name:" { name = $2 }
    /IMAGE_SCN_MEM_EXECUTE/ { runs = 1 } /IMAGE_SCN_MEM_WRITE/ { written = 1 } /IMAGE_SCN_MEM_/ { seen = 1 }
    /^  }/ { if (runs && written) print name; runs = written = 0 }
    END { if (!seen) print "(none was read)" }')
  [ -z "$sections" ] || fail "sections that can be written and run: $sections"
}

check_elf() {
  local headers dynamic others
  headers=$(readelf -lW "$file")
  dynamic=$(readelf -dW "$file")
  grep -q GNU_RELRO <<<"$headers" || fail "no RELRO"
  grep -qE 'BIND_NOW|Flags:.*NOW' <<<"$dynamic" || fail "RELRO is not full"
  grep GNU_STACK <<<"$headers" | grep -q 'RW ' || fail "the stack is executable"
  ! grep -E '^ +[A-Z_]+ .* RWE ' <<<"$headers" || fail "a segment can be written and run"
  ! grep -E 'TEXTREL' <<<"$dynamic" || fail "its code is changed when it is loaded"
  ! grep -E 'RPATH|RUNPATH' <<<"$dynamic" || fail "it names folders to look for libraries in"
  readelf -hW "$file" | grep -q 'Type:  *DYN' || fail "it cannot be put at any address"
  [ "$kind" = library ] || grep -qE 'FLAGS_1.*PIE' <<<"$dynamic" || fail "no position-independent program"
  [ -z "$sanitizers" ] || return 0
  others=$(sed -nE 's/.*\(NEEDED\).*\[(.*)\]/\1/p' <<<"$dynamic" |
    grep -vE '^(libstdc\+\+|libgcc_s|libc|libm|libpthread|ld-linux-x86-64)\.so' || true)
  [ -z "$others" ] || fail "needs more than the system's libraries: $others"
}

case $file in
  *.dll | *.exe) check_pe ;;
  *) check_elf ;;
esac
echo "hardened"
