"""Receipts and labels, printed by the library's queue."""

from enum import IntEnum
from pathlib import Path
from typing import Callable, List, NamedTuple, Tuple, Union

from . import _exports
from ._calls import number, printing, uninterrupted
from ._encoding import check_text, code_page
from ._errors import QueueNotEmpty, UnprintableText, explain
from ._native import INT_MIN
from ._printing import FilePath, absolute_path, font_size

MOST_WIDTH = 80  # millimetres; the library takes more for this
MOST_ANGLE = 65535  # it goes out as a 16-bit number
MOST_LINE_BYTES = 2048  # of a line that is not fitted to the paper, in UTF-8
MOST_IMAGES = 200  # the library has so many names for its copies


class JobType(IntEnum):
    """What becomes of a job: which printer it goes to, and what is done when it is printed.

    Those that are the same to the library may mean different things to the service.
    """

    TICKET = 0  # on the ticket printer: print
    IMAGE_TICKET = 7
    TICKET_FEED = 4  # print and feed
    FP_FEED = 104
    TICKET_CUT = 8  # print and cut
    FP_CUT = 105
    FLP_CUT = 207
    LABEL = 2  # on the label printer: print
    IMAGE_LABEL = 204
    DOT_LABEL = 205
    FEED_AUTO = 206  # print and feed
    LABEL_FEED = 208
    THIRD = 301  # on the third printer: print
    THIRD_FEED = 304  # print and feed
    THIRD_CUT = 305  # print and cut


# They leave the queue as it is: calibrations, and types that do nothing.
_NOT_PRINTING = {80, 81, 90, 91, 6, 106, 209, 306}
# With nothing queued, they still feed or cut.
_FEED_OR_CUT = {4, 104, 206, 208, 304, 8, 105, 207, 305}


class Queued(NamedTuple):
    """A call that queues a line or an image, with its arguments as the library takes them."""

    function: Callable[..., int]
    text: bytes
    numbers: Tuple[int, ...]


class _Text(NamedTuple):
    text: str
    size: int

    def prepared(self, errors: str) -> Queued:
        encoded = code_page().encode(self.text, errors)
        for line in self.text.replace("\r\n", "\n").split("\n"):
            size = len(line.encode("utf-8", "replace"))
            if size > MOST_LINE_BYTES:
                raise ValueError(
                    f"a line has {size} bytes in UTF-8, and at most {MOST_LINE_BYTES} can be printed: {line[:40]!r}... "
                    "Break it up, or add it with wrapped()."
                )
        return Queued(_exports.PrintText, encoded, (self.size,))


class _Wrapped(NamedTuple):
    text: str
    size: int
    width: int

    def prepared(self, errors: str) -> Queued:
        encoded = code_page().encode(self.text, errors)
        return Queued(_exports.PrintTextByPaperWidth, encoded, (self.size, self.width))


class _Image(NamedTuple):
    path: str
    angle: int

    def prepared(self, errors: str) -> Queued:
        try:
            # With "?" in the place of a character, it would be another file.
            encoded = code_page().encode(self.path)
        except UnprintableText as error:
            raise UnprintableText(error.text, error.position, error.code_page, is_path=True) from None
        if not Path(self.path).is_file():
            raise FileNotFoundError(f"there is no image {self.path}")
        return Queued(_exports.PrintBitmapFile, encoded, (self.angle,))


# What the library holds of a receipt whose queueing failed half-way: it can only be printed.
_left: List[Queued] = []


def send(calls: List[Queued], job_type: int) -> None:
    with printing.held():
        if calls[: len(_left)] != _left:
            raise QueueNotEmpty(len(_left))
        for call in calls[len(_left) :]:
            answer = call.function(call.text, *call.numbers)
            if answer in (_exports.TOLVEX_FONT_TOO_SMALL, _exports.TOLVEX_FONT_TOO_BIG):
                row = explain(answer)
                raise ValueError(
                    f"the library refuses the font size {call.numbers[0]}. {row.meaning} What to do: {row.remedy}"
                )
            if answer != _exports.TOLVEX_OK:
                # Queueing sends nothing, so the last error is that of another call.
                raise MemoryError(f"{call.function.__name__} could not queue a line or an image; see the library's log")
            _left.append(call)
        try:
            printing.verdict(_exports.BeginPrint, job_type)
        finally:
            _left.clear()


