"""Finds and loads the library, and tells why that does not work.

Nothing is loaded when the package is imported: the first call does it, or load(). The library stays loaded
until the process ends, for its connections and its memory do as well.
"""

import ctypes
import os
import struct
import sys
import threading
from pathlib import Path
from typing import List, NamedTuple, Optional, Tuple, Union

from ._errors import LibraryNotLoaded

ON_WINDOWS = sys.platform == "win32"
FILE_NAME = "tolvex_dll.dll" if ON_WINDOWS else "libtolvex_dll.so"
VARIABLE = "TOLVEX_LIBRARY"

_HEAD_BYTES = 4096
# What stands before the version in the library's first log line.
_BANNER = b"======= tolvex_dll V"

_ELF_MACHINES = {3: "x86", 62: "x64", 40: "ARM", 183: "ARM64"}
_PE_MACHINES = {0x14C: "x86", 0x8664: "x64", 0x1C4: "ARM", 0xAA64: "ARM64"}
_BITS = {"x86": 32, "x64": 64, "ARM": 32, "ARM64": 64}
_MACH_O = (b"\xfe\xed\xfa\xce", b"\xfe\xed\xfa\xcf", b"\xce\xfa\xed\xfe", b"\xcf\xfa\xed\xfe", b"\xca\xfe\xba\xbe")


class Target(NamedTuple):
    """What a library or a process is made for: "Windows" or "Linux", and "x64", "x86" ..."""

    system: str
    machine: str

    def __str__(self) -> str:
        bits = f"{_BITS[self.machine]}-bit " if self.machine in _BITS else ""
        return f"{bits}{self.system} ({self.machine})"


def target_of_process() -> Target:
    """What this Python is made for, as the library's files tell it."""
    system = {"win32": "Windows", "linux": "Linux", "darwin": "macOS"}.get(sys.platform, sys.platform)
    bits = struct.calcsize("P") * 8
    machine = _machine_name()
    if _BITS.get(machine) != bits:
        # A 32-bit process on a 64-bit system, which names the system's processor.
        machine = {("x64", 32): "x86", ("ARM64", 32): "ARM"}.get((machine, bits), f"{machine}, {bits} bits")
    return Target(system, machine)


def _machine_name() -> str:
    if ON_WINDOWS:
        # The interpreter's own build: platform.machine() tells the machine's, also where x64 is emulated.
        for mark, name in (("ARM64", "ARM64"), ("AMD64", "x64"), ("Intel", "x86")):
            if mark in sys.version:
                return name
    import platform

    name = platform.machine().lower()
    known = {"x86_64": "x64", "amd64": "x64", "i386": "x86", "i686": "x86", "aarch64": "ARM64", "arm64": "ARM64"}
    return known.get(name, name or "unknown")


def target_of_head(head: bytes) -> Tuple[Optional[Target], str]:
    """What the head of a file says that it is made for.

    Returns:
        The target and "", or None and what the file is instead.
    """
    if not head:
        return None, "is empty"
    if head[:4] == b"\x7fELF":
        if len(head) < 20:
            return None, "is damaged: it ends in its ELF header"
        order = ">" if head[5] == 2 else "<"
        number = int(struct.unpack_from(order + "H", head, 18)[0])
        return Target("Linux", _ELF_MACHINES.get(number, f"processor {number}")), ""
    if head[:2] == b"MZ":
        offset = int(struct.unpack_from("<I", head, 0x3C)[0]) if len(head) >= 0x40 else len(head)
        if head[offset : offset + 4] != b"PE\0\0" or len(head) < offset + 6:
            return None, "is damaged: it has no PE header"
        number = int(struct.unpack_from("<H", head, offset + 4)[0])
        return Target("Windows", _PE_MACHINES.get(number, f"processor {number:#x}")), ""
    if head[:4] in _MACH_O:
        return None, "is for macOS"
    return None, "is no library: it has neither an ELF nor a PE header"


def missing_part(head: bytes, size: int) -> str:
    """How a library for Linux is cut short, or "" if all of it is there.

    The system looks for it in the file's pages without asking for the file's size, and ends the process with SIGBUS.

    Args:
        head: The head of a 64-bit file, with its program headers.
        size: How many bytes the file has.
    """
    if len(head) < 64 or head[:6] != b"\x7fELF\2\1":
        return ""
    offset, sections = struct.unpack_from("<QQ", head, 32)
    step, count, section_size, section_count = struct.unpack_from("<HHHH", head, 54)
    whole = max(offset + step * count, sections + section_size * section_count)
    for at in range(offset, min(offset + step * count, len(head) - 55), step or 56):
        kind, begin, length = struct.unpack_from("<I4xQ16xQ", head, at)
        if kind == 1:  # what is loaded
            whole = max(whole, begin + length)
    return f"is damaged: it has {size} of {whole} bytes" if size < whole else ""


def needed_target() -> Target:
    """What a library for this process has to be made for: tolvex exists for x64 only."""
    return Target(target_of_process().system, "x64")


def unfitness(path: Path) -> str:
    """Why a file cannot be the library of this process, or "" if its head says that it can."""
    if path.is_dir():
        return "is a folder"
    try:
        with open(path, "rb") as file:
            head = file.read(_HEAD_BYTES)
            size = os.fstat(file.fileno()).st_size
    except FileNotFoundError:
        return "is missing"
    except OSError as error:
        return f"cannot be read: {error.strerror or error}"
    target, instead = target_of_head(head)
    if target is None:
        return instead
    if target != needed_target():
        return f"is for {target}, needed is {needed_target()}"
    return missing_part(head, size)


