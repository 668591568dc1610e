"""For PyInstaller, which asks installed packages where their hooks are."""

from pathlib import Path
from typing import List


def get_hook_dirs() -> List[str]:
    """The folder with the hook that takes the library along."""
    return [str(Path(__file__).absolute().parent)]
