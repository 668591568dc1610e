"""The scale."""

import json
import math
import re
import time
from dataclasses import dataclass
from decimal import Decimal
from enum import Enum
from typing import Any, Callable, Dict, Optional, Tuple

from . import _exports
from ._calls import REPLY_BYTES, decoded, milliseconds, printing, weighing
from ._encoding import utf8
from ._errors import StableWeightTimeout, error_of_code, unreadable


class WeightState(Enum):
    """What a reading is."""

    WEIGHT = "weight"  # a weight, stable or not
    UNDER_LOAD = "under load"  # less on the scale than it can show
    OVER_LOAD = "over load"  # more on the scale than it can weigh
    INVALID = "invalid"  # the scale has no valid weight, for example before its zero is found


@dataclass(frozen=True)
class Reading:
    """What the scale said.

    Attributes:
        state: What kind of reading it is. In all but WEIGHT there are no weights, and the flags are False.
        net: The net weight, exactly as the scale shows it, in the unit of ScaleInfo.unit.
        tare: The tare in the same unit; also None where the service tells none.
        stable: The weight has settled. Sell only such ones.
        zero: Nothing is on the scale.
        tare_active: A tare is subtracted.
        net_text: The net weight as the library's text, such as "00.4820".
        tare_text: The tare as the library's text.
    """

    state: WeightState
    net: Optional[Decimal] = None
    tare: Optional[Decimal] = None
    stable: bool = False
    zero: bool = False
    tare_active: bool = False
    net_text: str = ""
    tare_text: str = ""

    def __str__(self) -> str:
        if self.state is not WeightState.WEIGHT:
            return str(self.state.value)
        return f"{self.net} net, tare {self.tare}, {'stable' if self.stable else 'moving'}"


@dataclass(frozen=True)
class WeighingRange:
    """A range of the scale: up to capacity it weighs in steps of division."""

    capacity: Decimal
    division: Decimal


@dataclass(frozen=True)
class ScaleInfo:
    """What the scale is. All weights are in its unit.

    Attributes:
        ranges: Its ranges, the finest one first.
        min_weight: The least weight that it may be used for.
        max_tare: The largest tare.
        max_preset_tare: The largest preset tare.
        unit: The unit, such as "kg".
        system_version: The version of its software.
    """

    ranges: Tuple[WeighingRange, ...]
    min_weight: Decimal
    max_tare: Decimal
    max_preset_tare: Decimal
    unit: str
    system_version: str


# The tare as text, at most.
TARE_BYTES = 10

# The library writes at least three decimals, and cuts off what does not fit. Without a point, digits before
# it may be among that.
_WEIGHT = re.compile(r"-?[0-9]+\.[0-9]*")
_NUMBER = re.compile(r"[+-]?([0-9]+(\.[0-9]*)?|\.[0-9]+)")


def _exact(text: str) -> Decimal:
    value = Decimal(text)
    return value if value else value.copy_abs()  # a zero has no sign on a receipt


def _weight(text: str, what: str) -> Decimal:
    if not _WEIGHT.fullmatch(text):
        raise unreadable("read_standard", f"The service sent no number as the {what}: the record has {text!r}.")
    return _exact(text)


def reading_of(record: bytes) -> Reading:
    """Reads the record of read_standard.

    Args:
        record: Its 24 bytes.

    Raises:
        TolvexError: The record holds no number where one has to be. Its code is -1.
    """
    if record[8:9] == b"\0":  # the mark of a record with a weight
        return Reading(WeightState.INVALID)
    status = record[0]
    net = record[1:8].partition(b"\0")[0].decode("ascii", "replace")
    tare = record[9:24].partition(b"\0")[0].decode("ascii", "replace")
    return Reading(
        state=WeightState.WEIGHT,
        net=_weight(net, "net weight"),
        tare=_weight(tare, "tare") if tare else None,
        stable=bool(status & _exports.TOLVEX_WEIGHT_STABLE),
        zero=bool(status & _exports.TOLVEX_WEIGHT_AT_ZERO),
        tare_active=bool(status & _exports.TOLVEX_WEIGHT_TARE_ACTIVE),
        net_text=net,
        tare_text=tare,
    )


def info_of(record: _exports.tolvex_base_info) -> ScaleInfo:
    """Reads the record of read_baseinfo."""

    def thousandths(value: int) -> Decimal:
        return Decimal(value).scaleb(-3)

    pairs = zip(record.max_range, record.resolution)
    return ScaleInfo(
        ranges=tuple(WeighingRange(Decimal(top), thousandths(step)) for top, step in pairs if top > 0),
        min_weight=thousandths(record.min_range),
        max_tare=thousandths(record.max_tare),
        max_preset_tare=thousandths(record.max_preset_tare),
        unit=decoded(record.weight_unit),
        system_version=decoded(record.system_version),
    )


def tare_of(operation: str, text: str) -> Optional[Decimal]:
    """The tare that the scale reports, None where it was left out."""
    if not text:
        return None
    if not _NUMBER.fullmatch(text.strip()):
        meaning = f"The command was carried out, but the service sent no number as the tare: {text!r}."
        raise unreadable(operation, meaning)
    return _exact(text.strip())


def parsed_reply(operation: str, text: str) -> Dict[str, Any]:
    """A reply that is handed out whole, as a dictionary."""
    try:
        reply = json.loads(text)
    except (ValueError, RecursionError):  # the latter for thousands of brackets
        reply = None
    if not isinstance(reply, dict):
        raise unreadable(operation, f"The reply is no JSON object: {text!r}.")
    return reply