def library_version(path: Path) -> str:
    """The version that a library's file carries, or "" where it has none."""
    content = path.read_bytes()
    at = content.find(_BANNER)
    if at < 0:
        return ""
    text = content[at + len(_BANNER) : at + len(_BANNER) + 32]
    length = next((i for i, byte in enumerate(text) if byte not in b"0123456789."), len(text))
    return text[:length].decode("ascii")


def places(explicit: Optional[Path]) -> List[Path]:
    """The files to try, in this order. A path without a folder is looked for by the system."""
    if explicit is not None:
        return [explicit.absolute()]
    named = os.environ.get(VARIABLE)
    if named:
        return [Path(named).absolute()]
    folders = [Path(__file__).absolute().parent / "lib"]
    main = getattr(sys.modules.get("__main__"), "__file__", None)
    if main:
        folders.append(Path(main).absolute().parent)
    if sys.executable:
        folders.append(Path(sys.executable).absolute().parent)
    files: List[Path] = []
    for folder in folders:
        if folder / FILE_NAME not in files:
            files.append(folder / FILE_NAME)
    return files + [Path(FILE_NAME)]


def _open(path: Path) -> ctypes.CDLL:
    if ON_WINDOWS and path == Path(FILE_NAME):
        return ctypes.CDLL(str(path), winmode=0)  # the system's own order, PATH included
    return ctypes.CDLL(str(path))


def _try(path: Path) -> Tuple[Optional[ctypes.CDLL], str]:
    """The library, or what is wrong with the file."""
    by_name = path == Path(FILE_NAME)
    if not by_name:
        reason = unfitness(path)
        if reason:
            return None, reason
    try:
        library = _open(path)
    except OSError as error:
        words = str(error).strip()
        # Of a file that is there: Windows and ctypes do not tell it apart from what it needs.
        if isinstance(error, FileNotFoundError) and not by_name:
            words += " The file is there: a DLL that it needs is missing."
        return None, ("is not found by the system: " if by_name else "cannot be loaded: ") + words
    from ._native import EXPORTS

    lacking = [name for name in EXPORTS if not hasattr(library, name)]
    if lacking:
        return None, f"is not tolvex, or another version of it: it lacks {lacking[0]}"
    return library, ""


def _advice(explicit: Optional[Path]) -> str:
    needed, running = needed_target(), target_of_process()
    if needed.system not in ("Windows", "Linux"):
        return "There is no tolvex for this system: use Windows x64 or Linux x86-64."
    if running.machine == "x86":
        return "tolvex is 64-bit only: run the 64-bit build of Python, and make the application with that one."
    if running != needed:
        return f"tolvex is for x64 processors only: run a Python for {needed}."
    if explicit is not None:
        return f"Pass load() the path of the {FILE_NAME} for {needed}, or no path where the package has it inside."
    if os.environ.get(VARIABLE):
        return f"Let {VARIABLE} name the {FILE_NAME} for {needed}, or unset it where the package has it inside."
    return (
        f"Install the wheel for {needed}, which has the library inside, or let {VARIABLE} name the "
        f"{FILE_NAME} for it."
    )


class _Loaded(NamedTuple):
    library: ctypes.CDLL
    path: Path


_lock = threading.Lock()
_loaded: Optional[_Loaded] = None


def _load(explicit: Optional[Path]) -> _Loaded:
    running = target_of_process()
    failures: List[Tuple[str, str]] = []
    for path in places(explicit):
        library, reason = _try(path)
        if library is not None:
            return _Loaded(library, _path_of(library, path))
        failures.append((str(path), reason))
    process = f"Python {sys.version.split()[0]} for {running}"
    raise LibraryNotLoaded(failures, process, str(needed_target()), _advice(explicit))


def _path_of(library: ctypes.CDLL, path: Path) -> Path:
    """Where a library lies that the system has found by its name."""
    if path.is_absolute():
        return path
    if ON_WINDOWS:
        kernel32 = getattr(ctypes, "WinDLL")("kernel32")
        buffer = ctypes.create_unicode_buffer(32768)
        length = kernel32.GetModuleFileNameW(ctypes.c_void_p(library._handle), buffer, len(buffer))
        return Path(buffer.value) if length else path
    try:
        with open("/proc/self/maps", encoding="utf-8", errors="surrogateescape") as maps:
            lines = [line.rstrip("\n") for line in maps]
    except OSError:
        return path
    names = [line.split(None, 5)[5] for line in lines if line.endswith("/" + FILE_NAME)]
    return Path(names[0]) if names else path


def load(path: Union[str, "os.PathLike[str]", None] = None) -> Path:
    """Loads the library, which otherwise the first call does.

    Args:
        path: The library's file. Where it is left out, these are tried, in this order: what the environment
            variable TOLVEX_LIBRARY names (if it is set, only that), inside the package, beside the program
            and the interpreter, and what the system finds by the name.

    Returns:
        The file that was loaded.

    Raises:
        LibraryNotLoaded: None of the files can be used; the text says why for each.
        ValueError: Another file has been loaded before.
    """
    global _loaded
    explicit = None if path is None else Path(os.fspath(path))
    with _lock:
        if _loaded is None:
            _loaded = _load(explicit)
        elif explicit is not None and not _same(explicit, _loaded.path):
            raise ValueError(f"{_loaded.path} has been loaded already, and cannot be exchanged for {explicit}")
        return _loaded.path


def _same(first: Path, second: Path) -> bool:
    try:
        return os.path.samefile(first, second)
    except OSError:
        return first.absolute() == second.absolute()


def loaded() -> ctypes.CDLL:
    """The library, loaded if need be. Raises LibraryNotLoaded."""
    if _loaded is None:
        load()
    assert _loaded is not None
    return _loaded.library
