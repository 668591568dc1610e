#!/usr/bin/env bash
# Records the example's sale, and plays the program against the recording instead of devices: the
# same sale passes, another one does not.
# usage: replay_test.sh PLAY FOLDER ADDRESS SIMULATOR PROGRAM LIBRARY [LAUNCHER...]
set -euo pipefail
folder=$2 address=$3 simulator=$(realpath "$4") program=$5
launcher=()
[ $# -le 6 ] || launcher=("$(realpath "$7")" "${@:8}")
export CHECKOUT_DATE=21.11.2026
SIMULATOR_OPTIONS="--record sale.jsonl" "$@" >/dev/null
cd "$folder"
export XDG_STATE_HOME=$PWD/state LC_ALL=C.UTF-8

fail() {
  cat simulator.log errors.log >&2
  echo "FAILED: $*" >&2
  exit 1
}

# Every request is in the recording, with a number of its own.
requests=$(($(wc -l <sale.jsonl) - 1))
head -n 1 sale.jsonl | grep -q '^{"recording":"zelkad-sim","format":1,"version":"' || fail "no header"
grep -q '"port":"printing","connection":[0-9]*,"request":"{\\"cmd\\":\\"opencashbox\\"}","reply":"{\\"result\\":\\"0\\"}"}$' \
  sale.jsonl || fail "the drawer is not in the recording"
tail -n 1 sale.jsonl | grep -q "^{\"number\":$requests," || fail "the requests are not numbered"

# replay FILE STATUS DATE: the sale against a recording, and the simulator's exit status after it.
replay() {
  local status=0 service
  rm -f output
  mkfifo output
  "${launcher[@]}" "$simulator" --address "$address" --no-web --quiet --replay "$1" \
    --exit-after "${requests}requests,120s" >output 2>errors.log </dev/null &
  service=$!
  timeout 60 grep -q '^zelkad-sim: ready' output || fail "the simulator did not start"
  "${launcher[@]}" "./$(basename "$program")" logo.bmp "$3" </dev/null >sale.log 2>&1 || true
  [ "$2" = 0 ] || kill -INT "$service" # not all requests will come
  wait "$service" || status=$?
  [ "$status" = "$2" ] || fail "exit status $status instead of $2"
}

replay sale.jsonl 0 21.11.2026
grep -q '^The sale is complete' sale.log || fail "the sale did not go through"
grep -q '  net 0.356 kg, tare 0.120 kg' sale.log || fail "the weight is not the recorded one"

# Another date on the receipt: the library gives the job up at the line that is refused, so most of
# what was recorded does not come.
replay sale.jsonl 3 22.11.2026
sed 's/\r$//' errors.log >told.log
grep -q '^zelkad-sim: replay of sale.jsonl: request [0-9]* (printing) is not the one in line [0-9]*$' told.log ||
  fail "the difference is not told"
grep -q '^  expected  .*21\.11\.2026"}$' told.log || fail "what was expected is not shown"
grep -q '^  came      .*22\.11\.2026"}$' told.log || fail "what came is not shown"
grep -q '^  *^ byte [0-9]*$' told.log || fail "the byte is not marked"
grep -q '^zelkad-sim: replay of sale.jsonl: [0-9]* recorded requests did not come (printing); the first, in line ' told.log ||
  fail "what did not come is not told"

# A recording that was cut short.
head -c 1000 sale.jsonl >short.jsonl
status=0
"${launcher[@]}" "$simulator" --address "$address" --replay short.jsonl </dev/null >output.log 2>errors.log || status=$?
[ "$status" = 2 ] || fail "exit status $status instead of 2"
grep -q '^zelkad-sim: cannot use the recording short.jsonl: line [0-9]*: this is no JSON\.' errors.log ||
  fail "the broken line is not told"
echo "the recording serves as expected"
