"""Printers, their settings, and the cash drawer."""

import os
from dataclasses import dataclass
from enum import IntEnum
from pathlib import Path
from typing import Any, Callable, Dict, List, Union

from . import _exports
from ._calls import REPLY_BYTES, decoded, milliseconds, number, printing
from ._encoding import check_text, utf8
from ._errors import error_of_code, explain
from ._native import INT_MAX, INT_MIN
from ._scale import parsed_reply

FilePath = Union[str, "os.PathLike[str]"]

LEAST_SIZE, MOST_SIZE = 12, 72  # of characters, in dots
MOST_NAME_BYTES = 255
MOST_WIDTH = INT_MAX // 8  # millimetres, which go out as dots
MOST_DISTANCE = 1000


class PrinterType(IntEnum):
    """The printers of the service, by what they are for."""

    LABEL = 0
    TICKET = 1
    THIRD = 2
    DEFAULT = _exports.TOLVEX_DEFAULT_PRINTER


# States of a printer; any other code says that the question was not answered.
_LEAST_STATE, _MOST_STATE = 2001, 2010


@dataclass(frozen=True)
class PrinterStatus:
    """How a printer is.

    Attributes:
        ready: It can print.
        code: 0, or the result code from 2001 to 2010.
        name: The code's name, such as "OutOfPaper".
        text: The code's own text, such as "Out of Paper".
        meaning: What it means, in a sentence.
        remedy: What to do about it.
    """

    ready: bool
    code: int
    name: str
    text: str
    meaning: str
    remedy: str


def status_of(code: int) -> PrinterStatus:
    """The status that a code tells.

    Raises:
        TolvexError: It is no state of a printer.
    """
    if code != 0 and not _LEAST_STATE <= code <= _MOST_STATE:
        raise error_of_code("GetPrinterStatus", code)
    row = explain(code)
    return PrinterStatus(code == 0, code, row.name, row.text, row.meaning, row.remedy)


def font_size(size: int) -> int:
    """Refuses a size that the library refuses, or changes."""
    return number(size, "the font size", LEAST_SIZE, MOST_SIZE)


def absolute_path(path: FilePath) -> str:
    """An image's path as the service can open it, whose working folder is another one."""
    text = os.fspath(path)
    if not isinstance(text, str):
        raise TypeError(f"the path has to be a str or a Path, not {type(path).__name__}")
    check_text(text, "the path")
    if not text:
        raise ValueError("the path is empty")
    return str(Path(text).absolute())


