"""Calls into the library: how arguments are passed, and what keeps a call from doing harm.

ctypes itself passes whatever it is given: it cuts off the high bits of numbers, takes a buffer that is too
small, and ends a text at its first NUL. What reaches the library has been looked at here.
"""

import ctypes
import os
from typing import Any, Callable, Dict, Optional, Tuple, Union

from . import _loader

# What a function may write to: None, an array of ctypes.c_char, a record, or a bytearray.
OutBuffer = Union["ctypes.Array[ctypes.c_char]", ctypes.Structure, bytearray, None]

INT_MIN, INT_MAX, UINT_MAX = -(2**31), 2**31 - 1, 2**32 - 1


class Int:
    """Passes an int."""

    kind: Any = ctypes.c_int
    least, most = INT_MIN, INT_MAX

    def convert(self, value: Any) -> Any:
        number = int(value.__index__())
        if not self.least <= number <= self.most:
            raise ValueError(f"{number} is not a number from {self.least} to {self.most}")
        return number


class UInt(Int):
    """Passes an unsigned int."""

    kind = ctypes.c_uint
    least, most = 0, UINT_MAX


class Text:
    """Passes a text: bytes, in the encoding that the function expects, or None."""

    kind: Any = ctypes.c_char_p

    def convert(self, value: Any) -> Any:
        if value is None:
            return None
        if not isinstance(value, bytes):
            raise TypeError(f"a text for the library is bytes or None, not {type(value).__name__}")
        if b"\0" in value:
            raise ValueError("the text holds a NUL, at which the library would end it")
        return value


class Buffer:
    """Passes memory that the library writes to, without copying it.

    Args:
        least: How many bytes the function writes, where the caller does not tell it a size.
        terminated: Whether the function also reads a text from it.
    """

    kind: Any = ctypes.c_void_p

    def __init__(self, least: int = 0, terminated: bool = False) -> None:
        self.least = least
        self.terminated = terminated

    def convert(self, value: Any) -> Any:
        if value is None:
            return None
        if isinstance(value, bytearray):
            value = (ctypes.c_char * len(value)).from_buffer(value)
        is_text = isinstance(value, ctypes.Array) and getattr(value, "_type_", None) is ctypes.c_char
        if not is_text and not isinstance(value, ctypes.Structure):
            raise TypeError(
                "a buffer is a bytearray, an array of ctypes.c_char, a record or None, " f"not {type(value).__name__}"
            )
        size = ctypes.sizeof(value)
        if size < self.least:
            raise ValueError(f"the buffer has {size} bytes, and the library writes {self.least}")
        if self.terminated and b"\0" not in bytes(value):
            raise ValueError("the text in the buffer does not end in a NUL")
        # The pointer keeps the memory alive, and a bytearray from being resized, until the call is over.
        return ctypes.cast(ctypes.pointer(value), ctypes.c_void_p) if size else None


class _Process:
    """Which process has begun to talk with the service: its connections are no one else's."""

    def __init__(self) -> None:
        self.owner: Optional[int] = None

    def check(self) -> None:
        """Raises RuntimeError in a child of the process that the connections belong to."""
        if self.owner is not None and self.owner != os.getpid():
            raise RuntimeError(
                "This process is a fork of one that has used tolvex already, and both would talk on the same "
                "connections to the service. What to do: use tolvex in one of them only, or start processes "
                'with multiprocessing.set_start_method("spawn").'
            )

    def use(self) -> None:
        """Remembers that this process talks with the service from now on."""
        self.check()
        self.owner = os.getpid()


process = _Process()


class Export:
    """An export of the library, which is loaded with the first call of any of them.

    ctypes lets go of the interpreter lock for the time of a call, so other threads run meanwhile.

    Args:
        name: The function's name.
        converters: One for each parameter.
        sized: Which parameter is a buffer, and which one tells its size.
        needs_service: Whether the call may connect to the service.
    """

    def __init__(
        self,
        name: str,
        *converters: Union[Int, Text, Buffer],
        sized: Optional[Tuple[int, int]] = None,
        needs_service: bool = True,
    ) -> None:
        self.name = name
        self.converters = converters
        self.sized = sized
        self.needs_service = needs_service
        self.function: Optional[Callable[..., int]] = None
        EXPORTS[name] = self

    def resolve(self) -> Callable[..., int]:
        """The function in the library.

        Raises:
            LibraryNotLoaded: There is no usable library.
        """
        function = getattr(_loader.loaded(), self.name)
        function.restype = ctypes.c_int
        function.argtypes = [converter.kind for converter in self.converters]
        self.function = function
        return function  # type: ignore[no-any-return]

    def __call__(self, *arguments: Any) -> int:
        if self.sized is not None:
            buffer, size = (arguments[at] for at in self.sized)
            if buffer is not None and size > _size_of(buffer):
                raise ValueError(f"{self.name}: the buffer has {_size_of(buffer)} bytes, not {size}")
        try:
            passed = [converter.convert(value) for converter, value in zip(self.converters, arguments)]
        except (TypeError, ValueError, AttributeError) as error:
            kind = ValueError if isinstance(error, ValueError) else TypeError
            raise kind(f"{self.name}: {error}") from None
        function = self.function or self.resolve()
        if self.needs_service:
            process.use()
        return function(*passed)


def _size_of(buffer: Any) -> int:
    return len(buffer) if isinstance(buffer, bytearray) else ctypes.sizeof(buffer)


# All exports, by name.
EXPORTS: Dict[str, Export] = {}
