"""Finding and loading the library, in Python processes of their own."""

import importlib.util
import shutil
import struct
import sys
import tempfile
import unittest
from pathlib import Path
from typing import Optional, Tuple
from unittest import mock

from support import ADDRESS, LIBRARY, SOURCE, Simulator, python, python_file

import tolvex
from tolvex import _loader
from tolvex._loader import Target, target_of_head

ON_WINDOWS = sys.platform == "win32"
NEEDED = "64-bit Windows (x64)" if ON_WINDOWS else "64-bit Linux (x64)"

LOAD = (
    "import sys, tolvex\n"
    "try:\n"
    "    print('loaded', tolvex.load(*sys.argv[1:]))\n"
    "except tolvex.LibraryNotLoaded as error:\n"
    "    print(error)\n"
)


def elf(machine: int, bits: int) -> bytes:
    return (b"\x7fELF" + bytes([bits // 32, 1, 1])).ljust(18, b"\0") + struct.pack("<H", machine).ljust(46, b"\0")


def pe(machine: int) -> bytes:
    return b"MZ".ljust(0x3C, b"\0") + struct.pack("<I", 0x40) + b"PE\0\0" + struct.pack("<H", machine)


class Files(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = Path(tempfile.mkdtemp(prefix="tolvex-loading-"))
        self.addCleanup(shutil.rmtree, self.folder, True)
        self.file = self.folder / _loader.FILE_NAME

    def load(self, *arguments: str, script: str = LOAD, **changes: Optional[str]) -> str:
        result = python(script, *arguments, **changes)
        self.assertEqual(result.returncode, 0, result.stderr)
        return result.stdout

    def refusal(self, content: Optional[bytes]) -> str:
        if content is not None:
            self.file.write_bytes(content)
        said = self.load(str(self.file), TOLVEX_LIBRARY=None)
        self.assertIn("The tolvex library cannot be loaded. Tried:", said)
        self.assertIn(f"needed is a library for {NEEDED}", said)
        self.assertIn(f"Python {sys.version.split()[0]} for {NEEDED}", said)
        self.assertIn("What to do: ", said)
        return said

    def test_the_file_that_is_named_is_loaded(self) -> None:
        copy = shutil.copy(LIBRARY, self.file)
        self.assertEqual(self.load(str(copy), TOLVEX_LIBRARY="nowhere"), f"loaded {self.file}\n")

    def test_the_variable_names_the_only_file_that_is_tried(self) -> None:
        self.assertEqual(self.load(TOLVEX_LIBRARY=LIBRARY), f"loaded {LIBRARY}\n")
        said = self.load(TOLVEX_LIBRARY=str(self.file))
        self.assertIn(f"Tried:\n  {self.file} is missing\nThis is", said)
        self.assertIn("TOLVEX_LIBRARY", said)

    def test_a_relative_name_counts_from_the_working_folder(self) -> None:
        shutil.copy(LIBRARY, self.file)
        said = self.load(
            str(self.folder),
            script="import os, sys, tolvex\nos.chdir(sys.argv[1])\nprint(tolvex.load(tolvex._loader.FILE_NAME))",
        )
        self.assertEqual(said, f"{self.file}\n")

    def test_the_package_comes_before_the_program_and_the_system(self) -> None:
        package = self.folder / "tolvex"
        shutil.copytree(SOURCE / "tolvex", package, ignore=shutil.ignore_patterns("lib", "__pycache__"))
        (package / "lib").mkdir()
        inside = Path(shutil.copy(LIBRARY, package / "lib" / _loader.FILE_NAME))
        program = self.folder / "program" / "main.py"
        program.parent.mkdir()
        program.write_text(LOAD)
        beside = Path(shutil.copy(LIBRARY, program.parent / _loader.FILE_NAME))

        def loaded() -> str:
            result = python_file(str(program), TOLVEX_LIBRARY=None, PYTHONPATH=str(self.folder))
            self.assertEqual(result.returncode, 0, result.stderr)
            return result.stdout

        self.assertEqual(loaded(), f"loaded {inside}\n")
        inside.unlink()
        self.assertEqual(loaded(), f"loaded {beside}\n")
        beside.write_bytes(elf(3, 32))
        said = loaded()
        self.assertIn(f"{inside} is missing\n  {beside} is for 32-bit Linux (x86)", said)
        self.assertIn(f"{_loader.FILE_NAME} is not found by the system: ", said)
        self.assertIn("Install the wheel", said)

    @unittest.skipIf(ON_WINDOWS, "LD_LIBRARY_PATH is of Linux")
    def test_the_systems_own_search_comes_last(self) -> None:
        found = self.load(TOLVEX_LIBRARY=None, LD_LIBRARY_PATH=str(Path(LIBRARY).parent))
        self.assertEqual(found, f"loaded {LIBRARY}\n")

    def test_a_missing_file_is_told(self) -> None:
        self.assertIn(f"{self.file} is missing", self.refusal(None))

    def test_what_is_no_library_is_told(self) -> None:
        self.assertIn(
            "is no library: it has neither an ELF nor a PE header", self.refusal(b"[zelkad]\nip_addr=127.0.0.1\n")
        )
        self.assertIn("is empty", self.refusal(b""))

    def test_a_folder_is_told(self) -> None:
        self.file.mkdir()
        self.assertIn("is a folder", self.refusal(None))

    def test_a_library_for_another_system_or_processor_is_told(self) -> None:
        for content, target in (
            (elf(3, 32), "32-bit Linux (x86)"),
            (elf(183, 64), "64-bit Linux (ARM64)"),
            (pe(0x14C), "32-bit Windows (x86)"),
            (pe(0xAA64), "64-bit Windows (ARM64)"),
            (elf(62, 64), "64-bit Linux (x64)") if ON_WINDOWS else (pe(0x8664), "64-bit Windows (x64)"),
        ):
            with self.subTest(target=target):
                self.assertIn(f"{self.file} is for {target}, needed is {NEEDED}", self.refusal(content))

    def test_a_library_that_is_cut_short_is_told(self) -> None:
        whole = Path(LIBRARY).read_bytes()
        for size in (4096, len(whole) // 2):
            with self.subTest(size=size):
                self.assertRegex(
                    self.refusal(whole[:size]), f"is damaged: it has {size} of [0-9]+ bytes|cannot be loaded: "
                )

    def test_what_the_system_does_not_load_is_told_in_its_words(self) -> None:
        said = self.refusal(pe(0x8664) if ON_WINDOWS else elf(62, 64))
        self.assertRegex(said, f"cannot be loaded: .*{'193' if ON_WINDOWS else self.file.name}")

    @unittest.skipIf(ON_WINDOWS, "there is no libc on Windows")
    def test_another_library_is_told(self) -> None:
        said = self.load(script="import ctypes, math\nprint(open('/proc/self/maps').read())")
        other = next(
            word for line in said.splitlines() for word in line.split() if "/libc.so" in word or "/libc-" in word
        )
        self.assertIn(
            "is not tolvex, or another version of it: it lacks read_baseinfo", self.refusal(Path(other).read_bytes())
        )

    def test_importing_loads_nothing(self) -> None:
        script = "import tolvex, tolvex.aio, tolvex.exports\nprint(tolvex._loader._loaded)\n"
        self.assertEqual(self.load(script=script, TOLVEX_LIBRARY="nowhere"), "None\n")

    def test_the_first_call_tells_that_there_is_no_library(self) -> None:
        for call in ("tolvex.Scale().read()", "tolvex.set_server('127.0.0.1')", "tolvex.Receipt().text('x').print()"):
            script = f"import tolvex\ntry:\n    {call}\nexcept tolvex.LibraryNotLoaded as error:\n    print(error)\n"
            with self.subTest(call=call):
                self.assertIn(f"{self.file} is missing", self.load(script=script, TOLVEX_LIBRARY=str(self.file)))

    def test_a_library_that_is_loaded_cannot_be_exchanged(self) -> None:
        shutil.copy(LIBRARY, self.file)
        script = (
            "import sys, tolvex\nfirst = tolvex.load()\nassert tolvex.load() == tolvex.load(str(first)) == first\n"
            "try:\n    tolvex.load(sys.argv[1])\nexcept ValueError as error:\n    print(error)\n"
        )
        self.assertIn("has been loaded already", self.load(str(self.file), script=script))

    def test_the_version_is_read_from_the_file(self) -> None:
        self.assertRegex(_loader.library_version(Path(LIBRARY)), r"^3\.0\.3\.\d+$")
        self.assertEqual(_loader.library_version(Path(__file__)), "")


class Heads(unittest.TestCase):
    def test_heads_of_files_tell_their_targets(self) -> None:
        self.assertEqual(target_of_head(elf(62, 64)), (Target("Linux", "x64"), ""))
        self.assertEqual(target_of_head(pe(0x8664)), (Target("Windows", "x64"), ""))
        self.assertEqual(str(target_of_head(elf(0xF3, 64))[0]), "Linux (processor 243)")
        for head, reason in (
            (b"", "is empty"),
            (b"\x7fELF\1", "is damaged: it ends in its ELF header"),
            (b"MZ", "is damaged: it has no PE header"),
            (b"MZ".ljust(0x3C, b"\0") + b"\xff\xff\xff\xff", "is damaged: it has no PE header"),
            (b"\xcf\xfa\xed\xfe" + bytes(30), "is for macOS"),
            (b"text", "is no library: it has neither an ELF nor a PE header"),
        ):
            with self.subTest(head=head):
                self.assertEqual(target_of_head(head), (None, reason))

    def test_a_32_bit_process_is_told_to_run_the_64_bit_build(self) -> None:
        with mock.patch("struct.calcsize", return_value=4):
            self.assertEqual(str(_loader.target_of_process()), NEEDED.replace("64-bit", "32-bit").replace("x64", "x86"))
            self.assertIn("run the 64-bit build of Python", _loader._advice(None))

    def test_other_processors_and_systems_are_told_what_there_is(self) -> None:
        with mock.patch.object(_loader, "_machine_name", return_value="ARM64"):
            self.assertIn("for x64 processors only", _loader._advice(None))
        with mock.patch("sys.platform", "darwin"):
            self.assertIn("There is no tolvex for this system", _loader._advice(None))

    def test_windows_libraries_are_opened_by_their_place_or_in_the_systems_order(self) -> None:
        with mock.patch.object(_loader, "ON_WINDOWS", True), mock.patch("ctypes.CDLL") as opened:
            _loader._open(Path(_loader.FILE_NAME))
            opened.assert_called_once_with(_loader.FILE_NAME, winmode=0)
            opened.reset_mock()
            _loader._open(Path("/opt/till") / _loader.FILE_NAME)
            opened.assert_called_once_with(str(Path("/opt/till") / _loader.FILE_NAME))

    def test_a_dependency_that_is_missing_is_told_apart(self) -> None:
        # What ctypes makes of Windows' error 126.
        error = FileNotFoundError("Could not find module 'tolvex_dll.dll' (or one of its dependencies).")
        with mock.patch.object(_loader, "_open", side_effect=error):
            library, reason = _loader._try(Path(LIBRARY))
        self.assertIsNone(library)
        self.assertIn("a DLL that it needs is missing", reason)
        with mock.patch.object(_loader, "_open", side_effect=error):
            self.assertNotIn("The file is there", _loader._try(Path(_loader.FILE_NAME))[1])


class Command(unittest.TestCase):
    def run_module(self, *arguments: str, **changes: Optional[str]) -> Tuple[int, str, str]:
        result = python_file("-m", "tolvex", *arguments, **changes)
        return result.returncode, result.stdout, result.stderr

    def test_it_tells_library_and_service(self) -> None:
        simulator = Simulator()
        self.addCleanup(simulator.stop)
        status, said, errors = self.run_module("--server", ADDRESS)
        self.assertEqual(status, 0, errors)
        self.assertIn(f"library: {LIBRARY}, version 3.0.3.", said)
        self.assertIn("weighing: the service answers, scale 'SIM 1.0' in kg", said)
        self.assertIn("printing: the service answers, printers Label, Ticket, Third", said)

    def test_a_service_that_does_not_answer_is_told_with_a_remedy(self) -> None:
        status, said, errors = self.run_module("--server", ADDRESS)
        self.assertEqual(status, 1)
        self.assertIn("library: ", said)
        self.assertIn("read_baseinfo: 4 SocketInterrupt", errors)
        self.assertIn("What to do: Start the service", errors)

    def test_a_missing_library_is_told_with_a_remedy(self) -> None:
        status, _, errors = self.run_module("--library", "nowhere.so")
        self.assertEqual(status, 1)
        self.assertIn("nowhere.so is missing", errors)
        self.assertNotIn("Traceback", errors)


class PyInstaller(unittest.TestCase):
    def test_the_hook_takes_the_library_to_where_the_package_loads_it(self) -> None:
        import tolvex.__pyinstaller as entry

        folder = Path(entry.get_hook_dirs()[0])
        spec = importlib.util.spec_from_file_location("hook", folder / "hook-tolvex.py")
        assert spec is not None and spec.loader is not None
        package = Path(tempfile.mkdtemp(prefix="tolvex-hook-"))
        self.addCleanup(shutil.rmtree, package, True)
        (package / "lib").mkdir()
        (package / "lib" / _loader.FILE_NAME).write_bytes(b"")
        hook = importlib.util.module_from_spec(spec)
        with mock.patch.object(tolvex, "__file__", str(package / "__init__.py")):
            spec.loader.exec_module(hook)
        self.assertEqual(hook.binaries, [(str(package / "lib" / _loader.FILE_NAME), "tolvex/lib")])


if __name__ == "__main__":
    unittest.main()