class Printer:
    """A printer by its type. What is printed here goes out at once, past the queue of receipts.

    It belongs to whatever this printer prints next: end it with cut(), or the next receipt takes it along.
    Any thread may call. Calls wait for their turn, a receipt that is being printed included. Each takes at most
    42 s, the first call of a process 44 s.

    Args:
        type: A PrinterType, or another number that the service understands.
    """

    def __init__(self, type: int = PrinterType.DEFAULT) -> None:
        self.type = number(type, "the printer type")

    def __repr__(self) -> str:
        return f"Printer({self.type})"

    def status(self) -> PrinterStatus:
        """Asks how the printer is. Being out of paper, for example, is a status and raises nothing.

        Raises:
            TolvexError: The service did not tell: it does not answer, for example.
        """
        with printing.held():
            return status_of(_exports.GetPrinterStatus(self.type))

    def print_text(self, text: str, size: int = 24) -> None:
        """Prints a text of any script as one line. An empty one is a blank line.

        Args:
            text: The text, at most 2048 bytes in UTF-8. Nothing in it is cut into lines.
            size: Height of the characters in dots, 12 to 72.

        Raises:
            TolvexError: The printer or the service failed; 6 for a text that is too long.
            ValueError: An argument is out of its range.
        """
        printing.code(_exports.printTextById, utf8(text), font_size(size), self.type)

    def print_wrapped(self, text: str, size: int = 24, width: int = 72) -> None:
        """Prints a text of any length, which the service fits to the paper.

        Args:
            text: The text.
            size: Height of the characters in dots, 12 to 72.
            width: Width of the paper in millimetres.

        Raises:
            TolvexError: The printer or the service failed.
            ValueError: An argument is out of its range.
        """
        arguments = utf8(text), font_size(size), number(width, "the width", 1, MOST_WIDTH)
        printing.code(_exports.printTextByPaperWidthById, *arguments, self.type)

    def print_image(self, path: FilePath, angle: int = 0) -> None:
        """Prints an image file, which the service opens: it has to be on the same machine.

        Args:
            path: The file. A relative path counts from this program's working folder.
            angle: 0, 90, 180 or 270; others are the service's business.

        Raises:
            TolvexError: The printer or the service failed; 2 for a file that the service does not find.
            ValueError: An argument is out of its range.
        """
        arguments = utf8(absolute_path(path), "the path"), number(angle, "the angle")
        printing.code(_exports.printBitmapFileById, *arguments, self.type)

    def cut(self) -> None:
        """Cuts the paper, through 70 percent of its width.

        Raises:
            TolvexError: The printer or the service failed.
        """
        printing.code(_exports.cutPaperById, self.type)

    def feed(self) -> None:
        """Feeds a distance of 13, in the service's unit.

        Raises:
            TolvexError: The printer or the service failed.
        """
        printing.verdict(_exports.feedPaperById, self.type)

    def calibrate(self) -> None:
        """Measures the gap between the labels, which takes some of them.

        Raises:
            TolvexError: The printer or the service failed.
        """
        printing.verdict(_exports.calibrateLabel, self.type)

    def calibrate_paper_end(self) -> None:
        """Calibrates the sensor for the end of the paper.

        Raises:
            TolvexError: The printer or the service failed.
        """
        printing.code(_exports.testPaper, self.type)

    def set_paper_width(self, width: int) -> None:
        """Sets the width of the paper, in millimetres.

        Raises:
            TolvexError: The printer or the service failed.
            ValueError: The width is out of its range.
        """
        printing.code(_exports.setDefaultPaperWidth, number(width, "the width", 1, MOST_WIDTH), self.type)

    def set_gap_type(self, gap_type: int) -> None:
        """Sets how labels are told apart. The numbers are the service's.

        Raises:
            TolvexError: The printer or the service failed.
        """
        printing.code(_exports.setGapType, number(gap_type, "the gap type"), self.type)

    def set_direction(self, direction: int) -> None:
        """Sets which way round the printer prints. The numbers are the service's.

        Raises:
            TolvexError: The printer or the service failed.
        """
        printing.code(_exports.setPrinterDirection, number(direction, "the direction"), self.type)

    def set_text_wrap_mode(self, mode: int) -> None:
        """Sets what becomes of a line that is too long. The numbers are the service's.

        Raises:
            TolvexError: The printer or the service failed.
        """
        printing.code(_exports.setTextWrapMode, number(mode, "the wrap mode"), self.type)


