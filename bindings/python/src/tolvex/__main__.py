"""Looks whether the library loads and the service answers, and says what to do if not.

usage: python -m tolvex [--library FILE] [--server ADDRESS]
Exit status: 0 all is well, 1 something is not.
"""

import argparse
import sys
from typing import List, Optional

import tolvex

from . import _loader


def _examine(library: Optional[str], server: Optional[str]) -> None:
    print(f"tolvex {tolvex.__version__} for Python {sys.version.split()[0]}, {_loader.target_of_process()}")
    path = tolvex.load(library)
    version = _loader.library_version(path)
    print(f"library: {path}, {'version ' + version if version else 'without a version'}, {_loader.needed_target()}")
    if server:
        tolvex.set_server(server)
    scale = tolvex.Scale().info()
    print(f"weighing: the service answers, scale {scale.system_version!r} in {scale.unit}")
    print(f"printing: the service answers, printers {', '.join(tolvex.printers()) or 'none'}")


def main(arguments: Optional[List[str]] = None) -> int:
    parser = argparse.ArgumentParser(
        prog="python -m tolvex", description="Looks whether the library loads and the service answers."
    )
    parser.add_argument("--library", metavar="FILE", help="the library to load, instead of the package's own")
    parser.add_argument("--server", metavar="ADDRESS", help="where the service is, instead of what the INI file says")
    options = parser.parse_args(arguments)
    try:
        _examine(options.library, options.server)
    except (tolvex.LibraryNotLoaded, tolvex.TolvexError, ValueError) as error:
        print(error, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
