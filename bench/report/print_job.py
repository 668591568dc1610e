"""Runs print_job_bench: what the queue of a job costs."""

import statistics

import claims

ROWS = {
    "few_us": "1,000 lines",
    "many_us": "10,000 lines",
    "ratio": "ratio of the two, 10 is linear",
    "allocations_per_line": "heap allocations for each line",
    "long_us": "one line of 1 MB",
}


def measure(options):
    command = [options.bin / "print_job_bench", options.jobs or 200, "--json"]
    runs = [claims.run_json(command) for _ in range(options.runs)]
    return [
        {
            "name": name,
            "figure": statistics.median(run[name] for run in runs),
            "least": min(run[name] for run in runs),
            "most": max(run[name] for run in runs),
        }
        for name in ROWS
    ]


def shown(name, value):
    return f"{value:.0f} us" if name.endswith("_us") else f"{value:.2f}"


def cells(row):
    name = row["name"]
    spread = f"{shown(name, row['least'])} to {shown(name, row['most'])}"
    return [ROWS[name], shown(name, row["figure"]), spread]


def table(rows):
    return list(claims.aligned([["print job", "figure", "spread"]] + [cells(row) for row in rows]))
