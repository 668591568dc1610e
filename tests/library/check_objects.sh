#!/usr/bin/env bash
# Checks what the library's own objects call, before the C++ runtime is linked to them: guards of the
# stack and of buffers are used, and no library is loaded, or looked up in, while the program runs.
# usage: check_objects.sh NM FILE...
set -euo pipefail
nm=$1
shift
fail() { echo "FAILED: $*"; exit 1; }
called=$("$nm" -A -u "$@")
loading=$(grep -E ' (__imp_)?(dlopen|dlmopen|dlsym|dlvsym|LoadLibrary(Ex)?[AW]|LoadPackagedLibrary|LdrLoadDll|GetProcAddress|LdrGetProcedureAddress|__delayLoadHelper2)$' \
  <<<"$called" || true)
[ -z "$loading" ] || fail "these load libraries: $loading"
guarded=$(grep -cE ' __stack_chk_fail$' <<<"$called" || true)
[ "$guarded" -ge 20 ] || fail "only $guarded objects guard their stack"
grep -qE ' __[a-z]+_chk$' <<<"$called" || fail "no call checks the size of its buffer"
echo "$# files; $guarded objects guard their stack"
