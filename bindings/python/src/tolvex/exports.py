"""The raw layer: every function of the library under its own name, with its records and constants.

A function answers a number, as its text says: a verdict (TOLVEX_OK, or TOLVEX_FAILED with the reason in
getLastErrCode), or a result code. Nothing is raised for a failure of a device or of the service. What
reaches the library is checked for its type, its range and its size: ValueError and TypeError are raised
for what ctypes would bend silently, LibraryNotLoaded where there is no library.

    weight = exports.tolvex_weight()
    if exports.read_standard(weight) == exports.TOLVEX_OK:
        print(bytes(weight)[1:8])

Texts are bytes: in the system's ANSI code page for PrintText, PrintTextByPaperWidth and PrintBitmapFile
(tolvex.encode_for_queue makes them), in UTF-8 for all others. Buffers are a bytearray, an array of
ctypes.c_char or a record; they belong to the caller, and a text that fills one has no NUL behind it.

Lines that are queued here come out with the next Receipt that is printed: use one of both for a job.
"""

from . import _exports
from ._exports import *  # noqa: F401,F403
from ._native import OutBuffer as OutBuffer

__all__ = _exports.__all__ + ["OutBuffer"]
