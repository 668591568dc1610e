"""The sources themselves: any Python from 3.8 on can read them, and the wheel's tag is worked out right."""

import ast
import inspect
import re
import sys
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(HERE))
import platform_tag  # noqa: E402

import tolvex  # noqa: E402


class Sources(unittest.TestCase):
    def test_python_3_8_can_read_all_of_them(self) -> None:
        files = [file for folder in ("src", "examples", "tests") for file in (HERE / folder).rglob("*.py")]
        self.assertGreater(len(files), 25)
        for file in files:
            with self.subTest(file=file.name):
                ast.parse(file.read_text(encoding="utf-8"), str(file), feature_version=(3, 8))

    def test_all_that_is_public_has_a_docstring(self) -> None:
        for module in (tolvex, tolvex.aio, tolvex.exports):
            for name in module.__all__:
                part = getattr(module, name)
                members = vars(part) if inspect.isclass(part) else {}
                methods = {
                    key: value
                    for key, value in members.items()
                    if inspect.isroutine(value) or isinstance(value, property)
                }
                for key, value in {name: part, **methods}.items():
                    if key.startswith("_") or not (
                        inspect.isclass(value) or inspect.isroutine(value) or isinstance(value, property)
                    ):
                        continue
                    with self.subTest(module=module.__name__, name=f"{name}.{key}"):
                        self.assertTrue(value.__doc__)

    def test_the_version_is_that_of_the_project(self) -> None:
        project = (HERE.parents[1] / "CMakeLists.txt").read_text(encoding="utf-8")
        full = re.search(r"^project\(tolvex VERSION ([0-9.]+)", project, re.MULTILINE)
        assert full is not None
        self.assertEqual(tolvex.__version__, full.group(1).rpartition(".")[0])


class PlatformTag(unittest.TestCase):
    def test_the_newest_symbol_decides(self) -> None:
        libc = ["libc.so.6"]
        for versions, tag in (
            (["GLIBC_2.2.5"], "manylinux_2_17_x86_64"),
            (["GLIBC_2.2.5", "GLIBC_2.33"], "manylinux_2_33_x86_64"),
            (["GLIBC_2.17", "GLIBCXX_3.4.19"], "manylinux_2_17_x86_64"),
            (["GLIBC_2.33", "GLIBCXX_3.4.29"], "manylinux_2_34_x86_64"),
            (["GLIBC_2.17", "CXXABI_1.3.13"], "manylinux_2_34_x86_64"),
            (["GLIBC_2.17", "GCC_12.0.0"], "manylinux_2_35_x86_64"),
        ):
            with self.subTest(versions=versions):
                self.assertEqual(platform_tag.tag_of(libc, versions), tag)

    def test_what_no_system_has_is_refused(self) -> None:
        with self.assertRaisesRegex(SystemExit, "libstrange.so.1"):
            platform_tag.tag_of(["libc.so.6", "libstrange.so.1"], ["GLIBC_2.17"])
        with self.assertRaisesRegex(SystemExit, "GLIBCXX_3.9.9"):
            platform_tag.tag_of(["libc.so.6"], ["GLIBCXX_3.9.9"])


if __name__ == "__main__":
    unittest.main()
