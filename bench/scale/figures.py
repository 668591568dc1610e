"""Reads what scale_bench measured, as build/bench/scale.json has it, into rows of plain numbers."""

import json

SPREAD = ("median", "lower", "upper")


def load(path):
    """The curves by their names."""
    with open(path, encoding="utf-8") as file:
        return json.load(file)


def spreads(point, *names):
    """Median and quartiles of each of these members, one after another."""
    return [point[name][part] for name in names for part in SPREAD]


def job(curve):
    return [[[p["lines"], *spreads(p, "queue_per_line", "print_per_line", "memory")] for p in curve["points"]]]


def reply(curve):
    return [[[p["bytes"], *spreads(p, "library", "bare", "ratio", "difference")] for p in curve["points"]]]


def threads(curve):
    """A block for each way to call and for each share of the machine, in the order of the measuring."""
    blocks = {}
    for p in curve["points"]:
        row = [p["threads"], *spreads(p, "rate", "p50", "p99", "longest", "unevenness")]
        blocks.setdefault((p["calls"], p["cores"]), []).append(row)
    return list(blocks.values())


def clients(curve):
    names = ("rate", "p50", "p99", "longest", "connected", "processor", "resident", "unevenness")
    return [[[p["clients"], *spreads(p, *names)] for p in curve["points"]]]


def log(curve):
    """Ordinary records by fill level, then those that changed the file, then that which emptied the ring."""
    changes = [[p["filled"], *spreads(p, "time")] for p in curve["changes"]]
    return [
        [[p["filled"], *spreads(p, "median", "p99", "longest")] for p in curve["points"]],
        changes[:-1],
        changes[-1:],
    ]


BLOCKS = {"job": job, "reply": reply, "threads": threads, "clients": clients, "log": log}