class PrinterSettings:
    """Settings of a printer by its name. Values mean what the service says; they are sent as they are.

    Each call takes at most 42 s.

    Args:
        name: One of those that printers() tells, at most 255 bytes in UTF-8.

    Raises:
        ValueError: The name is empty, too long or holds a NUL.
    """

    def __init__(self, name: str) -> None:
        self._name = utf8(name, "the printer's name")
        if not 0 < len(self._name) <= MOST_NAME_BYTES:
            raise ValueError(
                f"a printer's name has 1 to {MOST_NAME_BYTES} bytes in UTF-8, not {len(self._name)}: {name[:40]!r}"
            )
        self.name = name

    def __repr__(self) -> str:
        return f"PrinterSettings({self.name!r})"

    def _set(self, function: Callable[..., int], value: int, what: str) -> None:
        printing.code(function, number(value, what), self._name)

    def set_left_margin(self, margin: int) -> None:
        """Sets the left margin. Raises TolvexError."""
        self._set(_exports.setLeftMargin, margin, "the margin")

    def set_right_margin(self, margin: int) -> None:
        """Sets the right margin. Raises TolvexError."""
        self._set(_exports.setRightMargin, margin, "the margin")

    def set_paper_offset(self, offset: int) -> None:
        """Sets where on the paper the printer begins. Raises TolvexError."""
        self._set(_exports.setPaperOffset, offset, "the offset")

    def set_contrast(self, contrast: int) -> None:
        """Sets how dark the printer prints. Raises TolvexError."""
        self._set(_exports.setPrintContrast, contrast, "the contrast")

    def set_speed(self, speed: int) -> None:
        """Sets how fast the printer prints. Raises TolvexError."""
        self._set(_exports.setPrintSpeed, speed, "the speed")

    def set_auto_print(self, on: bool) -> None:
        """Switches automatic printing. Raises TolvexError."""
        self._set(_exports.setPrtAutoPrint, 1 if on else 0, "the switch")

    def set_rollback(self, on: bool) -> None:
        """Switches rolling the paper back. Raises TolvexError."""
        self._set(_exports.setRollback, 1 if on else 0, "the switch")

    def set_take_up_sensor(self, on: bool) -> None:
        """Switches the sensor for taken paper. Raises TolvexError."""
        printing.verdict(_exports.setTakeupPaperSensor, 1 if on else 0, self._name)

    def firmware_version(self) -> Dict[str, Any]:
        """Asks for the version of the printer's firmware.

        Returns:
            The service's reply, for example {"result": "0", "version": "1.4"}.

        Raises:
            TolvexError: The printer or the service failed.
        """
        reply = bytearray(REPLY_BYTES + 1)
        printing.verdict(_exports.getPrinterVersion, reply, REPLY_BYTES, self._name)
        return parsed_reply("getPrinterVersion", decoded(reply))

    def raw_command(self, command: str, value: int = 0, parameters: str = "", timeout: float = 40.0) -> str:
        """Sends any command for this printer to the printing service.

        Args:
            command: Its name.
            value: What becomes "intParam" in the request.
            parameters: What becomes "paramList", unless it is empty.
            timeout: How long to wait for the reply, in seconds. After a wait that was too short, the late reply
                is taken for that of the next command: restart the program then.

        Returns:
            The whole reply, as JSON text.

        Raises:
            TolvexError: The service failed. A reply that came is in its attribute reply.
        """
        reply = bytearray(REPLY_BYTES + 1)
        name, values = utf8(command, "the command"), utf8(parameters, "the parameters")
        passed = number(value, "the value", INT_MIN)
        wait = milliseconds(timeout)
        with printing.held():
            code = _exports.sendRawCmdToPrt(self._name, name, passed, values, reply, REPLY_BYTES, wait)
        if code != 0:
            raise error_of_code("sendRawCmdToPrt", code, decoded(reply) or None)
        return decoded(reply)


def printers() -> List[str]:
    """Asks for the names of the printers, for PrinterSettings.

    Raises:
        TolvexError: The service failed.
    """
    names = bytearray(REPLY_BYTES + 1)
    printing.verdict(_exports.GetPrinterList, names, REPLY_BYTES)
    return [name.strip() for name in decoded(names).split(",") if name.strip()]


def feed_blank(distance: int) -> None:
    """Feeds blank paper on the default printer.

    Args:
        distance: How much, 1 to 1000, in the service's unit.

    Raises:
        TolvexError: The printer or the service failed.
        ValueError: The distance is out of its range.
    """
    printing.verdict(_exports.printBlanks, number(distance, "the distance", 1, MOST_DISTANCE))


def open_cash_drawer() -> None:
    """Opens the cash drawer. Whether it opened, nobody can ask: the service has no such command.

    Raises:
        TolvexError: The service failed.
    """
    printing.verdict(_exports.OpenCashDrawerEx)
