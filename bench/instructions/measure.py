"""Counts the instructions of warm calls, and compares them with those that were recorded.

usage: measure.py PROGRAM FOLDER [--record] [--profile]

PROGRAM is instructions_bench, FOLDER is for what valgrind writes. The service is a process of its own that
valgrind knows nothing of. --record writes baseline.json beside this file, --profile shows where most of
the instructions of each kind of call are.
"""

import json
import os
import re
import shutil
import subprocess
import sys
from pathlib import Path

BASELINE = Path(__file__).with_name("baseline.json")
SHOWN_FUNCTIONS = 8

# The log's setting, the program's name of the kind, and what the table calls it.
KINDS = [
    ("silent", "read_standard", "read_standard, silent log"),
    ("default", "read_standard", "read_standard"),
    ("default", "read_baseinfo", "read_baseinfo"),
    ("default", "printTextById", "printTextById"),
    ("default", "PrintText", "a line queued by PrintText"),
    ("default", "BeginPrint", "a line printed by BeginPrint"),
    ("default", "record", "one log record"),
    ("silent", "record", "one rejected record"),
]


def fail(*lines):
    print("instructions:", *lines, sep="\n  ", file=sys.stderr)
    sys.exit(1)


def own_address():
    """An address of this machine that no other run uses, and as long as each other one."""
    number = os.getpid()
    return f"127.{200 + number // 10000 % 50}.{100 + number // 100 % 100}.{100 + number % 100}"


class Service:
    def __init__(self, program, address):
        self.process = subprocess.Popen([program, "service", address], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True)
        if self.process.stdout.readline() != "ready\n":
            fail(f"The service does not listen at {address}; see above.")

    def __enter__(self):
        return self

    def __exit__(self, *unused):
        self.process.stdin.close()  # which ends it
        self.process.wait()


def run(setting, address, folder):
    """Runs the program with this setting of the log. Returns the kinds that it measured, in order, with
    how many calls of each.

    Where the stack begins depends on the length of the arguments and of the environment, and on that what
    the C library does for a text that reaches into the next page: both are always the same."""
    command = ["valgrind", "--tool=callgrind", "--quiet", "--collect-atstart=no",
               "--toggle-collect=measured_*", "--dump-after=end_of_measurement",
               f"--callgrind-out-file={setting}", "./program", setting, address]
    done = subprocess.run(command, cwd=folder, env={"PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8"},
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, check=False)
    if done.returncode != 0:
        fail(f"The program ended with {done.returncode}:", done.stderr.strip() or done.stdout.strip())
    return kinds_of(done.stdout)


def kinds_of(text):
    """What the program says that it measured, in order, with how many calls of each."""
    return [(kind, int(count)) for kind, count in re.findall(r"^measured (\w+) (\d+)$", text, re.M)]


def total_of(path):
    """The instructions of a file of callgrind's."""
    total = re.search(r"^summary: (\d+)$", path.read_text(encoding="utf-8"), re.M) if path.exists() else None
    if total is None or int(total[1]) == 0:
        fail(f"valgrind counted nothing in {path}.")
    return int(total[1])


def measure(program, folder):
    """Returns for each title the instructions of a call, and the file with the profile of many."""
    address = own_address()
    titles = {(setting, kind): title for setting, kind, title in KINDS}
    results = {}
    with Service(program, address):
        for setting in ("silent", "default"):
            for number, (kind, calls) in enumerate(run(setting, address, folder), 1):
                path = folder / f"{setting}.{number}"
                results[titles[setting, kind]] = (total_of(path) / calls, path)
    missing = [title for title in titles.values() if title not in results]
    if missing:
        fail(f"The program did not measure: {', '.join(missing)}.")
    return results


def show(results, baseline):
    print(f"{'kind of call':<32}{'instructions':>14}{'baseline':>12}{'change':>10}")
    for _, _, title in KINDS:
        count = round(results[title][0])
        before = baseline.get(title)
        change = f"{100 * (count - before) / before:+.1f} %" if before else "-"
        recorded = f"{before:,}" if before else "-"
        print(f"{title:<32}{count:>14,}{recorded:>12}{change:>10}")


def short_name(name):
    """A function without what stands in its template's brackets, and without its parameters."""
    name = re.sub(r"'\d+$", "", name)  # of a function that calls itself
    while re.search(r"<[^<>]+>", name):
        name = re.sub(r"<[^<>]+>", "", name)
    name = re.sub(r"\([^()]*\)( const)?$", "", name)
    return name.split(" ")[-1]  # the type of the result is in front


def costs_of_functions(path):
    """What of a file of callgrind's was spent in each function itself, the most expensive one first.

    callgrind_annotate does not get through files that begin in the middle of calls."""
    names, costs = {}, {}
    function, is_call = None, False
    for line in path.read_text(encoding="utf-8").splitlines():
        named = re.match(r"(c?fn)=\((\d+)\)(?: (.*))?$", line)
        cost = re.match(r"[+*\-]?\d* (\d+)$", line)
        if named:
            names.setdefault(named[2], named[3])
            if named[1] == "fn":
                function = short_name(names[named[2]])
        elif line.startswith("calls="):
            is_call = True  # the next line is of what was called
        elif cost and not is_call:
            costs[function] = costs.get(function, 0) + int(cost[1])
        elif cost:
            is_call = False
    return sorted(costs.items(), key=lambda item: -item[1])


def show_profile(results):
    for _, _, title in KINDS:
        count, path = results[title]
        costs = costs_of_functions(path)
        total = sum(cost for _, cost in costs)
        if total != total_of(path):
            fail(f"{path} is not understood: its functions make up {total:,} of {total_of(path):,}.")
        print(f"\n{title}: {round(count):,}, most of them in")
        for function, cost in costs[:SHOWN_FUNCTIONS]:
            print(f"  {cost * count / total:>8,.0f}  {100 * cost / total:5.1f} %  {function[:100]}")


def main(arguments):
    options = {argument for argument in arguments if argument.startswith("--")}
    places = [argument for argument in arguments if not argument.startswith("--")]
    if len(places) != 2 or options - {"--record", "--profile"}:
        fail("usage: instructions [--record] [--profile]")
    if shutil.which("valgrind") is None:
        fail("valgrind is not installed; without it no instructions can be counted.",
             "On Debian: apt-get install valgrind")
    folder = Path(places[1])
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    (folder / "program").symlink_to(Path(places[0]).resolve())
    results = measure(places[0], folder)
    baseline = json.loads(BASELINE.read_text(encoding="utf-8")) if BASELINE.exists() else {}
    show(results, baseline)
    if "--profile" in options:
        show_profile(results)
    if "--record" in options:
        recorded = {title: round(results[title][0]) for _, _, title in KINDS}
        BASELINE.write_text(json.dumps(recorded, indent=2) + "\n", encoding="utf-8")
        print(f"\nRecorded in {os.path.relpath(BASELINE)}")


if __name__ == "__main__":
    main(sys.argv[1:])
