"""The wheels that were made, in the folder TOLVEX_WHEELS."""

import os
import shutil
import sys
import tempfile
import unittest
import zipfile
from email.parser import Parser
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))
import platform_tag  # noqa: E402

from tolvex._loader import Target, library_version, missing_part, target_of_head  # noqa: E402

WHEELS = Path(os.environ["TOLVEX_WHEELS"])


class Wheels(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = Path(tempfile.mkdtemp(prefix="tolvex-wheels-"))
        self.addCleanup(shutil.rmtree, self.folder, True)

    def unpacked(self, pattern: str) -> Path:
        (wheel,) = WHEELS.glob(pattern)
        self.wheel = wheel
        with zipfile.ZipFile(wheel) as archive:
            self.assertIsNone(archive.testzip())
            archive.extractall(self.folder)
        return self.folder

    def test_there_is_one_for_each_system(self) -> None:
        self.assertEqual(len(list(WHEELS.iterdir())), 2)

    def test_the_wheel_for_linux_has_its_library_and_the_tag_that_fits_it(self) -> None:
        library = self.unpacked("*manylinux*.whl") / "tolvex/lib/libtolvex_dll.so"
        content = library.read_bytes()
        self.assertEqual(target_of_head(content[:4096])[0], Target("Linux", "x64"))
        self.assertEqual(missing_part(content[:4096], len(content)), "")
        self.assertIn(f"-py3-none-{platform_tag.tag_of(*platform_tag.read(library))}.whl", self.wheel.name)
        self.assertEqual([file.name for file in library.parent.iterdir()], [library.name])
        self.check_rest(library)

    def test_the_wheel_for_windows_has_its_library(self) -> None:
        library = self.unpacked("*-py3-none-win_amd64.whl") / "tolvex/lib/tolvex_dll.dll"
        self.assertEqual(target_of_head(library.read_bytes()[:4096])[0], Target("Windows", "x64"))
        self.assertEqual([file.name for file in library.parent.iterdir()], [library.name])
        self.check_rest(library)

    def check_rest(self, library: Path) -> None:
        self.assertRegex(library_version(library), r"^3\.0\.3\.\d+$")
        package = self.folder / "tolvex"
        source = Path(__file__).resolve().parents[1]
        for name in ("__init__.py", "_exports.py", "py.typed", "__pyinstaller/hook-tolvex.py"):
            self.assertEqual((package / name).read_bytes(), (source / "src/tolvex" / name).read_bytes(), name)
        example = source / "examples/checkout.py"
        self.assertEqual((package / "examples/checkout.py").read_bytes(), example.read_bytes())
        readme = (package / "README.md").read_text(encoding="utf-8")
        self.assertIn("# tolvex for Python", readme)
        self.assertNotIn("../..", readme)
        (information,) = self.folder.glob("tolvex-*.dist-info")
        metadata = Parser().parsestr((information / "METADATA").read_text(encoding="utf-8"))
        self.assertEqual((metadata["Name"], metadata["Requires-Python"]), ("tolvex", ">=3.8"))
        self.assertEqual(metadata.get_all("Requires-Dist"), None)
        self.assertIn("# tolvex for Python", metadata.get_payload())
        self.assertIn("RapidJSON", (information / "THIRD-PARTY-NOTICES.txt").read_text(encoding="utf-8"))
        self.assertIn("Root-Is-Purelib: false", (information / "WHEEL").read_text(encoding="utf-8"))
        self.assertIn("hook-dirs = tolvex.__pyinstaller:get_hook_dirs", (information / "entry_points.txt").read_text())


if __name__ == "__main__":
    unittest.main()
