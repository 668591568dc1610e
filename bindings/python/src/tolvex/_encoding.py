"""Texts for the library: in its ANSI code page where they are queued, in UTF-8 everywhere else.

The library turns what is queued into UTF-8 again, and puts something else in the place of what it cannot
convert. So a text is converted here first, by the same converter, and refused if anything of it would be lost.
"""

import ctypes
import os
import sys
import threading
from typing import Any, Callable, List, Optional

from ._errors import UnprintableText

UTF_8 = "UTF-8"


def check_text(text: str, what: str = "the text") -> str:
    """Refuses what is no text, and what the library would end at a NUL.

    Raises:
        TypeError: It is no str.
        ValueError: There is a NUL in it.
    """
    if not isinstance(text, str):
        raise TypeError(f"{what} has to be a str, not {type(text).__name__}")
    if "\0" in text:
        raise ValueError(f"{what} holds a NUL at position {text.index(chr(0))}, at which the library would end it")
    return text


def utf8(text: str, what: str = "the text") -> bytes:
    """A text for what the library sends as it is.

    Raises:
        UnprintableText: There is half of a surrogate pair in it.
    """
    try:
        return check_text(text, what).encode("utf-8")
    except UnicodeEncodeError as error:
        raise UnprintableText(text, error.start, UTF_8) from None


def is_surrogate(character: str) -> bool:
    return 0xD800 <= ord(character) <= 0xDFFF


class CodePage:
    """An encoding of queued texts.

    Args:
        name: What it is called, for messages.
        convert: Gives the bytes of a text without surrogates, or None if it does not have all characters.
    """

    def __init__(self, name: str, convert: Callable[[str], Optional[bytes]]) -> None:
        self.name = name
        self._convert = convert

    def encode(self, text: str, errors: str = "strict") -> bytes:
        """Converts a text.

        Args:
            text: The text.
            errors: "strict", or "replace", which puts "?" in the place of what the code page does not have.

        Raises:
            UnprintableText: It has a character that the code page does not have.
            ValueError: There is a NUL in it.
        """
        check_text(text)
        has_surrogate = any(map(is_surrogate, text))
        converted = None if has_surrogate else self._convert(text)
        if converted is not None:
            return converted
        characters: List[str] = []
        for position, character in enumerate(text):
            if is_surrogate(character) or self._convert(character) is None:
                if errors != "replace":
                    raise UnprintableText(text, position, self.name)
                character = "?"
            characters.append(character)
        converted = self._convert("".join(characters))
        if converted is None:
            # Each character goes by itself, but not together: nothing shows which one it is.
            raise UnprintableText(text, 0, self.name)
        return converted


# ---- Windows ----

CP_ACP = 0
CP_UTF8 = 65001
CP_GB18030 = 54936
WC_ERR_INVALID_CHARS = 0x80
WC_NO_BEST_FIT_CHARS = 0x400


def windows_code_page(kernel32: Any) -> CodePage:
    """The ANSI code page of the process, by the system's own conversion.

    Args:
        kernel32: The library of this name, for GetACP and WideCharToMultiByte.
    """
    number = int(kernel32.GetACP())
    # These two have all characters, and the system does not take the other arguments with them.
    has_all = number in (CP_UTF8, CP_GB18030)

    def convert(text: str) -> Optional[bytes]:
        if not text:
            return b""
        wide = text.encode("utf-16-le")
        units = len(wide) // 2
        source = ctypes.create_string_buffer(wide, len(wide))
        was_replaced = ctypes.c_int(0)
        flags = WC_ERR_INVALID_CHARS if has_all else WC_NO_BEST_FIT_CHARS
        told = None if has_all else ctypes.byref(was_replaced)
        size = kernel32.WideCharToMultiByte(CP_ACP, flags, source, units, None, 0, None, told)
        if size <= 0 or was_replaced.value:
            return None
        target = ctypes.create_string_buffer(size)
        written = kernel32.WideCharToMultiByte(CP_ACP, flags, source, units, target, size, None, told)
        return target.raw[:written] if written > 0 and not was_replaced.value else None

    return CodePage(UTF_8 if number == CP_UTF8 else f"Windows-{number}", convert)


def _kernel32() -> Any:
    kernel32 = getattr(ctypes, "WinDLL")("kernel32")
    kernel32.GetACP.restype = ctypes.c_uint
    kernel32.WideCharToMultiByte.restype = ctypes.c_int
    kernel32.WideCharToMultiByte.argtypes = [
        ctypes.c_uint,
        ctypes.c_uint32,
        ctypes.c_void_p,
        ctypes.c_int,
        ctypes.c_void_p,
        ctypes.c_int,
        ctypes.c_char_p,
        ctypes.c_void_p,
    ]
    return kernel32


# ---- Linux ----

_LC_CTYPE_MASK = 1
_CODESET = 14  # of glibc's nl_langinfo


