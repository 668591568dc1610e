#!/usr/bin/env bash
# Runs the example's session and compares what it printed, line by line.
# usage: weighing_session_test.sh PLAY-SESSION ARGUMENT...
set -euo pipefail
printed=$("$@")
expected='  Scale "SIM 1.0", weights in kg
    range 1: up to 3, in steps of 0.001
    range 2: up to 6, in steps of 0.002
    range 3: up to 15, in steps of 0.005
    least weight 0.020, tare up to 6.000
  > Please empty the scale.
    empty            net    0.000 kg, tare  0.000 kg, stable, at zero
  > Please put the empty bowl on the scale.
    bowl             net    0.120 kg, tare  0.000 kg, stable
    tare taken: 0.120 kg
  > Please put the goods into the bowl.
    goods            net    0.482 kg, tare  0.120 kg, stable, tare active
    to pay: 0.482 kg at 2.99 a kg = 1.44
  > Please take everything off the scale.
    nothing          net   -0.120 kg, tare  0.120 kg, stable, at zero, tare active
    tare cleared: 0.000 kg
  > The scale is set to zero.
    zero             net    0.000 kg, tare  0.000 kg, stable, at zero
  The session is complete.'
# The library tells on standard output which log file it opened.
diff <(echo "$expected") <(grep -v 'NLog::OpenFile: .* Succ$' <<<"$printed")
echo "the session went as expected"
