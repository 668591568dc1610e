"""Takes the library along, into the same place of the package: it is loaded from there."""

from pathlib import Path

import tolvex

_folder = Path(tolvex.__file__).absolute().parent / "lib"

binaries = [(str(file), "tolvex/lib") for file in sorted(_folder.glob("*tolvex_dll.*"))]
