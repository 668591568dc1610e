"""What src/api/exports.h declares, as a model from which each binding's declarations are written.

The header is plain C of one style, kept by clang-format: this reads that style, not C, and refuses
what it does not understand, so that nothing of the header is left out silently.
"""

import re
from dataclasses import dataclass, field
from pathlib import Path
from typing import Dict, List, Optional


@dataclass
class Parameter:
    """One parameter of a function. type is "int", "unsigned int", "char *" or "const char *"."""

    type: str
    name: str


@dataclass
class Function:
    """One export. All of them return int and have the one calling convention of x64.

    comment is the header's text, a list of lines without marks and without the lines about the log; functions that
    stand together below one comment share it. log holds the lines about the log. twin is the name without the suffix
    _stdcall, or None. group is the title of the part of the header. result is "verdict", "code" or "other".
    """

    name: str
    parameters: List[Parameter]
    group: str
    comment: List[str]
    log: List[str]
    twin: Optional[str] = None
    result: str = "other"

    @property
    def declaration(self) -> str:
        """The declaration in C, as `tolvexctl --json call --list` tells it."""
        inside = ", ".join(p.type + ("" if p.type.endswith("*") else " ") + p.name for p in self.parameters)
        return f"int {self.name}({inside or 'void'})"


@dataclass
class ResultCode:
    """A row of TOLVEX_RESULT_CODES."""

    code: int
    NAME: str
    name: str
    text: str
    meaning: str
    remedy: str


@dataclass
class Answer:
    """A row of TOLVEX_ANSWERS: what functions answer beside the result codes."""

    constant: str
    code: int
    text: str
    meaning: str
    remedy: str


@dataclass
class Member:
    """A member of a record. type is "int32_t", "char" or "unsigned char"; count is 0 where it is no array."""

    type: str
    name: str
    count: int
    offset: int
    size: int
    comment: str


@dataclass
class Record:
    """A record of fixed layout, little-endian, without gaps."""

    name: str
    size: int
    members: List[Member]
    comment: List[str]


@dataclass
class Header:
    """All that the header declares."""

    conventions: List[str] = field(default_factory=list)
    constants: Dict[str, int] = field(default_factory=dict)
    constant_comments: Dict[str, str] = field(default_factory=dict)
    codes: List[ResultCode] = field(default_factory=list)
    answers: List[Answer] = field(default_factory=list)
    records: List[Record] = field(default_factory=list)
    functions: List[Function] = field(default_factory=list)


class Misunderstood(Exception):
    """The header holds what this reader does not know."""


SIZES = {"int32_t": 4, "char": 1, "unsigned char": 1}
PARAMETER_TYPES = ("int", "unsigned int", "char *", "const char *")


def _rows(text: str, table: str, row: str) -> List[List[str]]:
    """The rows of an X macro as lists of arguments; texts are joined and without quotes."""
    start = text.index(f"#define {table}({row})")
    end = re.search(r"[^\\]\n", text[start:])
    assert end
    body = text[start : start + end.end()].replace("\\\n", "\n").split("\n", 1)[1]
    token = re.compile(r'\s+|"((?:[^"\\]|\\.)*)"|([A-Za-z_]\w*|-?\d+)|([(),])')
    rows: List[List[str]] = []
    arguments: List[str] = []
    value: Optional[str] = None
    position = depth = 0
    while position < len(body):
        match = token.match(body, position)
        if not match:
            raise Misunderstood(f"{table}: {body[position:position + 40]!r}")
        position = match.end()
        string, word, mark = match.groups()
        if string is not None:
            value = (value or "") + string.replace('\\"', '"')
        elif word is not None and depth == 1:
            value = word
        elif word is not None and word != row:
            raise Misunderstood(f"{table}: {word}")
        elif mark == "(":
            depth, arguments, value = depth + 1, [], None
        elif mark is not None:
            if value is None:
                raise Misunderstood(f"{table}: a row lacks an argument, after {arguments}")
            arguments, value = arguments + [value], None
            if mark == ")":
                depth -= 1
                rows.append(arguments)
                value = None
    return rows


def _comment_lines(text: str) -> List[str]:
    """The lines of a C comment without its marks."""
    lines = text.strip()[2:-2].split("\n")
    return [re.sub(r"^ ?\* ?", "", line.strip()) if i else line.strip() for i, line in enumerate(lines)]


def _without_log(lines: List[str]) -> "tuple[List[str], List[str]]":
    """Splits a comment into what it says of the function and what it says of the log."""
    said: List[str] = []
    log: List[str] = []
    for line in lines:
        if line.startswith("Log"):
            log.append(line)
        elif log and line.startswith(" "):
            log.append(line)
        elif log and line:
            log.append(line)
        elif not log:
            said.append(line)
    while said and not said[-1]:
        said.pop()
    return said, log


