"""Whether ./run bench scale and ./run bench instructions would give what they should.

usage: check_scale.py SOURCE BUILD FOLDER

Measures a few points of each curve, draws and records them, and runs the program whose instructions are counted,
without anything that counts. Looks at what there is and whether it is a number, never at how large."""

import json
import os
import shutil
import subprocess
import sys
import xml.etree.ElementTree
from pathlib import Path

from checks import check, check_numbers, fresh

SOURCE, BUILD = Path(sys.argv[1]), Path(sys.argv[2])
sys.path += [str(SOURCE / "bench/scale"), str(SOURCE / "bench/instructions")]
import figures
import measure as instructions
import tables

SPREAD = {"least", "lower", "median", "upper", "most"}
# What each point of a curve has beside its spreads.
POINTS = {
    "job": {"lines"},
    "reply": {"bytes"},
    "threads": {"threads", "calls", "cores"},
    "clients": {"clients"},
    "log": {"filled"},
}


def check_curve(name, curve):
    check(curve["setting"] and curve["machine"], f"{name} says what was measured, and where")
    check(len(curve["points"]) >= 3, f"{name} has points")
    for point in curve["points"]:
        spreads = [value for value in point.values() if isinstance(value, dict)]
        check(POINTS[name] <= point.keys() and len(spreads) >= 3, f"a point of {name} has its figures")
        for spread in spreads:
            check(spread.keys() == SPREAD, f"a figure of {name} has its spread")
            order = [spread[part] for part in ("least", "lower", "median", "upper", "most")]
            check(order == sorted(order), f"the spread of {name} is in order")
    check_numbers(curve, name)


def check_curves(folder):
    kept = folder / "scale.json"
    subprocess.run([SOURCE / "bench/scale/measure", "--quick", BUILD, kept], check=True)
    curves = figures.load(kept)
    check(curves.keys() == POINTS.keys() == tables.TABLES.keys() == figures.BLOCKS.keys(), "every curve is there")
    for name, curve in curves.items():
        check_curve(name, curve)
    cores = {point["cores"] for point in curves["threads"]["points"]}
    check(cores == ({"one", "all"} if len(os.sched_getaffinity(0)) > 1 else {"one"}), "threads ran on the cores there are")
    return kept, curves


def check_page(folder, kept, curves):
    page = folder / "scale.md"
    shutil.copy(SOURCE / "docs/scale.md", page)
    subprocess.run([SOURCE / "bench/scale/record", kept, page], check=True)
    text = page.read_text(encoding="utf-8")
    for name, curve in curves.items():
        header, rows = tables.TABLES[name](curve)
        table = text.partition(f"<!-- scale: {name} -->")[2].partition("<!-- end -->")[0]
        lines = [line for line in table.splitlines() if line.startswith("|")]
        check(len(rows) == len(curve.get("changes", curve["points"])), f"the table of {name} has every point")
        check(len(lines) == len(rows) + 2, f"the page has every row of {name}")
        check(all(line.count("|") == len(header) + 1 for line in lines), f"the table of {name} is whole")


def check_pictures(folder, kept, curves):
    if shutil.which("gnuplot") is None:
        print("left out: the pictures, since gnuplot is not installed")
        return
    subprocess.run([SOURCE / "bench/scale/draw", kept, folder], check=True)
    for name in curves:
        picture = xml.etree.ElementTree.parse(folder / f"scale-{name}.svg")
        check(len(list(picture.iter("{http://www.w3.org/2000/svg}path"))) > 20, f"the picture of {name} has curves")


def check_instructions(folder):
    program, address = BUILD / "bin/instructions_bench", instructions.own_address()
    baseline = json.loads(instructions.BASELINE.read_text(encoding="utf-8"))
    check(baseline.keys() == {title for _, _, title in instructions.KINDS}, "the baseline has every kind of call")
    with instructions.Service(program, address):
        for setting in ("silent", "default"):
            done = subprocess.run([program, setting, address], cwd=folder, check=True, text=True, stdout=subprocess.PIPE)
            kinds = instructions.kinds_of(done.stdout)
            expected = {kind for its, kind, _ in instructions.KINDS if its == setting}
            check({kind for kind, _ in kinds} == expected, f"every kind of call was made with the setting {setting}")
            check(all(count > 0 for _, count in kinds), "every kind of call was made")


def main():
    folder = fresh(sys.argv[3])
    kept, curves = check_curves(folder)
    check_page(folder, kept, curves)
    check_pictures(folder, kept, curves)
    check_instructions(folder)


main()
