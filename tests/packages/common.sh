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