def _parameters(text: str, where: str) -> List[Parameter]:
    if text == "void":
        return []
    parameters = []
    for part in text.split(","):
        match = re.fullmatch(r"\s*(.*?)(\w+)\s*", part, re.S)
        kind = match.group(1).strip() if match else ""
        if kind not in PARAMETER_TYPES:
            raise Misunderstood(f"{where}: the parameter {part.strip()!r}")
        assert match
        parameters.append(Parameter(kind, match.group(2)))
    return parameters


def _result(said: List[str]) -> str:
    text = " ".join(said)
    if re.search(r"[Rr]eturns? a verdict|Returns TOLVEX_(OK|FAILED)", text):
        return "verdict"
    if re.search(r"[Rr]eturns (a|a printer's state as a|the) code|Each returns a code|Returns 0\.", text):
        return "code"
    return "other"


def _functions(text: str) -> List[Function]:
    """Reads the declarations in their order, each with the comment that it stands under."""
    item = re.compile(
        r"/\*(?P<comment>.*?)\*/|TOLVEX_API int (?P<name>\w+)\((?P<parameters>[^)]*)\);"
        r"|(?P<blank>\n[ \t]*(?=\n))|(?P<other>\S[^\n]*|\s)",
        re.S,
    )
    functions: List[Function] = []
    group = ""
    said: List[str] = []
    log: List[str] = []
    for match in item.finditer(text):
        if match.group("comment") is not None:
            title = re.fullmatch(r"\s*---- (.*) ----\s*", match.group("comment"))
            if title:
                group, said, log = title.group(1), [], []
            else:
                said, log = _without_log(_comment_lines(match.group(0)))
        elif match.group("blank") is not None:
            pass
        elif match.group("name") is not None:
            name = match.group("name")
            if not said:
                raise Misunderstood(f"{name} has no comment")
            twin = name[: -len("_stdcall")] if name.endswith("_stdcall") else None
            parameters = _parameters(match.group("parameters"), name)
            functions.append(Function(name, parameters, group, said, log, twin, _result(said)))
        elif match.group("other").strip() and not match.group("other").startswith("#"):
            raise Misunderstood(match.group("other"))
    return functions


def _resolve_same(functions: List[Function]) -> None:
    """A comment that begins with "The same" has no result of its own where it is that of the function before."""
    before = "other"
    for function in functions:
        if function.result == "other" and function.comment[0].startswith("The same"):
            function.result = before
        before = function.result


def _records(text: str) -> List[Record]:
    records = []
    for match in re.finditer(r"(/\*(?:(?!\*/).)*\*/)\ntypedef struct (\w+) \{\n(.*?)\n\} \2;", text, re.S):
        members = []
        offset = 0
        for line in match.group(3).split("\n"):
            member = re.fullmatch(r"  (int32_t|char|unsigned char) (\w+)(?:\[(\d+)\])?;\s*/\* (.*) \*/", line)
            if not member:
                raise Misunderstood(f"{match.group(2)}: {line}")
            size = SIZES[member.group(1)] * int(member.group(3) or 1)
            members.append(Member(member.group(1), member.group(2), int(member.group(3) or 0), offset, size, member.group(4)))
            offset += size
        records.append(Record(match.group(2), offset, members, _comment_lines(match.group(1))))
    return records


def read(path: Path) -> Header:
    """Reads the header. Raises Misunderstood, with what it did not understand."""
    text = path.read_text(encoding="ascii")
    header = Header()
    header.conventions = _comment_lines(text[: text.index("*/") + 2])
    for match in re.finditer(r"^#define (TOLVEX_\w+) \(?(-?(?:0x)?[0-9a-fA-F]+)\)?\s*/\* (.*) \*/$", text, re.M):
        header.constants[match.group(1)] = int(match.group(2), 0)
        header.constant_comments[match.group(1)] = match.group(3)
    for code, upper, mixed, said, meaning, remedy in _rows(text, "TOLVEX_RESULT_CODES", "CODE"):
        header.codes.append(ResultCode(int(code), upper, mixed, said, meaning, remedy))
    for constant, said, meaning, remedy in _rows(text, "TOLVEX_ANSWERS", "ANSWER"):
        header.answers.append(Answer(constant, header.constants[constant], said, meaning, remedy))
    header.records = _records(text)
    header.functions = _functions(text[text.index("/* ---- Weighing ---- */") : text.rindex("#ifdef __cplusplus")])
    _resolve_same(header.functions)
    if len({f.name for f in header.functions}) != len(header.functions):
        raise Misunderstood("a function is declared twice")
    return header
