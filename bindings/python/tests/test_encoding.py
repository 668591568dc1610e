"""Which encoding queued texts are in: Windows' ANSI code page, with a kernel32 that keeps the system's rules, and the
character set of a locale."""

import ctypes
import os
import sys
import unittest
from typing import Any, Optional
from unittest import mock

import tolvex
from tolvex import _encoding
from tolvex._encoding import windows_code_page

CODECS = {1251: "cp1251", 1252: "cp1252", 936: "gbk", 65001: "utf-8", 54936: "gb18030"}
NO_BEST_FIT, INVALID_CHARS = 0x400, 0x80


class Kernel32:
    """WideCharToMultiByte as the system documents it: what it refuses, is refused here."""

    def __init__(self, code_page: int) -> None:
        self.code_page = code_page

    def GetACP(self) -> int:
        return self.code_page

    def WideCharToMultiByte(
        self,
        code_page: int,
        flags: int,
        source: Any,
        units: int,
        target: Any,
        room: int,
        default: Any,
        used: Optional[Any],
    ) -> int:
        assert code_page == 0 and default is None
        if self.code_page in (65001, 54936):
            if used is not None or flags not in (0, INVALID_CHARS):
                return 0  # ERROR_INVALID_PARAMETER, ERROR_INVALID_FLAGS
        elif flags != NO_BEST_FIT:
            raise AssertionError("best fit turns characters into similar ones")
        text = ctypes.string_at(source, 2 * units).decode("utf-16-le")
        encoded = text.encode(CODECS[self.code_page], "replace")
        if used is not None:
            lost = encoded.decode(CODECS[self.code_page]) != text
            ctypes.cast(used, ctypes.POINTER(ctypes.c_int))[0] = int(lost)
        if room:
            assert len(encoded) <= room
            ctypes.memmove(target, encoded, len(encoded))
        return len(encoded)


class WindowsCodePages(unittest.TestCase):
    def test_texts_are_converted(self) -> None:
        for number, text in (
            (1251, "Спасибо €"),
            (1252, "Äpfel €"),
            (936, "谢谢"),
            (65001, "谢 Ä \U0001f34e"),
            (54936, "한"),
        ):
            with self.subTest(code_page=number):
                self.assertEqual(windows_code_page(Kernel32(number)).encode(text), text.encode(CODECS[number]))
                self.assertEqual(windows_code_page(Kernel32(number)).encode(""), b"")

    def test_what_a_code_page_does_not_have_is_refused_with_its_name(self) -> None:
        for number, text, position in ((1252, "a\U0001f34eb", 1), (1252, "ab Спас", 3), (1251, "Ä", 0), (936, "aÄ", 1)):
            with self.subTest(code_page=number), self.assertRaises(tolvex.UnprintableText) as caught:
                windows_code_page(Kernel32(number)).encode(text)
            error = caught.exception
            self.assertEqual((error.position, error.code_page), (position, f"Windows-{number}"))

    def test_halves_of_surrogate_pairs_are_refused(self) -> None:
        for number in (1252, 65001):
            with self.subTest(code_page=number), self.assertRaises(tolvex.UnprintableText) as caught:
                windows_code_page(Kernel32(number)).encode("x\udc00")
            self.assertEqual(caught.exception.position, 1)
            self.assertEqual(windows_code_page(Kernel32(number)).encode("x\udc00", "replace"), b"x?")

    def test_they_are_replaced_where_that_is_asked_for(self) -> None:
        self.assertEqual(windows_code_page(Kernel32(1252)).encode("ÄСЯ\U0001f34e€", "replace"), b"\xc4???\x80")

    def test_a_nul_is_refused(self) -> None:
        with self.assertRaises(ValueError):
            windows_code_page(Kernel32(1252)).encode("a\0b")


@unittest.skipIf(sys.platform == "win32", "Windows has a code page instead")
class Locales(unittest.TestCase):
    def charset(self, **variables: str) -> str:
        """The character set in a process with these variables of the locale, and no locale installed."""
        others = {name: "" for name in ("LC_ALL", "LC_CTYPE", "LANG", "LOCPATH")}
        with mock.patch.dict(os.environ, dict(others, **variables)):
            return _encoding.user_charset(_encoding._libc())

    def test_it_is_utf_8_where_no_locale_is_set(self) -> None:
        self.assertEqual(self.charset(), "UTF-8")
        for name in ("C", "POSIX", "C.UTF-8", "C.utf8"):
            self.assertEqual(self.charset(LANG=name), "UTF-8")

    def test_a_locale_that_is_not_installed_has_that_of_its_name(self) -> None:
        self.assertEqual(self.charset(LANG="xx_XX.GBK"), "GBK")
        self.assertEqual(self.charset(LANG="xx_XX.KOI8-R@euro"), "KOI8-R")
        self.assertEqual(self.charset(LANG="xx_XX@latin.1"), "UTF-8")
        self.assertEqual(self.charset(LANG="xx_XX"), "UTF-8")

    def test_the_first_variable_that_is_not_empty_counts(self) -> None:
        self.assertEqual(self.charset(LC_ALL="xx_XX.GBK", LC_CTYPE="xx_XX.KOI8-R", LANG="xx_XX.CP1251"), "GBK")
        self.assertEqual(self.charset(LC_CTYPE="xx_XX.KOI8-R", LANG="xx_XX.CP1251"), "KOI8-R")
        self.assertEqual(self.charset(LANG="xx_XX.CP1251"), "CP1251")

    def test_what_nothing_can_be_converted_with_is_utf_8(self) -> None:
        for name in ("xx_XX.NONE", "xx_XX.utf-8", "xx_XX.GBK//TRANSLIT", "xx_XX.UTF-16", "xx_XX.EBCDIC-US"):
            with self.subTest(name=name):
                self.assertEqual(self.charset(LANG=name), "UTF-8")


if __name__ == "__main__":
    unittest.main()
