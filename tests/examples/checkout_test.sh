#!/usr/bin/env bash
# Plays the example's sale and compares what it said and what it printed, line by line.
# usage: checkout_test.sh PLAY FOLDER ARGUMENT...
set -euo pipefail
folder=$2
export CHECKOUT_DATE=21.11.2026
printed=$("$@")
expected='  Scale "SIM 1.0", weights in kg
    range 1: up to 3, in steps of 0.001
    range 2: up to 6, in steps of 0.002
    range 3: up to 15, in steps of 0.005
    least weight 0.020, tare up to 6.000
  > Please empty the scale.
    net 0.000 kg, tare 0.000 kg
  > Please put the apples on the scale.
    net 0.482 kg, tare 0.000 kg
    to pay: 1,44
  > Please take the apples off.
    net 0.000 kg, tare 0.000 kg
  > Please put the empty bowl on the scale.
    net 0.120 kg, tare 0.000 kg
    tare taken: 0.120 kg
  > Please put the cheese into the bowl.
    net 0.356 kg, tare 0.120 kg
    to pay: 6,73
  > Please take everything off the scale.
    net -0.120 kg, tare 0.120 kg
    tare cleared: 0.000 kg
  Receipt printed and cut.
  Drawer opened.
  Label printed.
  The sale is complete.

  job-0001-Ticket

  | [image 576x136]
  |           Lindenstraße 7 · 50674 Köln
  |
  | Bon 0042, Kasse 1                     21.11.2026
  | ------------------------------------------------
  | Äpfel Boskoop
  |   0,482 kg × 2,99 €/kg                      1,44
  | Bergkäse, würzig
  |   0,356 kg × 18,90 €/kg                     6,73
  | ------------------------------------------------
  | SUMME €                                     8,17
  | Gegeben bar                                10,00
  | Rückgeld                                    1,83
  | Enthaltene MwSt. 7 %                        0,53
  |
  |          Vielen Dank für Ihren Einkauf!
  |          谢谢惠顾 · Спасибо за покупку
  |
  |
  | - - - - - - - - - - - - - - - - - - - - - - - -

  job-0002-Label

  | Bergkäse, würzig
  | Netto 0,356 kg
  | 18,90 €/kg
  | 6,73 €
  | Kühl lagern, 2–8 °C
'
# The library tells on standard output which log file it opened; trailing blanks carry nothing.
diff <(echo "$expected") \
  <(grep -v -e 'NLog::OpenFile: .* Succ$' -e '^  picture: ' <<<"$printed" | sed 's/ *$//')

# Every picture that is named is there, with the receipt's texts and its logo.
mapfile -t pictures < <(sed -n 's/^  picture: //p' <<<"$printed")
[ "${#pictures[@]}" = 2 ] || { echo "${#pictures[@]} pictures instead of 2"; exit 1; }
has() { grep -qF -- "$2" "$1" || { echo "$1 lacks: $2"; exit 1; }; }
has "${pictures[0]}" 'data:image/png;base64,'
has "${pictures[0]}" 'Äpfel'
has "${pictures[0]}" '谢谢惠顾'
has "${pictures[1]}" 'Bergkäse'
has "$folder/simulator.log" '{"cmd":"opencashbox"} -> {"result":"0"}'
has "$folder/simulator.log" '{"cmd":"cutPaper","printerType":"1","Percent":"70"} -> {"result":"0"}'
echo "the sale went as expected"