class Receipt:
    """A receipt or a label: lines and images that are printed together.

    Nothing reaches the library before print(). A receipt keeps its lines, so that it can be printed again
    after a failure, and any number of times.

    Several threads may print receipts, one after the other; their lines never mix. The object itself belongs
    to one thread at a time.

    Args:
        errors: What becomes of characters that the system's ANSI code page does not have: "strict" refuses
            them, "replace" prints "?" instead.
    """

    def __init__(self, errors: str = "strict") -> None:
        if errors not in ("strict", "replace"):
            raise ValueError(f'errors has to be "strict" or "replace", not {errors!r}')
        self.errors = errors
        self._lines: List[Union[_Text, _Wrapped, _Image]] = []

    def __len__(self) -> int:
        """How many texts and images it has."""
        return len(self._lines)

    def text(self, text: str, size: int = 24) -> "Receipt":
        """Adds a text: a line, or one for each line feed in it. An empty text is a blank line.

        Args:
            text: The text; each line has at most 2048 bytes in UTF-8.
            size: Height of the characters in dots, 12 to 72.

        Raises:
            ValueError: The size is out of its range, or there is a NUL in the text.
        """
        self._lines.append(_Text(check_text(text) or " ", font_size(size)))
        return self

    def wrapped(self, text: str, size: int = 24, width: int = 72) -> "Receipt":
        """Adds a text with lines of any length, which the service fits to the paper.

        Args:
            text: The text.
            size: Height of the characters in dots, 12 to 72.
            width: Width of the paper in millimetres, 1 to 80.

        Raises:
            ValueError: A number is out of its range, or there is a NUL in the text.
        """
        checked = number(width, "the width", 1, MOST_WIDTH)
        self._lines.append(_Wrapped(check_text(text) or " ", font_size(size), checked))
        return self

    def image(self, path: FilePath, angle: int = 0) -> "Receipt":
        """Adds an image file. The library copies it when the receipt is printed.

        Args:
            path: The file. A relative path counts from the present working folder.
            angle: 0, 90, 180 or 270; others are the service's business.

        Raises:
            ValueError: The path is empty or holds a NUL, or the angle is out of its range.
        """
        self._lines.append(_Image(absolute_path(path), number(angle, "the angle", 0, MOST_ANGLE)))
        return self

    def blank(self, size: int = 24) -> "Receipt":
        """Adds a blank line."""
        return self.text(" ", size)

    def print(self, job_type: int = JobType.TICKET_CUT) -> None:
        """Prints the receipt, and returns when it is printed.

        All of it is converted and checked before its first line is queued. It takes at most 42 s for each
        line and image, and 84 s. Ctrl-C ends the wait, but not the job.

        Args:
            job_type: A JobType, or another number of a job that prints. Those that feed or cut do so also for
                an empty receipt.

        Raises:
            TolvexError: The printer or the service failed. What went out before is with the printer already:
                cut it off before the receipt is printed again.
            UnprintableText: A text, or the path of an image, has a character that the system's code page does not
                have. Nothing was printed.
            FileNotFoundError: There is no such image. Nothing was printed.
            ValueError: A line is too long, or the job type does not print. Nothing was printed.
        """
        prepared = self.prepared(job_type)
        uninterrupted(lambda: send(prepared, int(job_type)))

    def print_label(self, job_type: int = JobType.LABEL) -> None:
        """Prints it as a label. See print()."""
        self.print(job_type)

    def prepared(self, job_type: int) -> List[Queued]:
        """What print() is going to hand to the library, converted and checked."""
        number(job_type, "the job type", INT_MIN)
        if job_type in _NOT_PRINTING:
            raise ValueError(f"the job type {int(job_type)} prints nothing; calibrate with Printer.calibrate()")
        if not self._lines and job_type not in _FEED_OR_CUT:
            raise ValueError("the receipt is empty")
        images = sum(isinstance(line, _Image) for line in self._lines)
        if images > MOST_IMAGES:
            raise ValueError(f"a receipt has at most {MOST_IMAGES} images, not {images}: print it as several")
        return [line.prepared(self.errors) for line in self._lines]