def _libc() -> ctypes.CDLL:
    libc = ctypes.CDLL(None, use_errno=True)
    libc.newlocale.restype = ctypes.c_void_p
    libc.newlocale.argtypes = [ctypes.c_int, ctypes.c_char_p, ctypes.c_void_p]
    libc.freelocale.restype = None
    libc.freelocale.argtypes = [ctypes.c_void_p]
    libc.nl_langinfo_l.restype = ctypes.c_char_p
    libc.nl_langinfo_l.argtypes = [ctypes.c_int, ctypes.c_void_p]
    libc.iconv_open.restype = ctypes.c_void_p
    libc.iconv_open.argtypes = [ctypes.c_char_p, ctypes.c_char_p]
    libc.iconv_close.argtypes = [ctypes.c_void_p]
    libc.iconv.restype = ctypes.c_size_t
    libc.iconv.argtypes = [
        ctypes.c_void_p,
        ctypes.POINTER(ctypes.c_char_p),
        ctypes.POINTER(ctypes.c_size_t),
        ctypes.POINTER(ctypes.c_void_p),
        ctypes.POINTER(ctypes.c_size_t),
    ]
    return libc


_NO_ICONV = ctypes.c_void_p(-1).value
_ICONV_FAILED = ctypes.c_size_t(-1).value


def converted(libc: ctypes.CDLL, to: str, of: str, text: bytes) -> Optional[bytes]:
    """Converts from one character set to another with iconv; None if anything of it cannot be converted."""
    handle = libc.iconv_open(os.fsencode(to), os.fsencode(of))
    if handle == _NO_ICONV:
        return None
    try:
        target = ctypes.create_string_buffer(16 + 8 * len(text))
        source, left = ctypes.c_char_p(text), ctypes.c_size_t(len(text))
        at, room = ctypes.c_void_p(ctypes.addressof(target)), ctypes.c_size_t(len(target))
        for arguments in ((ctypes.byref(source), ctypes.byref(left)), (None, None)):
            # Any count but 0 is of characters that were not converted exactly.
            if libc.iconv(handle, *arguments, ctypes.byref(at), ctypes.byref(room)) != 0:
                return None
        return target.raw[: len(target) - room.value]
    finally:
        libc.iconv_close(handle)


def locale_name() -> str:
    """The user's locale by the environment, as the library reads it."""
    for variable in ("LC_ALL", "LC_CTYPE", "LANG"):
        value = os.environ.get(variable)
        if value:
            return value
    return ""


def charset_in_name(name: str) -> str:
    """What stands behind the dot of a locale's name: "GBK" of "zh_CN.GBK@pinyin"."""
    return name.partition("@")[0].partition(".")[2]


def _installed_charset(libc: ctypes.CDLL) -> str:
    handle = libc.newlocale(_LC_CTYPE_MASK, b"", None)
    if not handle:
        return ""
    name = libc.nl_langinfo_l(_CODESET, handle) or b""
    charset = bytes(name).decode("ascii", "replace")
    libc.freelocale(handle)
    return charset


def _is_usable(libc: ctypes.CDLL, charset: str) -> bool:
    # iconv would take an empty name for the program's locale, and options behind a slash.
    if not charset or "/" in charset:
        return False
    return converted(libc, UTF_8, charset, b"AZaz09") == b"AZaz09"


def user_charset(libc: ctypes.CDLL) -> str:
    """The character set that the library takes queued texts in, found the way the library finds it."""
    name = locale_name()
    if name in ("", "C", "POSIX"):
        return UTF_8
    charset = _installed_charset(libc) or charset_in_name(name)
    if charset.replace("-", "").replace("_", "").upper() == "UTF8" or not _is_usable(libc, charset):
        return UTF_8
    return charset


def posix_code_page(libc: ctypes.CDLL) -> CodePage:
    """The character set of the user's locale, by the system's own conversion."""
    charset = user_charset(libc)
    if charset == UTF_8:
        return CodePage(UTF_8, lambda text: text.encode("utf-8"))

    def convert(text: str) -> Optional[bytes]:
        wanted = text.encode("utf-8")
        encoded = converted(libc, charset, UTF_8, wanted)
        # What the library makes of it has to be the same text again; and it reads up to the first NUL.
        if encoded is None or b"\0" in encoded or converted(libc, UTF_8, charset, encoded) != wanted:
            return None
        return encoded

    return CodePage(charset, convert)


_lock = threading.Lock()
_code_page: Optional[CodePage] = None


def code_page() -> CodePage:
    """The code page of queued texts. It is found once in a process, as the library does it."""
    global _code_page
    with _lock:
        if _code_page is None:
            _code_page = windows_code_page(_kernel32()) if sys.platform == "win32" else posix_code_page(_libc())
        return _code_page


def encode_for_queue(text: str, errors: str = "strict") -> bytes:
    """Converts a text for PrintText and the other functions of the raw layer that queue.

    Args:
        text: The text.
        errors: "strict", or "replace", which puts "?" in the place of what the code page does not have.

    Raises:
        UnprintableText: It has a character that the code page does not have.
        ValueError: There is a NUL in it.
    """
    return code_page().encode(text, errors)
