"""Calls of the library that raise what they failed with, one at a time on each connection."""

import threading
from typing import Any, Callable, Container, ContextManager, List, TypeVar

from . import _exports
from ._errors import error_of_code, error_of_verdict
from ._native import INT_MAX, process

Result = TypeVar("Result")

# A reply has at most 2048 bytes; the one behind them stays a NUL.
REPLY_BYTES = 2048


class Connection:
    """One of the library's two connections, held for a call and the question for its code.

    getLastErrCode is one number for both connections. A thread that weighs and one that prints may therefore
    get each other's code, never one another's data; functions that return their code do not ask for it.
    """

    def __init__(self) -> None:
        self._lock = threading.RLock()

    def held(self) -> ContextManager[Any]:
        """What holds it, in a with statement.

        It is the lock itself: with an __enter__ of Python's own, Ctrl-C could come between taking the lock and
        the statement's body, and nothing would let go of it.
        """
        # A fork has the lock in the state that it had in its parent.
        process.check()
        return self._lock

    def answer(self, function: Callable[..., int], *arguments: Any, accepted: Container[int]) -> int:
        """Calls a function, and gives its answer if that is one of the accepted ones.

        Raises:
            TolvexError: It is another one, with the last error as its reason.
        """
        with self.held():
            answer = function(*arguments)
            if answer in accepted:
                return answer
            code = _exports.getLastErrCode()
        raise error_of_verdict(function.__name__, code)

    def verdict(self, function: Callable[..., int], *arguments: Any) -> None:
        """Calls a function returning a verdict.

        Raises:
            TolvexError: It failed.
        """
        self.answer(function, *arguments, accepted=(_exports.TOLVEX_OK,))

    def code(self, function: Callable[..., int], *arguments: Any) -> None:
        """Calls a function returning a code.

        Raises:
            TolvexError: It failed.
        """
        with self.held():
            code = function(*arguments)
        if code != 0:
            raise error_of_code(function.__name__, code)


weighing = Connection()
printing = Connection()


def uninterrupted(work: Callable[[], Result]) -> Result:
    """Does work that must not stop half-way, in a thread of its own if this is the main thread.

    Ctrl-C raises KeyboardInterrupt in the main thread, between any two steps of it. It then leaves this
    function, while the work goes on to its end.
    """
    if threading.current_thread() is not threading.main_thread():
        return work()
    results: List[Result] = []
    failures: List[BaseException] = []

    def run() -> None:
        try:
            results.append(work())
        except BaseException as error:
            failures.append(error)

    thread = threading.Thread(target=run, name="tolvex-job")
    try:
        thread.start()
    except RuntimeError:
        return work()  # the interpreter is about to end, and starts no more threads
    thread.join()
    if failures:
        raise failures[0]
    return results[0]


def decoded(buffer: Any) -> str:
    """The text in a buffer, up to its first NUL. A byte that is no UTF-8 shows as U+FFFD."""
    return bytes(buffer).partition(b"\0")[0].decode("utf-8", "replace")


def number(value: int, what: str, least: int = 0, most: int = INT_MAX) -> int:
    """Refuses a number that the library would bend.

    Raises:
        TypeError: It is no int.
        ValueError: It is out of its range.
    """
    if isinstance(value, bool) or not hasattr(value, "__index__"):
        raise TypeError(f"{what} has to be an int, not {type(value).__name__}")
    checked = int(value.__index__())
    if not least <= checked <= most:
        raise ValueError(f"{what} has to be {least} to {most}, not {checked}")
    return checked


def milliseconds(timeout: float) -> int:
    """A time in seconds as the library takes it.

    Raises:
        ValueError: It is not above 0, or too long.
    """
    # The comparison is also false for what is no number (nan).
    if not 0 < timeout <= INT_MAX / 1000:
        raise ValueError(f"the timeout has to be above 0 and at most {INT_MAX // 1000} s, not {timeout}")
    return max(1, round(timeout * 1000))
