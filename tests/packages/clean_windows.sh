#!/usr/bin/env bash
# Makes a Wine prefix as it is after its first start, or ends what runs in it.
# usage: clean_windows.sh start PREFIX LAUNCHER | stop PREFIX
set -euo pipefail
command=$1
export WINEPREFIX=$2
# Ends the services of this prefix alone.
end_services() {
  local server
  server=$(command -v wineserver64 || command -v wineserver || echo /usr/lib/wine/wineserver64)
  [ ! -d "$WINEPREFIX" ] || "$server" -k || true
}
end_services
if [ "$command" = start ]; then
  rm -rf "$WINEPREFIX"
  mkdir -p "${WINEPREFIX%/*}"
  "$3" cmd /c exit
fi