class Scale:
    """The scale of the service. All objects of this class are the same scale.

    Any thread may call. Calls wait for their turn, and not for those that print. Each takes at most 42 s,
    the first call of a process 44 s.
    """

    def read(self) -> Reading:
        """Reads the weight, stable or not.

        Raises:
            TolvexError: The scale or the service failed, or sent what is no weight.
        """
        record = _exports.tolvex_weight()
        states = {
            _exports.TOLVEX_OK: WeightState.WEIGHT,
            _exports.TOLVEX_UNDER_LOAD: WeightState.UNDER_LOAD,
            _exports.TOLVEX_OVER_LOAD: WeightState.OVER_LOAD,
        }
        state = states[weighing.answer(_exports.read_standard, record, accepted=states)]
        return reading_of(bytes(record)) if state is WeightState.WEIGHT else Reading(state)

    def wait_stable(
        self,
        timeout: float = 20.0,
        interval: float = 0.1,
        until: Optional[Callable[[Reading], bool]] = None,
    ) -> Reading:
        """Reads the weight until it has settled.

        Args:
            timeout: How long to wait, in seconds. The last call begins within this time, and may take longer.
            interval: The pause between two readings, in seconds.
            until: Tells of a stable reading whether it is the one that is waited for: lambda r: r.net > 0
                waits for goods. Any stable weight if left out.

        Raises:
            StableWeightTimeout: There was none in this time. It carries the last reading.
            TolvexError: The scale or the service failed.
            ValueError: The interval is below 0, or one of the times is no number (nan).
        """
        check_waiting(timeout, interval)
        end = time.monotonic() + timeout
        while True:
            reading = self.read()
            if is_awaited(reading, until):
                return reading
            left = end - time.monotonic()
            if left <= 0:
                raise StableWeightTimeout(reading, timeout)
            time.sleep(min(interval, left))

    def info(self) -> ScaleInfo:
        """Asks what the scale is: its ranges, limits, unit and version.

        Raises:
            TolvexError: The service failed, or does not work with this version of the library (code 9).
        """
        record = _exports.tolvex_base_info()
        weighing.verdict(_exports.read_baseinfo, record)
        return info_of(record)

    def zero(self) -> None:
        """Sets the scale to zero.

        Raises:
            TolvexError: The scale refuses (code 10), or the load moves (1005), for example.
        """
        weighing.verdict(_exports.send_zero)

    def tare(self) -> Optional[Decimal]:
        """Takes what lies on the scale as the tare.

        Returns:
            The tare that the scale reports now. None in programs called "Kelvarin" or "Lumidesk", which the
            library hands none.

        Raises:
            TolvexError: The scale refuses, or the load moves, for example.
        """
        return self._tare(_exports.set_tare_bykey)

    def clear_tare(self) -> Optional[Decimal]:
        """Clears the tare.

        Returns:
            The tare that is left, as for tare().

        Raises:
            TolvexError: The scale refuses, for example.
        """
        return self._tare(_exports.clear_tare)

    def _tare(self, function: Callable[..., int]) -> Optional[Decimal]:
        text = bytearray(TARE_BYTES + 1)
        weighing.verdict(function, text)
        return tare_of(function.__name__, decoded(text))

    @property
    def high_resolution(self) -> bool:
        """Whether read() reads the net weight in the finer steps that some services have.

        It is one setting for the whole process, and takes effect with the next reading.
        """
        return _exports.getHighResWeightMode() == 1

    @high_resolution.setter
    def high_resolution(self, on: bool) -> None:
        _exports.setHighResWeightMode(1 if on else 0)

    def version(self) -> Dict[str, Any]:
        """Asks for the version of the service's weighing part.

        Returns:
            The service's reply, for example {"result": "0", "version": "2.1"}.

        Raises:
            TolvexError: The service failed.
        """
        reply = bytearray(REPLY_BYTES + 1)
        weighing.code(_exports.getLCVersion, reply, REPLY_BYTES)
        return parsed_reply("getLCVersion", decoded(reply))

    def set_overload_alarm(self, on: bool) -> None:
        """Switches the scale's overload alarm. The command goes over the connection for printing.

        Raises:
            TolvexError: The service failed.
        """
        printing.code(_exports.setOverloadAlarm, 1 if on else 0)

    def raw_command(self, command: str, parameters: str = "", timeout: float = 40.0) -> str:
        """Sends any command to the weighing service.

        Args:
            command: Its name.
            parameters: What becomes "paramList" in the request, unless it is empty.
            timeout: How long to wait for the reply, in seconds. After a wait that was too short, the late reply
                is taken for that of the next command: restart the program then.

        Returns:
            The whole reply, as JSON text.

        Raises:
            TolvexError: The service failed. A reply that came is in its attribute reply.
        """
        name, values = utf8(command, "the command"), utf8(parameters, "the parameters")
        reply = bytearray(REPLY_BYTES + 1)
        with weighing.held():
            code = _exports.sendRawCmdToLC(name, values, reply, REPLY_BYTES, milliseconds(timeout))
        if code != 0:
            raise error_of_code("sendRawCmdToLC", code, decoded(reply) or None)
        return decoded(reply)


def check_waiting(timeout: float, interval: float) -> None:
    """Refuses times with which the wait would never end, or fail between two readings.

    Raises:
        ValueError: The interval is below 0, or one of the times is no number (nan).
    """
    if math.isnan(timeout):
        raise ValueError(f"the timeout has to be a number of seconds, not {timeout}")
    if not interval >= 0:
        raise ValueError(f"the interval has to be 0 s or more, not {interval}")


def is_awaited(reading: Reading, until: Optional[Callable[[Reading], bool]]) -> bool:
    """Whether a reading is stable, and the one that is waited for."""
    return reading.stable and (until is None or until(reading))
