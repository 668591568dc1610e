#!/usr/bin/env bash
# Tests zelkad-sim as a program: start, exchange, console, stop, and refusals.
# usage: program_test.sh CASE [LAUNCHER] PROGRAM
set -u
case_name=$1
shift
program=("$@")
pids=()
trap 'for pid in "${pids[@]}"; do kill -KILL "$pid" 2>/dev/null; done; rm -rf "$dir"' EXIT
dir=$(mktemp -d)

fail() {
  echo "FAILED: $*" >&2
  cat "$dir"/*.log >&2
  exit 1
}

# Starts the program with its standard input and output on pipes: sets pid, and the descriptors
# `input` and `output`, and waits until it is ready: sets weighing, printing and web to the ports.
start() {
  mkfifo "$dir/in.$#" "$dir/out.$#"
  "${program[@]}" "$@" <"$dir/in.$#" >"$dir/out.$#" 2>>"$dir/err.log" &
  pid=$!
  pids+=("$pid")
  exec {input}>"$dir/in.$#" {output}<"$dir/out.$#"
  rm "$dir/in.$#" "$dir/out.$#"
  expect_line '^zelkad-sim: weighing on 127\.0\.0\.1:([0-9]+)$'
  weighing=${BASH_REMATCH[1]}
  expect_line '^zelkad-sim: printing on 127\.0\.0\.1:([0-9]+)$'
  printing=${BASH_REMATCH[1]}
  if [[ " $* " != *" --no-web "* ]]; then
    expect_line '^zelkad-sim: page on http://127\.0\.0\.1:([0-9]+)/$'
    web=${BASH_REMATCH[1]}
  fi
  expect_line '^zelkad-sim: ready$'
}

# Reads one line of the program's output, which has to match the pattern.
expect_line() {
  local line
  IFS= read -r -t 60 line <&"$output" || fail "no line that matches: $1"
  line=${line%$'\r'}
  [[ $line =~ $1 ]] || fail "line \"$line\" does not match: $1"
}

expect_exit() {
  wait "$pid"
  local status=$?
  [ "$status" -eq "$1" ] || fail "exit status $status instead of $1"
}

# One request on a connection of its own, whose reply has to be the given text.
expect_reply() {
  local connection reply
  exec {connection}<>"/dev/tcp/127.0.0.1/$1" || fail "cannot connect to port $1"
  printf '%s' "$2" >&"$connection"
  IFS= read -r -t 60 -d '}' reply <&"$connection"
  exec {connection}>&-
  [ "$reply}" = "$3" ] || fail "reply \"$reply}\" instead of \"$3\""
}

# One request on a connection of its own, which has to end without a reply.
expect_end() {
  local connection reply
  exec {connection}<>"/dev/tcp/127.0.0.1/$1" || fail "cannot connect to port $1"
  printf '%s' "$2" >&"$connection"
  IFS= read -r -t 60 -d '}' reply <&"$connection"
  [ $? -eq 1 ] || fail "no end of the connection"
  exec {connection}>&-
  [ -z "$reply" ] || fail "reply \"$reply\" instead of an end"
}

# Requests on one connection, one after another, each of which has to be answered with success.
expect_ok() {
  local connection reply request
  exec {connection}<>"/dev/tcp/127.0.0.1/$1" || fail "cannot connect to port $1"
  shift
  for request in "$@"; do
    printf '%s' "$request" >&"$connection"
    IFS= read -r -t 60 -d '}' reply <&"$connection"
    [ "$reply}" = "$ok" ] || fail "reply \"$reply}\" to $request"
  done
  exec {connection}>&-
}

# A page of the port, whose answer has to begin with the status.
expect_page() {
  local connection line
  exec {connection}<>"/dev/tcp/127.0.0.1/$1" || fail "cannot connect to port $1"
  printf 'GET %s HTTP/1.1\r\nHost: 127.0.0.1:%s\r\nConnection: close\r\n\r\n' "$2" "$1" >&"$connection"
  IFS= read -r -t 60 line <&"$connection"
  exec {connection}>&-
  [ "${line%$'\r'}" = "HTTP/1.1 $3" ] || fail "answer \"$line\" instead of $3 for $2"
}

# A POST to the page's port, with a body in JSON if there is one, whose answer has to begin with the
# status: expect_post PORT PATH STATUS [BODY].
expect_post() {
  local connection line
  exec {connection}<>"/dev/tcp/127.0.0.1/$1" || fail "cannot connect to port $1"
  printf 'POST %s HTTP/1.1\r\nHost: 127.0.0.1:%s\r\nContent-Type: application/json\r\nContent-Length: %s\r\n'`
    `'Connection: close\r\n\r\n%s' "$2" "$1" "$(printf '%s' "${4-}" | wc -c)" "${4-}" >&"$connection"
  IFS= read -r -t 60 line <&"$connection"
  exec {connection}>&-
  [ "${line%$'\r'}" = "HTTP/1.1 $3" ] || fail "answer \"$line\" instead of $3 for $2"
}

# A request on a connection of its own, which is closed without a reply.
expect_closed() {
  local connection rest
  exec {connection}<>"/dev/tcp/127.0.0.1/$1" || fail "cannot connect to port $1"
  printf '%s' "$2" >&"$connection"
  IFS= read -r -t 60 -d '' rest <&"$connection"
  [ $? -eq 1 ] && [ -z "$rest" ] || fail "\"$rest\" instead of an end"
  exec {connection}>&-
}

# expect_refusal STATUS MESSAGE OPTION...: the program does not start.
expect_refusal() {
  local expected=$1 message=$2 status
  shift 2
  "${program[@]}" "${any_ports[@]}" "$@" </dev/null >"$dir/out.log" 2>"$dir/refusal.log"
  status=$?
  [ "$status" -eq "$expected" ] || fail "exit status $status instead of $expected"
  [ -s "$dir/out.log" ] && fail "there is output"
  [ "$(tr -d '\r' <"$dir/refusal.log")" = "$message" ] || fail "not this message: $message"
}

any_ports=(--port 0)
check='{"cmd":"checkConnection"}'
ok='{"result":"0"}'

case $case_name in
  interrupt | terminate)
    start "${any_ports[@]}"
    if [ "$case_name" = interrupt ]; then kill -INT "$pid"; else kill -TERM "$pid"; fi
    expect_line '^zelkad-sim: stopped$'
    expect_exit 0
    ;;
  exchange)
    start "${any_ports[@]}" --load 0.482
    expect_reply "$weighing" "$check" "$ok"
    expect_line '^weighing 127\.0\.0\.1:[0-9]+ \{"cmd":"checkConnection"\} -> \{"result":"0"\}$'
    expect_reply "$printing" '{"cmd":"brew"}' '{"result":"2002"}'
    expect_line '^printing 127\.0\.0\.1:[0-9]+ \{"cmd":"brew"\} -> \{"result":"2002"\}$'
    expect_reply "$weighing" '{"cmd":"getweight"}' '{"result":"0","net":"0.482","tare":"0.000",'`
      `'"zero":"0","tareType":"N","highResNet":"0.4820","weightUnit":"kg"}'
    ;;
  reset)
    printf '{"initial": {"scale": {"load_kg": 0.482, "settling_s": 0},
      "printers": {"Third": {"settings": {"paper-width": 128}}}}}' >"$dir/scenario.json"
    start "${any_ports[@]}" --quiet --scenario "$dir/scenario.json" --paper-dir "$dir/paper"
    line='{"cmd":"printtext","printerType":"1","fontsize":"24","text":"begun"}'
    expect_page "$web" /api/wait?event=request\&timeout_s=0 "408 Request Timeout"
    expect_ok "$weighing" "$check" '{"cmd":"setloglevel","module":"loadcell","level":"2"}'
    # One job that is finished, and one that is being printed.
    expect_ok "$printing" "${line/begun/done}" '{"cmd":"beginPrint","printerType":"1"}' "${line/\"1\"/\"2\"}"
    [ "$(ls "$dir/paper")" = $'job-0001-Ticket.svg
job-0001-Ticket.txt' ] || fail "other files"
    # What does not fit the initial state is refused before anything is lost.
    expect_post "$web" /api/reset "400 Bad Request" '{"printers":{"Third":{"settings":{"left-margin":200}}}}'
    expect_page "$web" /api/jobs/1 "200 OK"
    expect_post "$web" /api/reset "200 OK"
    [ -z "$(ls -A "$dir/paper")" ] || fail "jobs from before the reset: $(ls -A "$dir/paper")"
    expect_reply "$weighing" '{"cmd":"getloglevel","module":"loadcell"}' '{"result":"0","level":"5"}'
    expect_page "$web" /api/jobs/1 "404 Not Found"
    expect_ok "$printing" "${line/begun/anew}" '{"cmd":"beginPrint","printerType":"1"}'
    expect_page "$web" /api/jobs/1 "200 OK"
    expect_reply "$weighing" '{"cmd":"getweight"}' '{"result":"0","net":"0.482","tare":"0.000",'`
      `'"zero":"0","tareType":"N","highResNet":"0.4820","weightUnit":"kg"}'
    [ "$(tr -d '\r' <"$dir/paper/job-0001-Ticket.txt")" = anew ] || fail "the numbers do not begin again"
    [ "$(ls "$dir/paper")" = $'job-0001-Ticket.svg\njob-0001-Ticket.txt' ] || fail "more than the new job"
    kill -INT "$pid"
    expect_exit 0
    ;;
  picture_refused)
    cd "$dir" || fail "no folder"
    start "${any_ports[@]}"
    printf 'GIF89a' >logo.gif
    expect_reply "$printing" \
      '{"cmd":"printbmpfile","printerType":"1","angle":"0","filename":"logo.gif"}' '{"result":"2"}'
    expect_line '^printing .*"printbmpfile"'
    grep -q '^zelkad-sim: cannot print logo\.gif: it is no BMP, PNG or JPEG file' err.log ||
      fail "no reason given"
    ;;
  paper_dir)
    cd "$dir" || fail "no folder"
    start "${any_ports[@]}" --console --paper-dir "Käse 苹果"
    expect_ok "$printing" \
      '{"cmd":"printtext","printerType":"1","fontsize":"28","text":"Käse   0.482 kg"}' \
      '{"cmd":"print_text_width","printerType":"1","fontsize":"24","width":"120","text":"Total 3.98 EUR"}' \
      '{"cmd":"beginPrint","printerType":"1"}'
    # Before the reply, so that the files are there when the client goes on.
    expect_line '^printing .*"printtext"'
    expect_line '^printing .*"print_text_width"'
    expect_line '^zelkad-sim: job 1 on Ticket, 12 mm: Käse 苹果[/\\]job-0001-Ticket\.svg$'
    expect_line '^printing .*"beginPrint"'
    [ "$(ls "Käse 苹果")" = $'job-0001-Ticket.svg\njob-0001-Ticket.txt' ] || fail "other files"
    [ "$(<"Käse 苹果/job-0001-Ticket.txt")" = $'Käse     0.482 kg\nTotal 3.98\nEUR' ] ||
      fail "wrong text: $(<"Käse 苹果/job-0001-Ticket.txt")"
    grep -q '^<svg' "Käse 苹果/job-0001-Ticket.svg" || fail "no picture"
    # A cut changes the job, and what is unfinished at the end is not lost.
    expect_ok "$printing" '{"cmd":"cutPaper","printerType":"1","Percent":"70"}' \
      '{"cmd":"printtext","printerType":"0","fontsize":"28","text":"Label"}'
    expect_line '^zelkad-sim: job 1 on Ticket, 12 mm, cut: Käse 苹果[/\\]job-0001-Ticket\.svg$'
    expect_line '^printing .*"cutPaper"'
    expect_line '^printing .*"printtext"'
    [[ $(<"Käse 苹果/job-0001-Ticket.txt") = *$'\nEUR\n- - '* ]] || fail "no cut"
    echo quit >&"$input"
    expect_line '^ok stopping$'
    expect_line '^zelkad-sim: job 2 on Label, 5 mm: Käse 苹果[/\\]job-0002-Label\.svg$'
    expect_line '^zelkad-sim: stopped$'
    expect_exit 0
    [ "$(<"Käse 苹果/job-0002-Label.txt")" = Label ] || fail "wrong text"
    ;;
  paper_dir_in_use)
    # A second simulator that can not start leaves the paper of the first one alone.
    cd "$dir" || fail "no folder"
    start "${any_ports[@]}" --quiet --paper-dir paper
    expect_ok "$printing" '{"cmd":"printtext","printerType":"1","fontsize":"28","text":"mine"}' \
      '{"cmd":"beginPrint","printerType":"1"}'
    "${program[@]}" --port 0 --printing-port "$printing" --paper-dir paper </dev/null >out.log 2>refusal.log
    status=$?
    [ "$status" -eq 1 ] || fail "exit status $status instead of 1"
    [ "$(ls paper)" = $'job-0001-Ticket.svg\njob-0001-Ticket.txt' ] || fail "other files: $(ls paper)"
    [ "$(tr -d '\r' <paper/job-0001-Ticket.txt)" = mine ] || fail "wrong text"
    ;;
  paper_dir_unusable)
    cd "$dir" || fail "no folder"
    echo "in the way" >paper
    start "${any_ports[@]}" --paper-dir paper
    print='{"cmd":"printtext","printerType":"1","fontsize":"28","text":"x"}'
    begin='{"cmd":"beginPrint","printerType":"1"}'
    expect_ok "$printing" "$print" "$begin" "$print" "$begin"
    expect_line '^printing .*"printtext"'
    expect_line '^zelkad-sim: job 1 on Ticket, 5 mm$'
    [ "$(grep -c '^zelkad-sim: cannot create the folder paper: ' err.log)" = 1 ] ||
      fail "not reported once"
    ;;
  paper_dir_full)
    cd "$dir" || fail "no folder"
    start "${any_ports[@]}" --paper-dir paper
    ln -s /dev/full paper/job-0001-Ticket.txt.tmp
    print='{"cmd":"printtext","printerType":"1","fontsize":"28","text":"x"}'
    expect_ok "$printing" "$print" '{"cmd":"beginPrint","printerType":"1"}'
    expect_line '^printing .*"printtext"'
    expect_line '^zelkad-sim: job 1 on Ticket, 5 mm$'
    [ "$(<err.log)" = "zelkad-sim: cannot write paper/job-0001-Ticket.txt: No space left on \
device. Jobs are printed all the same, but not kept. Make room there, or choose another folder with \
--paper-dir." ] || fail "wrong message"
    [ -z "$(ls -A paper)" ] || fail "something is left: $(ls -A paper)"
    ;;
  quiet)
    start "${any_ports[@]}" --quiet --console
    expect_reply "$weighing" "$check" "$ok"
    expect_ok "$printing" '{"cmd":"printtext","printerType":"1","fontsize":"28","text":"x"}' \
      '{"cmd":"cutPaper","printerType":"1","Percent":"70"}'
    echo quit >&"$input"
    expect_line '^ok stopping$'
    ;;
  console)
    start "${any_ports[@]}" --settling 0 --console
    printf 'load 0.482\nstatus\nlaod\n' >&"$input"
    expect_line '^ok load 0\.482 kg$'
    expect_line '^ok gross 0\.482, net 0\.482, tare 0\.000, stable, not at zero, state 0 OK$'
    expect_line '^error: unknown command "laod"; the commands are: load KG,'
    # The end of the input, with a last line that has no end.
    printf 'unplug' >&"$input"
    exec {input}>&-
    expect_line '^ok unplugged$'
    expect_reply "$weighing" "$check" '{"result":"1007"}'
    ;;
  console_quit)
    start "${any_ports[@]}" --console
    # The reader is waiting for more input when the program ends.
    echo quit >&"$input"
    expect_line '^ok stopping$'
    expect_line '^zelkad-sim: stopped$'
    expect_exit 0
    ;;
  wire_faults)
    start "${any_ports[@]}" --console
    echo 'wire result code=2006 command=opencashbox times=1' >&"$input"
    expect_line '^ok fault 1: result command=opencashbox code=2006 times=1$'
    open='{"cmd":"opencashbox"}'
    expect_reply "$printing" "$open" '{"result":"2006"}'
    expect_line '^printing 127\.0\.0\.1:[0-9]+ \{"cmd":"opencashbox"\} -> \{"result":"2006"\} \[result\]$'
    expect_reply "$printing" "$open" "$ok"
    expect_line '^printing 127\.0\.0\.1:[0-9]+ \{"cmd":"opencashbox"\} -> \{"result":"0"\}$'
    echo drawer >&"$input"
    expect_line '^ok drawer open, openings 1$'
    echo 'wire close port=weighing' >&"$input"
    expect_line '^ok fault 2: close port=weighing$'
    expect_end "$weighing" "$check"
    expect_line '^weighing 127\.0\.0\.1:[0-9]+ .* -> \(closed\) \[close\]$'
    printf 'wire off\nwire refuse port=weighing\n' >&"$input"
    expect_line '^ok no faults on the wire$'
    expect_line '^ok fault 3: refuse port=weighing$'
    (exec {connection}<>"/dev/tcp/127.0.0.1/$weighing") 2>/dev/null && fail "not refused"
    expect_reply "$printing" "$open" "$ok"
    expect_line '^printing .*"opencashbox"'
    echo 'wire off 3' >&"$input"
    expect_line '^ok fault 3 is off$'
    expect_reply "$weighing" "$check" "$ok"
    ;;
  no_console)
    start "${any_ports[@]}"
    echo quit >&"$input"
    expect_reply "$weighing" "$check" "$ok"
    ;;
  output_closed)
    start "${any_ports[@]}"
    exec {output}<&-
    expect_reply "$weighing" "$check" "$ok"
    expect_reply "$weighing" "$check" "$ok"
    kill -INT "$pid"
    expect_exit 0
    ;;
  port_taken)
    start "${any_ports[@]}"
    "${program[@]}" --port 0 --printing-port "$printing" </dev/null >"$dir/out.log" \
      2>"$dir/refusal.log"
    status=$?
    [ "$status" -eq 1 ] || fail "exit status $status instead of 1"
    refusal=$(tr -d '\r' <"$dir/refusal.log")
    [ "$refusal" = "zelkad-sim: cannot listen on 127.0.0.1:$printing (printing): another program \
has this port. Is another zelkad or zelkad-sim running? Stop it, or choose another port with \
--printing-port or another address with --address." ] || fail "wrong message"
    expect_reply "$weighing" "$check" "$ok"
    ;;
  page)
    start "${any_ports[@]}"
    expect_page "$web" / '200 OK'
    expect_page "$web" /nothing '404 Not Found'
    ;;
  no_page)
    start "${any_ports[@]}" --no-web
    expect_reply "$weighing" "$check" "$ok"
    ;;
  page_port_taken)
    start "${any_ports[@]}"
    "${program[@]}" --port 0 --web-port "$web" </dev/null >"$dir/out.log" 2>"$dir/refusal.log"
    status=$?
    [ "$status" -eq 1 ] || fail "exit status $status instead of 1"
    refusal=$(tr -d '\r' <"$dir/refusal.log")
    [ "$refusal" = "zelkad-sim: cannot listen on 127.0.0.1:$web (web): another program has this \
port. Is another zelkad-sim running? Stop it, choose another port with --web-port, or do without the \
page with --no-web." ] || fail "wrong message"
    expect_page "$web" /nothing '404 Not Found'
    ;;
  scenario)
    # The step acts when the request is carried out: the next one meets the new state, on any connection.
    cat >"$dir/sale.json" <<'END'
{"initial": {"scale": {"load_kg": 0.1, "settling_s": 0}},
 "steps": [{"on": "request", "command": "getweight", "port": "weighing", "log": "more",
            "set": {"scale": {"load_kg": 0.482}}},
           {"on": "job", "printer": "Label", "call": [{"method": "PATCH", "path": "/api/drawer",
            "body": {"open": true}}], "exit": 0}],
 "expect": {"steps": "all", "jobs": {"Label": 1, "Ticket": 0}, "requests": {"getweight": 2},
            "results": {"0": 4}, "unknown_commands": 0, "state": {"drawer": {"open": true}}}}
END
    start "${any_ports[@]}" --scenario "$dir/sale.json"
    expect_reply "$weighing" '{"cmd":"getweight"}' '{"result":"0","net":"0.100","tare":"0.000",'`
      `'"zero":"0","tareType":"N","highResNet":"0.1000","weightUnit":"kg"}'
    expect_reply "$weighing" '{"cmd":"getweight"}' '{"result":"0","net":"0.482","tare":"0.000",'`
      `'"zero":"0","tareType":"N","highResNet":"0.4820","weightUnit":"kg"}'
    expect_ok "$printing" '{"cmd":"printtext","printerType":"0","fontsize":"28","text":"x"}' \
      '{"cmd":"beginPrint","printerType":"0"}'
    expect_line '^weighing .*"net":"0\.100"'
    expect_line '^zelkad-sim: scenario step /steps/0: more$'
    expect_line '^weighing .*"net":"0\.482"'
    expect_line '^printing .*"printtext"'
    expect_line '^zelkad-sim: job 1 on Label, 5 mm$'
    expect_line '^printing .*"beginPrint"'
    expect_line '^zelkad-sim: scenario step /steps/1$'
    expect_line '^zelkad-sim: stopped$'
    expect_exit 0
    ;;
  scenario_unmet)
    echo '{"steps": [{"on": "connection", "port": "weighing"}, {"on": "job"}],
      "expect": {"steps": "all", "jobs": {"Ticket": 2}}}' >"$dir/sale.json"
    start "${any_ports[@]}" --scenario "$dir/sale.json" --console
    expect_reply "$weighing" "$check" "$ok"
    echo quit >&"$input"
    expect_exit 3
    errors=$(tr -d '\r' <"$dir/err.log")
    [ "$errors" = "zelkad-sim: scenario $dir/sale.json: /expect/jobs/Ticket: 0 instead of 2
zelkad-sim: scenario $dir/sale.json: /expect/steps: not all steps acted; /steps/1 still waits for 1 \
finished job, of which 0 came" ] || fail "wrong message"
    ;;
  scenario_exit)
    echo '{"steps": [{"after_s": 0.01, "exit": 7}]}' >"$dir/sale.json"
    start "${any_ports[@]}" --scenario "$dir/sale.json"
    expect_exit 7
    ;;
  scenario_refused)
    echo '{"steps": [{"after_s": 1}, {"set": {"scale": {"load_kg": 2000}}}]}' >"$dir/sale.json"
    expect_refusal 2 "zelkad-sim: cannot use the scenario $dir/sale.json: /steps/1/set/scale/load_kg: \
load_kg is 2000, but it has to be a number from -1000 to 1000. Send a number from -1000 to 1000, as in \
{\"load_kg\": 0.482}." --scenario "$dir/sale.json"
    echo '{"steps": [{"call": [{"method": "POST", "path": "/api/printer/Ticket/tear"}]}]}' >"$dir/sale.json"
    expect_refusal 2 "zelkad-sim: cannot use the scenario $dir/sale.json: /steps/0/call/0: there is no \
path \"/api/printer/Ticket/tear\". GET /api lists the paths that there are." --scenario "$dir/sale.json"
    echo '{"expect": {"state": {"drawer": {"opened": true}}}}' >"$dir/sale.json"
    expect_refusal 2 "zelkad-sim: cannot use the scenario $dir/sale.json: /expect/state/drawer/opened: \
the state has no such member. Members are: open, openings." --scenario "$dir/sale.json"
    printf '{"steps": [\n{"log" 1}]}' >"$dir/sale.json"
    expect_refusal 2 "zelkad-sim: cannot use the scenario $dir/sale.json: line 2, column 8: this is no \
JSON (syntax error while parsing object separator - unexpected number literal; expected ':'). Mend it \
there or just before." --scenario "$dir/sale.json"
    cd "$dir" || fail "no folder"
    mkdir folder
    expect_refusal 2 "zelkad-sim: cannot use the scenario folder: it is a folder" --scenario folder
    ;;
  exit_after)
    start "${any_ports[@]}" --exit-after 2requests,1m
    expect_reply "$weighing" "$check" "$ok"
    expect_reply "$printing" '{"cmd":"brew"}' '{"result":"2002"}'
    expect_line '^weighing '
    expect_line '^printing '
    expect_line '^zelkad-sim: stopped$'
    expect_exit 0
    ;;
  exit_after_delay)
    # The client gets the reply that the run waits for, however late it is.
    echo '{"initial": {"faults": [{"kind": "delay", "delay_ms": 1500}]}}' >"$dir/slow.json"
    start "${any_ports[@]}" --quiet --scenario "$dir/slow.json" --exit-after 1request
    expect_reply "$weighing" "$check" "$ok"
    expect_line '^zelkad-sim: stopped$'
    expect_exit 0
    ;;
  exit_after_unmet)
    start "${any_ports[@]}" --exit-after 1job,2requests,100ms
    expect_exit 3
    [ "$(tr -d '\r' <"$dir/err.log")" = "zelkad-sim: --exit-after: 0 jobs instead of 1 and 0 requests \
instead of 2 when the time was up" ] || fail "wrong message"
    ;;
  exit_after_time)
    start "${any_ports[@]}" --exit-after 100ms
    expect_line '^zelkad-sim: stopped$'
    expect_exit 0
    ;;
  record)
    # Bytes that are not UTF-8, and a reply that a fault keeps back, come again in the replay.
    cd "$dir" || fail "no folder"
    echo '{"steps": [{"on": "request", "count": 2,
      "set": {"faults": [{"kind": "close", "port": "printing", "times": 1}]}}]}' >close.json
    broken=$'{"cmd":"\xE4"}'
    start "${any_ports[@]}" --load 0.482 --settling 0 --scenario close.json --record "Käse.jsonl" \
      --exit-after 3requests
    reply='{"result":"0","net":"0.482","tare":"0.000","zero":"0","tareType":"N","highResNet":"0.4820",'`
      `'"weightUnit":"kg"}'
    expect_reply "$weighing" '{"cmd":"getweight"}' "$reply"
    expect_reply "$weighing" "$broken" '{"result":"7"}'
    expect_closed "$printing" '{"cmd":"opencashbox"}'
    expect_exit 0
    [ "$(wc -l <"Käse.jsonl")" = 4 ] || fail "not three exchanges: $(<"Käse.jsonl")"
    start "${any_ports[@]}" --quiet --replay "Käse.jsonl" --exit-after 3requests
    expect_reply "$weighing" '{"cmd":"getweight"}' "$reply"
    expect_closed "$printing" '{"cmd":"opencashbox"}'
    expect_reply "$weighing" "$broken" '{"result":"7"}'
    expect_exit 0
    [ ! -s err.log ] || fail "there are messages"
    ;;
  replay_unmet)
    cd "$dir" || fail "no folder"
    start "${any_ports[@]}" --record sale.jsonl --exit-after 3requests
    expect_ok "$weighing" "$check" "$check"
    expect_ok "$printing" '{"cmd":"opencashbox"}'
    expect_exit 0
    start "${any_ports[@]}" --replay sale.jsonl --exit-after 3requests
    expect_ok "$weighing" "$check"
    expect_reply "$weighing" '{"cmd":"setzero"}' '{"result":"1"}'
    expect_reply "$weighing" '{"cmd":"setzero"}' '{"result":"1"}'
    expect_exit 3
    [ "$(tr -d '\r' <err.log)" = 'zelkad-sim: replay of sale.jsonl: request 2 (weighing) is not the one in line 3
  expected  {"cmd":"checkConnection"}
  came      {"cmd":"setzero"}
                    ^ byte 9
zelkad-sim: replay of sale.jsonl: 2 of 3 requests are not as recorded; the first: request 2 (weighing) is not the one in line 3
zelkad-sim: replay of sale.jsonl: 1 recorded request did not come (printing); the first, in line 4: {"cmd":"opencashbox"}' ] ||
      fail "wrong message"
    ;;
  record_refused)
    cd "$dir" || fail "no folder"
    expect_refusal 1 "zelkad-sim: cannot write the recording no/sale.jsonl: No such file or directory. \
Choose another file with --record." --record no/sale.jsonl
    echo '{"recording":"zelkad-sim","format":1}' >sale.jsonl
    echo '{"number":1' >>sale.jsonl
    expect_refusal 2 "zelkad-sim: cannot use the recording sale.jsonl: line 2: this is no JSON. Mend the \
line, or delete it if it is cut short." --replay sale.jsonl
    ;;
  usage_error)
    "${program[@]}" --load heavy </dev/null >"$dir/out.log" 2>"$dir/refusal.log"
    status=$?
    [ "$status" -eq 2 ] || fail "exit status $status instead of 2"
    [ -s "$dir/out.log" ] && fail "there is output"
    grep -q '^zelkad-sim: --load: "heavy" is no number of kilograms' "$dir/refusal.log" ||
      fail "wrong message"
    ;;
  *)
    fail "unknown case $case_name"
    ;;
esac
