"""The parts of the Python binding that are made from the header: raw functions with records, result codes."""

from pathlib import Path
from typing import Dict, List

from header import Function, Header, Parameter, Record

HEAD = '"""{}\n\nWritten by ./run bindings from src/api/exports.h. Do not edit.\n"""\n'

# What is written to a buffer whose size the caller does not tell.
TARE_BYTES = 10
# They answer without the library's context: neither a connection nor a fork in the past matters to them.
WITHOUT_SERVICE = {"setHighResWeightMode", "getHighResWeightMode", "SetServerIpForRemoteAccess"}
MEMBER_TYPES = {"int32_t": "ctypes.c_int32", "char": "ctypes.c_char", "unsigned char": "ctypes.c_uint8"}


def _text(text: str) -> str:
    """A string literal."""
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def _docstring(lines: List[str], indent: str) -> str:
    inside = "\n".join((indent + line).rstrip() for line in lines).strip().replace("\\", "\\\\")
    return f'{indent}"""{inside}\n{indent}"""\n'


def _least_size(function: Function, header: Header) -> int:
    """Bytes that a function writes to the buffer that it is given without a size."""
    name = function.twin or function.name
    records = {"read_baseinfo": "tolvex_base_info", "read_standard": "tolvex_weight"}
    if name in records:
        return next(record.size for record in header.records if record.name == records[name])
    return TARE_BYTES


def _converter(function: Function, at: int, header: Header) -> str:
    parameter = function.parameters[at]
    if parameter.type == "char *":
        following = function.parameters[at + 1 :]
        if any(p.name == "size" for p in following):
            return "Buffer()"
        # The one that is read, too, has to end in a NUL.
        terminated = ", terminated=True" if parameter.name == "text" else ""
        return f"Buffer({_least_size(function, header)}{terminated})"
    return {"const char *": "Text()", "int": "Int()", "unsigned int": "UInt()"}[parameter.type]


def _hint(parameter: Parameter) -> str:
    return {"char *": "OutBuffer", "const char *": "Optional[bytes]"}.get(parameter.type, "int")


def _function(function: Function, header: Header) -> str:
    arguments = ", ".join(f"{p.name}: {_hint(p)}" for p in function.parameters)
    names = ", ".join(p.name for p in function.parameters)
    converters = "".join(", " + _converter(function, at, header) for at in range(len(function.parameters)))
    sized = [p.name for p in function.parameters]
    if "size" in sized:
        buffer = next(at for at, p in enumerate(function.parameters) if p.type == "char *")
        converters += f", sized=({buffer}, {sized.index('size')})"
    name = function.twin or function.name
    if name in WITHOUT_SERVICE or function.group == "Functions without a device":
        converters += ", needs_service=False"
    comment = list(function.comment)
    if function.twin:
        comment = [f"Does exactly what {function.twin} does:", ""] + comment
    comment += ["", f"In C: {function.declaration}"]
    return (
        f'_{function.name} = Export("{function.name}"{converters})\n\n\n'
        f"def {function.name}({arguments}) -> int:\n{_docstring(comment, '    ')}    return _{function.name}({names})\n"
    )


def _record(record: Record) -> str:
    lines = [
        f"class {record.name}(ctypes.Structure):",
        _docstring(record.comment, "    ").rstrip("\n"),
        "",
        "    _fields_ = [",
    ]
    for member in record.members:
        kind = MEMBER_TYPES[member.type] + (f" * {member.count}" if member.count else "")
        lines.append(f'        ("{member.name}", {kind}),  # {member.comment}')
    return "\n".join(lines) + "\n    ]\n"


def _exports(header: Header) -> str:
    names = (
        list(header.constants)
        + [record.name for record in header.records]
        + [function.name for function in header.functions]
    )
    parts = [
        HEAD.format("The library's functions under their own names, its records and its constants."),
        "import ctypes\nfrom typing import Optional\n\nfrom ._native import Buffer, Export, Int, OutBuffer, Text, UInt\n",
        "__all__ = [\n" + "".join(f'    "{name}",\n' for name in names) + "]\n",
        "".join(f"{name} = {value}  # {header.constant_comments[name]}\n" for name, value in header.constants.items()),
    ]
    parts += ["\n" + _record(record) for record in header.records]
    group = ""
    for function in header.functions:
        if function.group != group:
            group = function.group
            parts.append(f"\n# ---- {group} ----")
        parts.append("\n" + _function(function, header))
    return "\n".join(parts)


def _row(code: int, name: str, text: str, meaning: str, remedy: str) -> str:
    strings = "".join(f"        {_text(value)},\n" for value in (name, text, meaning, remedy))
    return f"    {code}: Explanation(\n        {code},\n{strings}    ),\n"


def _answer_name(constant: str) -> str:
    return "".join(word.capitalize() for word in constant.split("_")[1:])


def _codes(header: Header) -> str:
    members = "".join(f"    {code.NAME} = {code.code}\n" for code in header.codes)
    rows = "".join(_row(c.code, c.name, c.text, c.meaning, c.remedy) for c in header.codes)
    answers = ""
    taken = set()
    for answer in header.answers:
        # -1 is there twice: as an answer of read_standard it is a state of the scale and no failure.
        if answer.code not in taken and answer.constant not in ("TOLVEX_UNDER_LOAD", "TOLVEX_OVER_LOAD"):
            taken.add(answer.code)
            answers += _row(answer.code, _answer_name(answer.constant), answer.text, answer.meaning, answer.remedy)
    return (
        HEAD.format("The result codes, with what they mean and what to do about them.")
        + "\nfrom enum import IntEnum\nfrom typing import Dict, NamedTuple\n\n\n"
        + "class ResultCode(IntEnum):\n"
        + '    """The result codes, shared with the service. It may have further ones of its own."""\n\n'
        + members
        + "\n\nclass Explanation(NamedTuple):\n"
        + '    """What a code is called, what it means, and what to do about it."""\n\n'
        + "    code: int\n    name: str\n    text: str\n    meaning: str\n    remedy: str\n\n\n"
        + f"RESULT_CODES: Dict[int, Explanation] = {{\n{rows}}}\n\n"
        + "# What functions answer beside the result codes.\n"
        + f"ANSWERS: Dict[int, Explanation] = {{\n{answers}}}\n"
    )


def files(header: Header, folder: Path) -> Dict[str, str]:
    return {"src/tolvex/_exports.py": _exports(header), "src/tolvex/_codes.py": _codes(header)}
