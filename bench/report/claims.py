"""Runs claims_bench, and tells which claims are reached."""

import json
import os
import statistics
import subprocess
import sys


class Failed(Exception):
    """A benchmark did not come to its end."""


def run_json(command):
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, text=True, check=False)
    if done.returncode != 0:
        raise Failed(f"{command[0].name} failed; see above")
    return json.loads(done.stdout)


def rows_of(options):
    rows = run_json([options.bin / "claims_bench", "--list"])["rows"]
    if len(os.sched_getaffinity(0)) == 1:
        print("  left out: the rows of two cores, since there is only one", file=sys.stderr)
        rows = [row for row in rows if row["cores"] == 1]
    if not options.claim:
        return rows
    names = sorted({row["claim"] for row in rows})
    for name in options.claim:
        if name not in names:
            raise Failed(f'there is no claim "{name}"; there are:\n     ' + "\n     ".join(names))
    return [row for row in rows if row["claim"] in options.claim]


def once(options, row):
    command = [options.bin / "claims_bench", row["claim"], "--cores", row["cores"], "--json"]
    if options.pairs:
        command += ["--pairs", options.pairs]
    if options.library:
        command += ["--library", options.library]
    return run_json(command)


def summed_up(row, runs):
    values = [run["value"] for run in runs]
    middle = statistics.median(values)
    details = {name: statistics.median(run["details"][name] for run in runs) for name in runs[0]["details"]}
    return {
        **row,
        "figure": middle,
        "least": min(values),
        "most": max(values),
        "reached": None if row["limit"] is None else middle <= row["limit"],
        "pairs": runs[0]["pairs"],
        "details": details,
        "runs": [{name: run[name] for name in ("value", "lower", "upper", "details")} for run in runs],
    }


def measure(options):
    """All rows in turns, so that what disturbs the machine for a while disturbs one run of each."""
    rows = rows_of(options)
    runs = [[] for _ in rows]
    for turn in range(options.runs):
        for row, done in zip(rows, runs):
            print(f"  run {turn + 1} of {options.runs}: {row['claim']}, cores: {row['cores']}", file=sys.stderr)
            done.append(once(options, row))
    return [summed_up(row, done) for row, done in zip(rows, runs)]


DECIMALS = {"x": 3, "ns": 1, "ms": 2, "bytes": 0}


def shown(value, unit):
    text = f"{value:.{DECIMALS[unit]}f}" if unit else f"{value:.3g}"
    return text if unit in ("x", "") else f"{text} {unit}"


def cells(row):
    """Claim, figure, spread, limit, whether it is reached: as a table shows them."""
    unit = row["unit"]
    return [
        row["claim"] if row["cores"] == 1 else f"{row['claim']}, 2 cores",
        shown(row["figure"], unit),
        f"{shown(row['least'], unit)} to {shown(row['most'], unit)}",
        "-" if row["limit"] is None else f"{row['limit']:g}" + (f" {unit}" if unit not in ("x", "") else ""),
        {True: "yes", False: "NO", None: "-"}[row["reached"]],
    ]


def aligned(rows):
    """The first column to the left, the others to the right."""
    widths = [max(len(row[at]) for row in rows) for at in range(len(rows[0]))]
    for row in rows:
        words = [cell.rjust(width) if at else cell.ljust(width) for at, (cell, width) in enumerate(zip(row, widths))]
        yield " | ".join(words).rstrip()


def table(rows):
    lines = list(aligned([["claim", "figure", "spread", "at most", "reached?"]] + [cells(row) for row in rows]))
    missed = [row["claim"] for row in rows if row["reached"] is False]
    if missed:
        lines += ["", f"NOT reached: {', '.join(missed)}"]
    return lines
