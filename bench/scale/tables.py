"""The figures of each curve as a person reads them: a header and rows of cells."""


def number(value):
    """Three digits that count, without an exponent."""
    if value >= 100:
        return f"{value:,.0f}"
    return f"{value:.3g}"


def spread(figure, unit=1):
    """Median and quartiles, in the unit."""
    return f"{number(figure['median'] / unit)} [{number(figure['lower'] / unit)}, {number(figure['upper'] / unit)}]"


def job(curve):
    header = ["lines", "`PrintText`, us a line", "`BeginPrint`, us a line", "memory, KiB", "jobs"]
    return header, [
        [
            number(p["lines"]),
            spread(p["queue_per_line"]),
            spread(p["print_per_line"]),
            spread(p["memory"], 1024),
            str(p["repetitions"]),
        ]
        for p in curve["points"]
    ]


def reply(curve):
    header = ["bytes", "library, us", "bare, us", "difference, us", "ratio", "pairs"]
    return header, [
        [number(p["bytes"]), *(spread(p[name]) for name in ("library", "bare", "difference", "ratio")), str(p["pairs"])]
        for p in curve["points"]
    ]


def threads(curve):
    header = ["threads", "calls", "cores", "calls a second", "median, us", "99 %, us", "longest, us", "most / fewest"]
    return header, [
        [
            str(p["threads"]),
            p["calls"],
            p["cores"],
            *(spread(p[name]) for name in ("rate", "p50", "p99", "longest", "unevenness")),
        ]
        for p in curve["points"]
    ]


def clients(curve):
    header = ["clients", "exchanges a second", "median, us", "99 %, us", "longest, ms", "until all are answered, ms"]
    header += ["simulator's cores", "its memory, MiB"]
    return header, [
        [
            str(p["clients"]),
            *(spread(p[name]) for name in ("rate", "p50", "p99")),
            spread(p["longest"], 1000),
            spread(p["connected"], 1000),
            spread(p["processor"]),
            spread(p["resident"], 1 << 20),
        ]
        for p in curve["points"]
    ]


def log(curve):
    """Every tenth part of the ring, and the records that open its files."""
    points = curve["points"]
    header = ["MiB in the ring", "median, us", "99 %, us", "longest of a MiB, us", "then the next file, us"]
    rows = []
    for change in curve["changes"]:
        p = min(points, key=lambda point: abs(point["filled"] - change["filled"] + 2.6e6))
        time = spread(change["time"]) + (" (all are emptied)" if change["emptied"] else "")
        rows.append([number(p["filled"] / (1 << 20)), spread(p["median"]), spread(p["p99"]), spread(p["longest"]), time])
    return header, rows


TABLES = {"job": job, "reply": reply, "threads": threads, "clients": clients, "log": log}
