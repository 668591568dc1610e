"""What goes wrong, as exceptions."""

from typing import TYPE_CHECKING, Any, List, Optional, Tuple

from ._codes import ANSWERS, RESULT_CODES, Explanation, ResultCode

if TYPE_CHECKING:
    from ._scale import Reading

FAILED = 255
UNREADABLE_REPLY = -1

# A verdict that failed, while the last error is 0.
NO_CODE = Explanation(
    FAILED,
    "Failed",
    "Failed",
    "There is no code: another call ended at the same time, or an argument was refused.",
    "Read the library's log, which has the reason.",
)


def _name_of_unknown(code: int) -> str:
    return f"Unknown code {code}"


def explain(code: int) -> Explanation:
    """What a code means, and what to do about it.

    Args:
        code: A result code, or one of what functions answer beside them (-1, 240, 242, 243, 255).

    Returns:
        The row of the table, or one that says that the code is unknown: services may have codes of their own.
    """
    known = RESULT_CODES.get(code) or ANSWERS.get(code)
    if known is not None:
        return known
    name = _name_of_unknown(code)
    return Explanation(
        code,
        name,
        name,
        "The service answered a code that the library's table does not have.",
        "Look the code up in the service's manual; the library's log and the service's own log say more.",
    )


class TolvexError(Exception):
    """A command that failed.

    Attributes:
        operation: The library's function that failed, such as "BeginPrint".
        code: The result code, to be compared with the members of ResultCode; -1 for a reply that could not
            be read, 255 where there is no code.
        name: The code's name, such as "OutOfPaper".
        text: The code's own text, such as "Out of Paper".
        meaning: What it means, in a sentence.
        remedy: What to do about it.
        reply: The service's whole reply, where the function hands it out.
    """

    def __init__(self, operation: str, explanation: Explanation, reply: Optional[str] = None) -> None:
        self.operation = operation
        self.code, self.name, self.text, self.meaning, self.remedy = explanation
        self.reply = reply
        self._explanation = explanation
        # The name of a code that nobody knows has the number in it.
        is_known = self.name != _name_of_unknown(self.code)
        title = f"{self.code} {self.name} ({self.text})" if is_known else self.name
        super().__init__(f"{operation}: {title}. {self.meaning} What to do: {self.remedy}")

    def __reduce__(self) -> Tuple[Any, ...]:
        return TolvexError, (self.operation, self._explanation, self.reply)


def error_of_code(operation: str, code: int, reply: Optional[str] = None) -> TolvexError:
    """The exception for a result code."""
    return TolvexError(operation, explain(code), reply)


def error_of_verdict(operation: str, last_error: int) -> TolvexError:
    """The exception for a verdict that failed, with the last error behind it."""
    return TolvexError(operation, NO_CODE if last_error == 0 else explain(last_error))


def unreadable(operation: str, meaning: str) -> TolvexError:
    """The exception for a reply whose content is not what it has to be."""
    row = ANSWERS[UNREADABLE_REPLY]
    return TolvexError(operation, row._replace(meaning=meaning))


class LibraryNotLoaded(OSError):
    """There is no library that this process can use.

    Attributes:
        tried: Each file that was tried, with what is wrong with it.
        process: What is running, such as "Python 3.11.2 for 64-bit Linux (x64)".
        needed: What the library has to be made for.
        remedy: What to do.
    """

    def __init__(self, tried: List[Tuple[str, str]], process: str, needed: str, remedy: str) -> None:
        self.tried = tried
        self.process = process
        self.needed = needed
        self.remedy = remedy
        files = "".join(f"\n  {file} {reason}" for file, reason in tried)
        super().__init__(
            f"The tolvex library cannot be loaded. Tried:{files}\n"
            f"This is {process}; needed is a library for {needed}.\nWhat to do: {remedy}"
        )

    def __reduce__(self) -> Tuple[Any, ...]:
        return LibraryNotLoaded, (self.tried, self.process, self.needed, self.remedy)


class UnprintableText(ValueError):
    """A text has a character that the library cannot be handed.

    Attributes:
        text: The text.
        character: The first such character.
        position: Where it stands in the text, counted from 0.
        code_page: The encoding that does not have it.
        is_path: Whether the text is the path of an image, which is never changed.
    """

    def __init__(self, text: str, position: int, code_page: str, is_path: bool = False) -> None:
        self.text = text
        self.is_path = is_path
        self.position = position
        self.character = text[position]
        self.code_page = code_page
        number = ord(self.character)
        if 0xD800 <= number <= 0xDFFF:
            what = (
                f"U+{number:04X} at position {position} of {_shown(text)} is half of a surrogate pair, "
                "and no character."
            )
            remedy = "Mend the text where it comes from; it was cut in two, or read with the wrong encoding."
        else:
            what = (
                f"The character '{self.character}' (U+{number:04X}) at position {position} of {_shown(text)} is not in "
                f"{code_page}, the code page in which the library takes what is queued."
            )
            remedy = (
                "Print it past the queue with Printer.print_text, run the program under UTF-8 (Linux: LC_ALL=C.UTF-8), "
                'or have such characters replaced by "?" with Receipt(errors="replace").'
            )
        if is_path:
            remedy = "Give the image a path without this character, and add that one."
        super().__init__(f"{what} What to do: {remedy}")

    def __reduce__(self) -> Tuple[Any, ...]:
        return UnprintableText, (self.text, self.position, self.code_page, self.is_path)


def _shown(text: str) -> str:
    """A text as it can be shown in a message, whatever is in it."""
    return repr(text if len(text) <= 60 else text[:57] + "...")


# The result codes that mean the same as a reading without a weight.
_CODES_OF_STATES = {
    "UNDER_LOAD": ResultCode.UNDER_LOAD,
    "OVER_LOAD": ResultCode.OVER_LOAD,
    "INVALID": ResultCode.INVALID_WEIGHT,
}


class StableWeightTimeout(TimeoutError):
    """The scale did not come to rest in time, or not with the weight that was waited for.

    Attributes:
        last: The last reading, which says why.
        timeout: How long it was waited for, in seconds.
    """

    def __init__(self, last: "Reading", timeout: float) -> None:
        self.last = last
        self.timeout = timeout
        if last.stable:
            missed = "There was a stable weight, but not the one that is waited for,"
            remedy = "Do what the program waits for on the scale, such as putting the goods there, and try again."
        else:
            missed = "There was no stable weight"
            remedy = RESULT_CODES[_CODES_OF_STATES.get(last.state.name, ResultCode.WEIGHT_NOT_STABLE)].remedy
        super().__init__(f"{missed} within {timeout:g} s; the last reading: {last}. What to do: {remedy}")

    def __reduce__(self) -> Tuple[Any, ...]:
        return StableWeightTimeout, (self.last, self.timeout)


class QueueNotEmpty(RuntimeError):
    """The library still holds lines of another receipt, which it could not queue to its end.

    Nothing but printing empties the library's queue.
    """

    def __init__(self, lines: int) -> None:
        self.lines = lines
        super().__init__(
            f"The library still holds {lines} lines of another receipt, whose queueing failed half-way, and they would "
            "come out above this one. What to do: print that receipt again, which goes on where it stopped, or "
            "restart the application."
        )

    def __reduce__(self) -> Tuple[Any, ...]:
        return QueueNotEmpty, (self.lines,)
