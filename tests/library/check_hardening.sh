#!/usr/bin/env bash
# Checks the hardening of the library file and the libraries it asks for.
# usage: check_hardening.sh LIBRARY [SANITIZERS]
set -euo pipefail
library=$1 sanitizers=${2:-}
fail() { echo "FAILED: $*"; exit 1; }

case $library in
  *.dll)
    dump=$(x86_64-w64-mingw32-objdump -p "$library")
    for flag in HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT; do
      grep -q "$flag" <<<"$dump" || fail "$flag is not set"
    done
    imports=$(sed -nE 's/.*DLL Name: (.*)/\1/p' <<<"$dump")
    others=$(grep -viE '^(kernel32|user32|advapi32|ws2_32|msvcrt|ole32|shell32)\.dll$' <<<"$imports" || true)
    [ -z "$others" ] || fail "imports more than Windows' own libraries: $others"
    ;;
  *)
    headers=$(readelf -lW "$library")
    dynamic=$(readelf -dW "$library")
    grep -q GNU_RELRO <<<"$headers" || fail "no RELRO"
    grep -qE 'BIND_NOW|Flags:.*NOW' <<<"$dynamic" || fail "RELRO is not full"
    grep GNU_STACK <<<"$headers" | grep -q 'RW ' || fail "the stack is executable"
    if [ -z "$sanitizers" ]; then
      others=$(sed -nE 's/.*\(NEEDED\).*\[(.*)\]/\1/p' <<<"$dynamic" |
        grep -vE '^(libstdc\+\+|libgcc_s|libc|libm|libpthread|ld-linux-x86-64)\.so' || true)
      [ -z "$others" ] || fail "needs more than the system's libraries: $others"
    fi
    ;;
esac
echo "hardened"
