#!/usr/bin/env bash
# Runs the example of a pipeline, and shows that it fails when it has to.
# usage: ci_test.sh EXAMPLE FOLDER ADDRESS SIMULATOR PROGRAM LIBRARY [LAUNCHER...]
#   EXAMPLE  the example's folder; FOLDER is made anew
set -euo pipefail
example=$1 folder=$2
shift 2
arguments=("$@")
rm -rf "$folder"
mkdir -p "$folder"
# A copy, whose scenario and golden files may be spoilt.
cp -r "$example" "$folder/ci"
fail() {
  cat "$folder/output" >&2
  echo "FAILED: $*" >&2
  exit 1
}
# run STATUS OPTION...
run() {
  local expected=$1 status=0
  shift
  "$folder/ci/pipeline" "$@" "$folder/run" "${arguments[@]}" >"$folder/output" 2>&1 || status=$?
  [ "$status" = "$expected" ] || fail "exit status $status instead of $expected"
}
says() { grep -qF -- "$1" "$folder/output" || fail "it does not say: $1"; }

run 0
says "ok: the weight is 356"
says "pipeline: all as expected"

# Another price on the receipt, and a receipt that nobody expects.
sed -i 's/6\.73/6.74/' "$folder/ci/golden/job-0002-Ticket.txt"
mv "$folder/ci/golden/job-0003-Label.txt" "$folder/ci/golden/job-0004-Label.txt"
run 1
says "-TOTAL                                       6.74"
says "+TOTAL                                       6.73"
says "+Mountain cheese"
says "pipeline: what was printed differs from the golden files"

run 0 --update
says "pipeline: golden files written"
diff -r "$example/golden" "$folder/ci/golden" >"$folder/output" || fail "the golden files are not as they were"

# A program that does not do what the scenario expects; the golden files are not touched by it.
sed -i 's/"opencashbox": 1/"opencashbox": 2/' "$folder/ci/scenario.json"
run 1 --update
says "zelkad-sim: scenario scenario.json: /expect/requests/opencashbox: 1 instead of 2"
says "pipeline: the simulator's exit status is 3"
says "pipeline: the golden files stay as they are"

# A result code that the program does not expect ends it, and the simulator with it.
sed -i 's/"load_kg": 0.356/"load_kg": 0.4/' "$folder/ci/scenario.json"
run 1
says "FAILED: the weight is 400 instead of 356"
says "pipeline: the program's test failed"
says "zelkad-sim: --exit-after: 0 jobs instead of 3 when it was stopped"

# A scenario that can not be used.
sed -i 's/"load_kg": 0.4/"load_kg": 4000/' "$folder/ci/scenario.json"
run 1
says "zelkad-sim: cannot use the scenario scenario.json: /steps/0/set/scale/load_kg: "
says "pipeline: the simulator did not start"
echo "the pipeline passes and fails as it should"
