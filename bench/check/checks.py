"""What the checks of the benchmarks have in common."""

import math
import shutil
import sys
from pathlib import Path


def check(holds, what):
    if not holds:
        sys.exit(f"NOT so: {what}")


def check_numbers(value, where=""):
    """No number in it, however deep, is infinite or none."""
    if isinstance(value, dict):
        for name, part in value.items():
            check_numbers(part, f"{where} {name}")
    elif isinstance(value, list):
        for part in value:
            check_numbers(part, where)
    elif isinstance(value, float):
        check(math.isfinite(value), f"{where} is a number")


def fresh(folder):
    """The folder, with nothing in it."""
    shutil.rmtree(folder, ignore_errors=True)
    Path(folder).mkdir(parents=True)
    return Path(folder).resolve()
