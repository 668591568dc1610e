"""The same for asyncio: every call that talks with the service, as a coroutine.

Calls run in two threads of their own, one for each connection, so the event loop goes on, and a weight does
not wait for a receipt. ctypes lets go of the interpreter lock for the time of a call.

A task that is cancelled stops waiting. A call that has begun goes on to its end all the same - the library has
no way to break one off - and those behind it wait for it; one that has not begun is dropped. The end of the
program waits for a call that goes on: at most 42 s, for a receipt 42 s for each line.
"""

import asyncio
import threading
import time
from concurrent.futures import ThreadPoolExecutor
from decimal import Decimal
from typing import Any, Callable, Dict, List, Optional, TypeVar, Union

from . import _printing, _receipt, _scale, _service
from ._errors import StableWeightTimeout
from ._native import process
from ._printing import FilePath, PrinterStatus, PrinterType
from ._receipt import JobType, Receipt
from ._scale import Reading, ScaleInfo

__all__ = [
    "Printer",
    "PrinterSettings",
    "Scale",
    "check_connection",
    "feed_blank",
    "open_cash_drawer",
    "print_label",
    "print_receipt",
    "printers",
    "service_log_level",
    "set_service_log_level",
]

Result = TypeVar("Result")


class _Worker:
    """A thread for the calls on one connection, which is started with the first of them."""

    def __init__(self, name: str) -> None:
        self._name = name
        self._lock = threading.Lock()
        self._executor: Optional[ThreadPoolExecutor] = None

    async def run(self, function: Callable[..., Result], *arguments: Any) -> Result:
        process.check()
        with self._lock:
            if self._executor is None:
                self._executor = ThreadPoolExecutor(max_workers=1, thread_name_prefix=self._name)
        return await asyncio.get_running_loop().run_in_executor(self._executor, lambda: function(*arguments))


_weighing = _Worker("tolvex-weighing")
_printing_worker = _Worker("tolvex-printing")


class Scale:
    """The scale; see tolvex.Scale."""

    def __init__(self) -> None:
        self._scale = _scale.Scale()

    async def read(self) -> Reading:
        """Reads the weight, stable or not. See tolvex.Scale.read."""
        return await _weighing.run(self._scale.read)

    async def wait_stable(
        self,
        timeout: float = 20.0,
        interval: float = 0.1,
        until: Optional[Callable[[Reading], bool]] = None,
    ) -> Reading:
        """Reads the weight until it has settled. See tolvex.Scale.wait_stable.

        Between two readings, other commands for the scale have their turn, and the task can be cancelled.
        """
        _scale.check_waiting(timeout, interval)
        end = time.monotonic() + timeout
        while True:
            reading = await self.read()
            if _scale.is_awaited(reading, until):
                return reading
            left = end - time.monotonic()
            if left <= 0:
                raise StableWeightTimeout(reading, timeout)
            await asyncio.sleep(min(interval, left))

    async def info(self) -> ScaleInfo:
        """Asks what the scale is. See tolvex.Scale.info."""
        return await _weighing.run(self._scale.info)

    async def zero(self) -> None:
        """Sets the scale to zero. See tolvex.Scale.zero."""
        await _weighing.run(self._scale.zero)

    async def tare(self) -> Optional[Decimal]:
        """Takes what lies on the scale as the tare. See tolvex.Scale.tare."""
        return await _weighing.run(self._scale.tare)

    async def clear_tare(self) -> Optional[Decimal]:
        """Clears the tare. See tolvex.Scale.clear_tare."""
        return await _weighing.run(self._scale.clear_tare)

    async def version(self) -> Dict[str, Any]:
        """Asks for the version of the service's weighing part. See tolvex.Scale.version."""
        return await _weighing.run(self._scale.version)

    async def set_overload_alarm(self, on: bool) -> None:
        """Switches the scale's overload alarm. See tolvex.Scale.set_overload_alarm."""
        await _printing_worker.run(self._scale.set_overload_alarm, on)

    async def raw_command(self, command: str, parameters: str = "", timeout: float = 40.0) -> str:
        """Sends any command to the weighing service. See tolvex.Scale.raw_command."""
        return await _weighing.run(self._scale.raw_command, command, parameters, timeout)


