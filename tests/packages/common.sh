# What the tests of packages share.
# shellcheck shell=bash

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck disable=SC2034  # used by those who source this
checkout_test=$here/../examples/checkout_test.sh

failed() {
  echo "FAILED: $*" >&2
  exit 1
}

# The one file of a pattern.
one() {
  [ $# = 1 ] && [ -e "$1" ] || failed "not one file: $*"
  echo "$1"
}

# equals WHAT EXPECTED GOT
equals() {
  [ "$2" = "$3" ] || {
    diff <(echo "$2") <(echo "$3") >&2 || true
    failed "$1 (expected <, got >)"
  }
}

# The tool of the package finds the library of the package, and weighs what lies on its simulator.
#   tool_weighs FOLDER ADDRESS SIMULATOR TOOL [LAUNCHER]
tool_weighs() {
  local folder=$1 address=$2 simulator=$3 tool=$4 service told
  local launcher=("${@:5}")
  rm -f "$folder/simulator"
  mkfifo "$folder/simulator"
  "${launcher[@]}" "$simulator" --address "$address" --no-web --quiet --load 0.482 --settling 0 \
    --exit-after 120s >"$folder/simulator" </dev/null &
  service=$!
  timeout 60 grep -q '^zelkad-sim: ready' "$folder/simulator" || failed "the simulator did not start"
  told=$("${launcher[@]}" "$tool" --host "$address" --json weigh --stable </dev/null | tr -d ' \r\n') || true
  kill -INT "$service" 2>/dev/null || true
  wait "$service" || true
  case $told in
    '{"ok":true,"net":0.482,"tare":0'*'"unit":"kg","stable":true,'*) ;;
    *) failed "tolvexctl weighed: $told" ;;
  esac
}
