"""Tells the platform tag of the wheel that a library for Linux can be in.

usage: platform_tag.py LIBRARY

A wheel with the tag manylinux_2_N runs where glibc is 2.N or newer. What of the other libraries there may be asked
for goes with that: the newest symbols that the system of that time had.
"""

import re
import subprocess
import sys
from pathlib import Path
from typing import Dict, List, Tuple

# Highest symbol version that may be asked for, by the minor version of glibc: as the profiles of manylinux have it.
ALLOWED: Dict[str, List[Tuple[int, Tuple[int, ...]]]] = {
    "GLIBCXX": [(17, (3, 4, 19)), (24, (3, 4, 22)), (27, (3, 4, 24)), (28, (3, 4, 24)), (31, (3, 4, 28)), (34, (3, 4, 29)), (35, (3, 4, 30)), (39, (3, 4, 33))],
    "CXXABI": [(17, (1, 3, 7)), (24, (1, 3, 10)), (27, (1, 3, 11)), (31, (1, 3, 12)), (34, (1, 3, 13)), (39, (1, 3, 15))],
    "GCC": [(17, (4, 8, 0)), (24, (6, 0, 0)), (27, (7, 0, 0)), (31, (10, 0, 0)), (34, (11, 0, 0)), (35, (12, 0, 0)), (39, (14, 0, 0))],
}  # fmt: skip
# Those that every system has; anything else would have to be in the wheel.
LIBRARIES = {
    "libc.so.6",
    "libm.so.6",
    "libgcc_s.so.1",
    "libstdc++.so.6",
    "libpthread.so.0",
    "libdl.so.2",
    "ld-linux-x86-64.so.2",
}
LEAST = 17


def version_of(text: str) -> Tuple[int, ...]:
    return tuple(int(part) for part in text.split("."))


def least_glibc(family: str, version: Tuple[int, ...]) -> int:
    """The minor version of the first glibc whose systems have a symbol version."""
    if family == "GLIBC":
        return version[1]
    for minor, highest in ALLOWED[family]:
        if version <= highest:
            return minor
    raise SystemExit(f"platform_tag.py: no profile has {family}_{'.'.join(map(str, version))}: extend the table.")


def tag_of(needed: List[str], versions: List[str]) -> str:
    """The tag for a library that needs these libraries and symbol versions, such as "GLIBC_2.33"."""
    strange = sorted(set(needed) - LIBRARIES)
    if strange:
        raise SystemExit(f"platform_tag.py: the library needs {', '.join(strange)}, which not every system has.")
    minor = LEAST
    for name in versions:
        family, _, number = name.partition("_")
        minor = max(minor, least_glibc(family, version_of(number)))
    return f"manylinux_2_{minor}_x86_64"


def read(library: Path) -> Tuple[List[str], List[str]]:
    """What a library needs: other libraries, and versions of their symbols."""

    def readelf(option: str) -> str:
        command = ["readelf", option, "--wide", str(library)]
        return subprocess.run(command, check=True, stdout=subprocess.PIPE, universal_newlines=True).stdout

    needed = re.findall(r"\(NEEDED\).*\[(.+)\]", readelf("--dynamic"))
    versions = re.findall(r"Name: ((?:GLIBC|GLIBCXX|CXXABI|GCC)_[0-9.]+)", readelf("--version-info"))
    if not needed or not versions:
        raise SystemExit(f"platform_tag.py: {library} tells nothing of what it needs.")
    return needed, versions


if __name__ == "__main__":
    if len(sys.argv) != 2:
        raise SystemExit(__doc__)
    print(tag_of(*read(Path(sys.argv[1]))))