class Printer:
    """A printer by its type; see tolvex.Printer."""

    def __init__(self, type: int = PrinterType.DEFAULT) -> None:
        self._printer = _printing.Printer(type)

    async def status(self) -> PrinterStatus:
        """Asks how the printer is. See tolvex.Printer.status."""
        return await _printing_worker.run(self._printer.status)

    async def print_text(self, text: str, size: int = 24) -> None:
        """Prints a text of any script as one line. See tolvex.Printer.print_text."""
        await _printing_worker.run(self._printer.print_text, text, size)

    async def print_wrapped(self, text: str, size: int = 24, width: int = 72) -> None:
        """Prints a text of any length. See tolvex.Printer.print_wrapped."""
        await _printing_worker.run(self._printer.print_wrapped, text, size, width)

    async def print_image(self, path: FilePath, angle: int = 0) -> None:
        """Prints an image file. See tolvex.Printer.print_image."""
        await _printing_worker.run(self._printer.print_image, path, angle)

    async def cut(self) -> None:
        """Cuts the paper. See tolvex.Printer.cut."""
        await _printing_worker.run(self._printer.cut)

    async def feed(self) -> None:
        """Feeds paper. See tolvex.Printer.feed."""
        await _printing_worker.run(self._printer.feed)

    async def calibrate(self) -> None:
        """Measures the gap between the labels. See tolvex.Printer.calibrate."""
        await _printing_worker.run(self._printer.calibrate)

    async def calibrate_paper_end(self) -> None:
        """Calibrates the sensor for the end of the paper. See tolvex.Printer.calibrate_paper_end."""
        await _printing_worker.run(self._printer.calibrate_paper_end)

    async def set_paper_width(self, width: int) -> None:
        """Sets the width of the paper. See tolvex.Printer.set_paper_width."""
        await _printing_worker.run(self._printer.set_paper_width, width)

    async def set_gap_type(self, gap_type: int) -> None:
        """Sets how labels are told apart. See tolvex.Printer.set_gap_type."""
        await _printing_worker.run(self._printer.set_gap_type, gap_type)

    async def set_direction(self, direction: int) -> None:
        """Sets which way round the printer prints. See tolvex.Printer.set_direction."""
        await _printing_worker.run(self._printer.set_direction, direction)

    async def set_text_wrap_mode(self, mode: int) -> None:
        """Sets what becomes of a line that is too long. See tolvex.Printer.set_text_wrap_mode."""
        await _printing_worker.run(self._printer.set_text_wrap_mode, mode)


class PrinterSettings:
    """Settings of a printer by its name; see tolvex.PrinterSettings."""

    def __init__(self, name: str) -> None:
        self._settings = _printing.PrinterSettings(name)

    async def set_left_margin(self, margin: int) -> None:
        """Sets the left margin."""
        await _printing_worker.run(self._settings.set_left_margin, margin)

    async def set_right_margin(self, margin: int) -> None:
        """Sets the right margin."""
        await _printing_worker.run(self._settings.set_right_margin, margin)

    async def set_paper_offset(self, offset: int) -> None:
        """Sets where on the paper the printer begins."""
        await _printing_worker.run(self._settings.set_paper_offset, offset)

    async def set_contrast(self, contrast: int) -> None:
        """Sets how dark the printer prints."""
        await _printing_worker.run(self._settings.set_contrast, contrast)

    async def set_speed(self, speed: int) -> None:
        """Sets how fast the printer prints."""
        await _printing_worker.run(self._settings.set_speed, speed)

    async def set_auto_print(self, on: bool) -> None:
        """Switches automatic printing."""
        await _printing_worker.run(self._settings.set_auto_print, on)

    async def set_rollback(self, on: bool) -> None:
        """Switches rolling the paper back."""
        await _printing_worker.run(self._settings.set_rollback, on)

    async def set_take_up_sensor(self, on: bool) -> None:
        """Switches the sensor for taken paper."""
        await _printing_worker.run(self._settings.set_take_up_sensor, on)

    async def firmware_version(self) -> Dict[str, Any]:
        """Asks for the version of the printer's firmware. See tolvex.PrinterSettings.firmware_version."""
        return await _printing_worker.run(self._settings.firmware_version)

    async def raw_command(self, command: str, value: int = 0, parameters: str = "", timeout: float = 40.0) -> str:
        """Sends any command for this printer. See tolvex.PrinterSettings.raw_command."""
        return await _printing_worker.run(self._settings.raw_command, command, value, parameters, timeout)


async def print_receipt(receipt: Receipt, job_type: int = JobType.TICKET_CUT) -> None:
    """Prints a receipt as it is now; lines that are added later are not on it. See tolvex.Receipt.print."""
    prepared = receipt.prepared(job_type)
    await _printing_worker.run(_receipt.send, prepared, int(job_type))


async def print_label(receipt: Receipt, job_type: int = JobType.LABEL) -> None:
    """Prints a label as it is now. See tolvex.Receipt.print_label."""
    await print_receipt(receipt, job_type)


async def printers() -> List[str]:
    """Asks for the names of the printers. See tolvex.printers."""
    return await _printing_worker.run(_printing.printers)


async def feed_blank(distance: int) -> None:
    """Feeds blank paper on the default printer. See tolvex.feed_blank."""
    await _printing_worker.run(_printing.feed_blank, distance)


async def open_cash_drawer() -> None:
    """Opens the cash drawer. See tolvex.open_cash_drawer."""
    await _printing_worker.run(_printing.open_cash_drawer)


async def check_connection() -> bool:
    """Asks whether the service answers. See tolvex.check_connection."""
    return await _weighing.run(_service.check_connection)


def _worker_of(module: str) -> _Worker:
    return _printing_worker if module == "print" else _weighing


async def service_log_level(module: str) -> str:
    """Asks for the log level of one of the service's modules. See tolvex.service_log_level."""
    return await _worker_of(module).run(_service.service_log_level, module)


async def set_service_log_level(module: str, level: Union[str, int]) -> None:
    """Sets the log level of one of the service's modules. See tolvex.set_service_log_level."""
    await _worker_of(module).run(_service.set_service_log_level, module, level)
