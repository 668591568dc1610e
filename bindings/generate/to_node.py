"""Writes what the Node.js binding has from the header: the exports, the result codes, the layouts, and their types."""

import json
from pathlib import Path
from typing import Dict, List

from header import Function, Header, Parameter

NOTICE = "Written by ./run bindings from src/api/exports.h. Do not edit."

# The least size of a buffer that has no size beside it, by its function.
SIZES = {
    "read_baseinfo": "tolvex_base_info",
    "read_standard": "tolvex_weight",
    "set_tare_bykey": 10,
    "send_tare": 10,
    "send_pre_tare": 10,
    "clear_tare": 10,
}
TYPES = {"int": "int", "unsigned int": "uint", "const char *": "text", "char *": "buffer"}
DECLARED = {"int": "number", "uint": "number", "text": "Text", "buffer": "Uint8Array | null"}


def _size(header: Header, function: Function) -> int:
    size = SIZES[function.twin or function.name]
    return next(r.size for r in header.records if r.name == size) if isinstance(size, str) else size


def _kind(header: Header, function: Function, parameter: Parameter) -> List[object]:
    """A parameter: its name, its type, and of a buffer how much it has to hold, or the parameter that says it."""
    kind: List[object] = [parameter.name, TYPES[parameter.type]]
    if parameter.type == "char *":
        names = [p.name for p in function.parameters]
        kind.append("size" if "size" in names else _size(header, function))
    return kind


def _literal(value: object) -> str:
    return json.dumps(value, ensure_ascii=True)


def _tables(header: Header) -> str:
    lines = [f"// {NOTICE}", "'use strict';", ""]
    lines += ["// Name, kind of the result, parameters.", "const functions = ["]
    for f in header.functions:
        parameters = [_kind(header, f, p) for p in f.parameters]
        lines.append(f"  {_literal([f.name, f.result, parameters])},")
    lines += ["];", "", "const codes = ["]
    for c in header.codes:
        row = {"code": c.code, "name": c.name, "text": c.text, "meaning": c.meaning, "remedy": c.remedy}
        lines.append(f"  {_literal(row)},")
    lines += ["];", "", "const answers = {"]
    for a in header.answers:
        row = {"code": a.code, "name": _camel(a.constant), "text": a.text, "meaning": a.meaning, "remedy": a.remedy}
        lines.append(f"  {a.constant}: {_literal(row)},")
    lines += ["};", "", "const constants = {"]
    for name, value in header.constants.items():
        lines.append(f"  {name}: {value}, // {header.constant_comments[name]}")
    lines += ["};", "", "const records = {"]
    for r in header.records:
        lines.append(f"  {r.name}: {{")
        lines.append(f"    size: {r.size},")
        for m in r.members:
            row = {"offset": m.offset, "size": m.size, "type": m.type, "count": m.count}
            lines.append(f"    {m.name}: {_literal(row)}, // {m.comment}")
        lines.append("  },")
    lines += ["};", "", "module.exports = { functions, codes, answers, constants, records };", ""]
    return "\n".join(lines)


def _camel(constant: str) -> str:
    words = constant.replace("TOLVEX_", "").split("_")
    return "".join(word.capitalize() for word in words)


def _comment(lines: List[str], indent: str) -> List[str]:
    text = [line.replace("*/", "* /") for line in lines]
    return [f"{indent}/**"] + [f"{indent} * {line}".rstrip() for line in text] + [f"{indent} */"]


def _declarations(header: Header) -> str:
    lines = [f"// {NOTICE}", ""]
    lines += _comment(header.conventions, "")
    lines += [
        "",
        "/** A text that goes in: a string, sent as UTF-8, or bytes of another character set with a NUL at their end. */",
        "export type Text = string | Uint8Array | null;",
        "",
        "/** An export. Called directly it keeps JavaScript waiting; async runs it in a thread of its own. */",
        "export interface Export<Arguments extends unknown[]> {",
        "  (...args: Arguments): number;",
        "  async(...args: Arguments): Promise<number>;",
        "}",
        "",
        "/** Every export of the library, under its own name. */",
        "export interface Raw {",
    ]
    group = ""
    for f in header.functions:
        if f.group != group:
            group = f.group
            lines += [f"  // ---- {group} ----", ""]
        lines += _comment(f.comment, "  ")
        arguments = ", ".join(f"{p.name}: {DECLARED[TYPES[p.type]]}" for p in f.parameters)
        lines += [f"  {f.name}: Export<[{arguments}]>;", ""]
    lines[-1] = "}"
    lines += ["", "/** The numbers of the results, by their names. */", "export declare const ResultCode: {"]
    for c in header.codes:
        lines += _comment([f"{c.text}: {c.meaning}"], "  ") + [f"  readonly {c.name}: {c.code};"]
    lines += ["};", "", "/** The constants of the header. */", "export declare const constants: {"]
    for name, value in header.constants.items():
        lines += _comment([header.constant_comments[name]], "  ") + [f"  readonly {name}: {value};"]
    lines += ["};", ""]
    return "\n".join(lines)


def files(header: Header, folder: Path) -> Dict[str, str]:
    return {"lib/tables.js": _tables(header), "lib/exports.d.ts": _declarations(header)}
