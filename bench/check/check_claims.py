"""Whether ./run bench would give what it should: report with a handful of everything.

usage: check_claims.py SOURCE BUILD FOLDER

Looks at what there is and whether it is a number, never at how large."""

import json
import shutil
import subprocess
import sys
from pathlib import Path

from checks import check, check_numbers, fresh

SECTIONS = {"claims": "claims", "parts": "micro", "print job": "print_job"}


def listed(build):
    rows = json.loads(subprocess.run([build / "bin/claims_bench", "--list"], check=True, stdout=subprocess.PIPE).stdout)
    return {(row["claim"], row["cores"]) for row in rows["rows"]}


def expected(build, said):
    """The claims that have to be there, by what the report says that it leaves out."""
    rows = listed(build)
    check(len(rows) > 15, "the program lists its claims")
    return {row for row in rows if row[1] == 1} if "left out: the rows of two cores" in said else rows


def report(source, build, folder):
    (folder / "docs").mkdir()
    shutil.copy(source / "docs/performance.md", folder / "docs")
    shutil.copy(source / "README.md", folder)
    command = [source / "bench/report/report", "--quick", "--build", build, "--results", folder / "results.json"]
    command += ["--record", "--pages", folder]
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, check=False)
    print(done.stderr, done.stdout, flush=True)
    check(done.returncode == 0, "the report ends well")
    return done.stdout, done.stderr


def check_results(results, rows):
    check(set(results) == {"source", "library", "machine", *SECTIONS.values()}, "all sections are there")
    check({(row["claim"], row["cores"]) for row in results["claims"]} == rows, "every claim is there")
    for row in results["claims"]:
        check((row["reached"] is None) == (row["limit"] is None), f"{row['claim']} is reached or not")
        check(len(row["runs"]) == 1 and row["pairs"] > 0, f"{row['claim']} was measured once")
        check(row["details"].keys() == row["runs"][0]["details"].keys(), f"{row['claim']} has its details")
    for row in [row for section in SECTIONS.values() for row in results[section]]:
        numbers = [row[name] for name in ("figure", "least", "most")]
        check(all(isinstance(number, (int, float)) for number in numbers), f"{row} has its figures")
    check(len(results["micro"]) >= 10 and len(results["print_job"]) == 5, "every part is there")
    check_numbers(results)


def check_tables(out, page, readme, results):
    for row in results["claims"]:
        check(row["claim"] in out, f"{row['claim']} is in the table")
        check(f"| `{row['claim']}`" in page, f"{row['claim']} is on the page")
    for title, section in SECTIONS.items():
        table = page.partition(f"<!-- figures: {title} -->")[2].partition(f"<!-- end of figures: {title} -->")[0]
        lines = [line for line in table.splitlines() if line.startswith("|")]
        check(len(lines) == len(results[section]) + 2, f"the page has every row of {title}")
        check(results["machine"]["date"] in table, f"the page says when {title} was measured")
    short = readme.partition("<!-- figures: speed -->")[2].partition("<!-- end of figures: speed -->")[0]
    limited = [row for row in results["claims"] if row["limit"] is not None]
    check(short.count("\n| ") == len(limited) + 1, "the README has every claim with a limit")


def main():
    source, build, folder = Path(sys.argv[1]), Path(sys.argv[2]), fresh(sys.argv[3])
    out, said = report(source, build, folder)
    results = json.loads((folder / "results.json").read_text(encoding="utf-8"))
    check_results(results, expected(build, said))
    page = (folder / "docs/performance.md").read_text(encoding="utf-8")
    check_tables(out, page, (folder / "README.md").read_text(encoding="utf-8"), results)


main()
