"""Writes the parts of bindings/pascal/tolvex.pas that are made from the header.

The unit is written by hand but for what stands between a line "// generated: NAME" and the next line
"// generated: end". Comments of functions are lines of "//", since texts of C hold all other marks of comments.
"""

import textwrap
from pathlib import Path
from typing import Dict, List

from header import Function, Header, Misunderstood, Parameter, Record

UNIT = "tolvex.pas"
NOTE = "// Written by ./run bindings from src/api/exports.h. Do not edit."
TYPES = {"int": "Integer", "unsigned int": "Cardinal", "char *": "PAnsiChar", "const char *": "PAnsiChar"}
LETTERS = {"Integer": "I", "Cardinal": "U", "PAnsiChar": "P"}
MEMBERS = {"int32_t": "Integer", "char": "AnsiChar", "unsigned char": "Byte"}
# A literal of Delphi has 255 characters at most.
PIECE = 90


def _literal(text: str, indent: str) -> str:
    """A text as a constant of Pascal, in pieces of a line each."""
    pieces = textwrap.wrap(text, PIECE, break_long_words=False, drop_whitespace=False) or [""]
    if "".join(pieces) != text or not text.isascii() or not text.isprintable():
        raise Misunderstood(f"no text for Pascal: {text!r}")
    return (" +\n" + indent).join("'" + piece.replace("'", "''") + "'" for piece in pieces)


def _camel(name: str) -> str:
    """weight_unit -> WeightUnit"""
    return "".join(part[:1].upper() + part[1:] for part in name.split("_"))


def _parameter(parameter: Parameter) -> str:
    return "A" + _camel(parameter.name)


def _shape(function: Function) -> str:
    """The name of the type of functions like this one."""
    return "TRaw" + "".join(LETTERS[TYPES[p.type]] for p in function.parameters)


def _head(function: Function, collides: bool) -> str:
    inside = "; ".join(f"{_parameter(p)}: {TYPES[p.type]}" for p in function.parameters)
    return f"function {function.name}{f'({inside})' if inside else ''}: Integer;{' overload;' if collides else ''}"


def _folded(head: str, indent: str = "") -> str:
    lines = textwrap.wrap(head, 100, break_long_words=False)
    return indent + ("\n  " + indent).join(lines)


def _collisions(header: Header) -> "set[str]":
    """Names that are the same to Pascal, which knows no case."""
    seen: Dict[str, List[Function]] = {}
    for function in header.functions:
        seen.setdefault(function.name.lower(), []).append(function)
    for functions in seen.values():
        if len({tuple(TYPES[p.type] for p in f.parameters) for f in functions}) != len(functions):
            raise Misunderstood(f"Pascal cannot tell these apart: {[f.name for f in functions]}")
    return {name for name, functions in seen.items() if len(functions) > 1}


def _record(record: Record) -> List[str]:
    """A packed record, with the size and the offsets as C has them."""
    lines = [f"  // {line}".rstrip().replace("(char *)&", "@") for line in record.comment]
    lines += [f"  // C: {record.name}, {record.size} bytes"]
    lines += [f"  T{_camel(record.name)} = packed record"]
    for member in record.members:
        kind = MEMBERS[member.type]
        kind = f"array[0..{member.count - 1}] of {kind}" if member.count else kind
        lines.append(f"    {_camel(member.name)}: {kind}; // offset {member.offset}: {member.comment}")
    return lines + ["  end;"]


def _types(header: Header) -> List[str]:
    lines = ["const"]
    for name, value in header.constants.items():
        lines.append(f"  {name} = {value}; // {header.constant_comments[name]}")
    lines += ["", "  // The result codes."]
    lines += [f"  TOLVEX_RESULT_{code.NAME} = {code.code}; // {code.text}" for code in header.codes]
    lines += ["", "type"]
    for record in header.records:
        lines += _record(record) + [""]
    return lines[:-1]


