"""Runs micro_bench, by Google Benchmark."""

import json
import statistics
import subprocess
import tempfile

import claims


def run(options):
    """What it measured. Its standard output has the library's log in between; on standard error it warns of its own
    library's build, which only reads the clock."""
    with tempfile.NamedTemporaryFile(suffix=".json") as out:
        command = [
            options.bin / "micro_bench",
            f"--benchmark_out={out.name}",
            "--benchmark_out_format=json",
            f"--benchmark_repetitions={options.runs}",
        ]
        if options.quick:
            command.append("--benchmark_min_time=0.001")
        done = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=False)
        if done.returncode != 0:
            raise claims.Failed(f"micro_bench failed: {done.stderr}")
        return json.load(out)


def measure(options):
    """The processor's time for each, in nanoseconds."""
    found = run(options)
    times = {}
    for one in found["benchmarks"]:
        if "error_message" in one:
            raise claims.Failed(f"{one['run_name']}: {one['error_message']}")
        if one["run_type"] == "iteration":
            times.setdefault(one["run_name"], []).append(one["cpu_time"])
    return [
        {"name": name, "figure": statistics.median(each), "least": min(each), "most": max(each)}
        for name, each in times.items()
    ]


def shown(nanoseconds):
    if nanoseconds < 1000:
        return f"{nanoseconds:.1f} ns"
    return f"{nanoseconds / 1000:.2f} us"


def cells(row):
    return [row["name"].replace("_", " "), shown(row["figure"]), f"{shown(row['least'])} to {shown(row['most'])}"]


def table(rows):
    return list(claims.aligned([["part", "time", "spread"]] + [cells(row) for row in rows]))