def _rows(header: Header) -> List[str]:
    def row(code: str, name: str, text: str, meaning: str, remedy: str, last: bool) -> List[str]:
        return [
            f"    (Code: {code}; Name: '{name}'; Text: {_literal(text, '     ')};",
            f"     Meaning: {_literal(meaning, '      ')};",
            f"     Remedy: {_literal(remedy, '      ')}){');' if last else ','}",
        ]

    lines = [f"  ResultRows: array[0..{len(header.codes) - 1}] of TResultRow = ("]
    for code in header.codes:
        lines += row(str(code.code), code.name, code.text, code.meaning, code.remedy, code is header.codes[-1])
    lines += ["", "  // What functions answer beside the result codes."]
    lines.append(f"  AnswerRows: array[0..{len(header.answers) - 1}] of TResultRow = (")
    for answer in header.answers:
        name = _camel(answer.constant[len("TOLVEX_") :].lower())
        lines += row(answer.constant, name, answer.text, answer.meaning, answer.remedy, answer is header.answers[-1])
    lines += ["", f"  ExportNames: array[0..{len(header.functions) - 1}] of PAnsiChar = ("]
    lines += [f"    '{f.name}'{');' if f is header.functions[-1] else ','}" for f in header.functions]
    return lines


def _declarations(header: Header) -> List[str]:
    collisions = _collisions(header)
    lines = [f"// {line}".rstrip() for line in header.conventions if line.strip() or line is not header.conventions[-1]]
    group, before = "", None
    for function in header.functions:
        if function.group != group:
            group = function.group
            lines += ["", f"// ---- {group} ----"]
        if before is None or function.comment is not before:
            lines += [""] + [f"// {line}".rstrip() for line in function.comment + function.log]
        before = function.comment
        lines.append(_folded(_head(function, function.name.lower() in collisions)))
    return lines


def _bodies(header: Header) -> List[str]:
    collisions = _collisions(header)
    lines = ["type"]
    shapes: Dict[str, Function] = {}
    for function in header.functions:
        shapes.setdefault(_shape(function), function)
    for name, function in sorted(shapes.items()):
        inside = "; ".join(f"A{i}: {TYPES[p.type]}" for i, p in enumerate(function.parameters))
        lines.append(_folded(f"{name} = function{f'({inside})' if inside else ''}: Integer; cdecl;", "  "))
    for index, function in enumerate(header.functions):
        arguments = ", ".join(_parameter(p) for p in function.parameters)
        lines += ["", _folded(_head(function, function.name.lower() in collisions)), "var", "  Call: TCall;", "begin"]
        lines += [f"  Call := Begun({index});", f"  Result := {_shape(function)}(Call.Entry)({arguments});"]
        lines += ["  Ended(Call);", "end;"]
    return lines


def _calls(header: Header) -> List[str]:
    """For the tests: each export is called once, with nothing in its arguments."""
    nothing = {"Integer": "0", "Cardinal": "Cardinal(0)", "PAnsiChar": "nil"}
    lines = []
    for function in header.functions:
        arguments = ", ".join(nothing[TYPES[p.type]] for p in function.parameters)
        call = f"tolvex.{function.name}{f'({arguments})' if arguments else ''}"
        lines.append(f"  Called('{function.name}', '{function.twin or ''}', {call});")
    return lines


def _layout(header: Header) -> List[str]:
    """For the tests: size and offset of each member, as C has them."""
    lines = []
    for record in header.records:
        variable = _camel(record.name[len("tolvex_") :])
        lines.append(f"  CheckEquals({record.size}, SizeOf({variable}), '{record.name}');")
        for member in record.members:
            name, told = f"{variable}.{_camel(member.name)}", f"'{record.name}.{member.name}'"
            lines.append(f"  CheckEquals({member.offset}, PtrUInt(@{name}) - PtrUInt(@{variable}), {told});")
            lines.append(f"  CheckEquals({member.size}, SizeOf({name}), {told});")
    return lines


def files(header: Header, folder: Path) -> Dict[str, str]:
    """The unit, with its generated parts anew."""
    text = (folder / UNIT).read_text(encoding="utf-8")
    for name, lines in (
        ("types", _types(header)),
        ("functions", _declarations(header)),
        ("tables", _rows(header)),
        ("bodies", _bodies(header)),
    ):
        begin, end = f"// generated: {name}\n", "// generated: end\n"
        if text.count(begin) != 1:
            raise Misunderstood(f"{UNIT} has no one place for: {name}")
        start = text.index(begin) + len(begin)
        stop = text.index(end, start)
        text = text[:start] + NOTE + "\n" + "\n".join(lines) + "\n" + text[stop:]
    of_tests = {"tests/calls.inc": _calls(header), "tests/layout.inc": _layout(header)}
    return {UNIT: text, **{name: "\n".join([NOTE] + lines) + "\n" for name, lines in of_tests.items()}}
