"""The parts of the C# binding that are made from the header: exports, records, result codes, the version."""

import re
from pathlib import Path
from typing import Dict, List, Tuple

from header import Function, Header, Record

HEAD = "// Written by ./run bindings from src/api/exports.h. Do not edit.\n"
TYPES = {"int": "int", "unsigned int": "uint", "char *": "byte[]", "const char *": "byte[]"}
# In the names of delegate types, and in their parameters: what the function writes is copied back, too, where the
# runtime does not pin the array.
LETTERS = {"int": "I", "unsigned int": "U", "char *": "B", "const char *": "T"}
MARSHALLED = {"int": "int", "unsigned int": "uint", "char *": "[In, Out] byte[]", "const char *": "[In] byte[]"}
KEYWORDS = {"params", "string", "object", "in", "out", "ref", "lock", "fixed", "checked", "event"}
TARE_BYTES = 10


def escaped(text: str) -> str:
    """Text within XML."""
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def literal(text: str) -> str:
    """Text as a string of C#."""
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def paragraphs(lines: List[str]) -> List[str]:
    """A comment of the header as lines of XML: paragraphs, and tables (indented by two blanks) as they are."""
    result: List[str] = []
    kind = ""
    for line in lines:
        now = "" if not line else "code" if line.startswith("  ") else "para"
        if now != kind:
            if kind:
                result[-1] += f"</{kind}>"
            if now:
                result.append(f"<{now}>{escaped(line if now == 'code' else line.strip())}")
        elif now:
            result.append(escaped(line))
        kind = now
    if kind:
        result[-1] += f"</{kind}>"
    return result


def numbered(lines: List[str]) -> List[str]:
    """The header's conventions: a number in the first column begins a paragraph."""
    result: List[str] = []
    for line in lines:
        if re.match(r" *\d+\. ", line) and result and result[-1]:
            result.append("")
        result.append(line.strip())
    return paragraphs(result)


def documented(indent: str, tag: str, lines: List[str]) -> str:
    inside = [f"<{tag}>"] + lines + [f"</{tag}>"]
    return "".join(f"{indent}/// {line}".rstrip() + "\n" for line in inside)


def name_of(parameter: str) -> str:
    return "@" + parameter if parameter in KEYWORDS else parameter


def signature(function: Function) -> str:
    return "F" + "".join(LETTERS[p.type] for p in function.parameters)


def room_of(function: Function, header: Header) -> int:
    """What a buffer without a stated size has to hold."""
    base = function.twin or function.name
    sizes = {r.name: r.size for r in header.records}
    return {"read_baseinfo": sizes["tolvex_base_info"], "read_standard": sizes["tolvex_weight"]}.get(base, TARE_BYTES)


def export(function: Function, header: Header) -> str:
    names = [p.name for p in function.parameters]
    checks: List[str] = []
    arguments: List[str] = []
    for parameter in function.parameters:
        name = name_of(parameter.name)
        if parameter.type == "char *":
            if "size" in names:
                checks.append(f'CheckRoom({name}, size, "{parameter.name}");')
            else:
                checks.append(f'CheckRoom({name}, {room_of(function, header)}, "{parameter.name}");')
            if parameter.name == "text":
                checks.append(f'CheckEnd({name}, "{parameter.name}");')
            arguments.append(name)
        elif parameter.type == "const char *":
            arguments.append(f"Ended({name})")
        else:
            arguments.append(name)
    listed = ", ".join(f"{TYPES[p.type]} {name_of(p.name)}" for p in function.parameters)
    call = f"_{function.name}({', '.join(arguments)})"
    comment = function.comment
    if function.twin:
        comment = [f"The same as {function.twin}, under a second name."]
    result = documented("        ", "summary", paragraphs(comment))
    result += f"        public static int {function.name}({listed})\n        {{\n"
    for check in checks:
        result += f"            {check}\n"
    result += f"            Library.EnsureLoaded();\n            return {call};\n        }}\n"
    return result


def exports(header: Header) -> str:
    signatures: Dict[str, str] = {}
    for function in header.functions:
        inside = ", ".join(f"{MARSHALLED[p.type]} {chr(97 + i)}" for i, p in enumerate(function.parameters))
        signatures[signature(function)] = inside
    text = HEAD + "using System;\nusing System.Runtime.InteropServices;\n\nnamespace Tolvex\n{\n"
    text += documented("    ", "summary", ["Every function of the library, under its own name."])
    text += documented("    ", "remarks", numbered(header.conventions[header.conventions.index("") :]))
    text += "    public static partial class Exports\n    {\n"
    for name, value in header.constants.items():
        text += documented("        ", "summary", [escaped(header.constant_comments[name])])
        text += f"        public const int {name} = {value};\n\n"
    for name, inside in sorted(signatures.items()):
        text += "        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]\n"
        text += f"        private delegate int {name}({inside});\n\n"
    for function in header.functions:
        text += f"        private static {signature(function)} _{function.name};\n"
    text += "\n        internal static readonly string[] Names =\n        {\n"
    for function in header.functions:
        text += f'            "{function.name}",\n'
    text += "        };\n\n        private static void Bind(Func<string, IntPtr> find)\n        {\n"
    for function in header.functions:
        kind = signature(function)
        text += f'            _{function.name} = ({kind})Function(find("{function.name}"), typeof({kind}));\n'
    text += "        }\n"
    group = ""
    for function in header.functions:
        text += "\n"
        if function.group != group:
            group = function.group
            text += f"        // ---- {group} ----\n\n"
        text += export(function, header)
    return text + "    }\n}\n"


def result_codes(header: Header) -> str:
    text = HEAD + "using System.Collections.Generic;\n\nnamespace Tolvex\n{\n"
    text += documented("    ", "summary", ["What the library and the service answer. A service may use codes of its own."])
    text += "    public enum ResultCode\n    {\n"
    unreadable = next(a for a in header.answers if a.constant == "TOLVEX_UNREADABLE_REPLY")
    failed = next(a for a in header.answers if a.constant == "TOLVEX_FAILED")
    rows: List[Tuple[int, str, str, str, str]] = [
        (unreadable.code, "UnreadableReply", unreadable.text, unreadable.meaning, unreadable.remedy)
    ]
    rows += [(c.code, c.name, c.text, c.meaning, c.remedy) for c in header.codes]
    rows.append(
        (
            failed.code,
            "Failed",
            failed.text,
            "The function failed, and there is no code of it: another call ended at the same time, or an "
            "argument was refused.",
            "Read the library's log, which has the reason.",
        )
    )
    for index, (code, name, _, meaning, _) in enumerate(rows):
        text += "\n" if index else ""
        text += documented("        ", "summary", [escaped(meaning)])
        text += f"        {name} = {code},\n"
    text += "    }\n\n    internal static class ResultTable\n    {\n"
    text += "        internal static readonly Dictionary<int, ResultInfo> Rows = new Dictionary<int, ResultInfo>\n        {\n"
    for code, name, said, meaning, remedy in rows:
        text += f"            {{ {code}, new ResultInfo({code}, {literal(name)}, {literal(said)},\n"
        text += f"                {literal(meaning)},\n                {literal(remedy)}) }},\n"
    return text + "        };\n    }\n}\n"


def member(record: Record, index: int) -> str:
    one = record.members[index]
    text = documented("        ", "summary", [escaped(one.comment)])
    kind = {"int32_t": "int", "char": "byte", "unsigned char": "byte"}[one.type]
    name = "".join(part.capitalize() for part in one.name.split("_"))
    if one.count:
        text += f"        [MarshalAs(UnmanagedType.ByValArray, SizeConst = {one.count})]\n"
        kind += "[]"
    return text + f"        public {kind} {name};\n"


def records(header: Header) -> str:
    names = {"tolvex_base_info": "BaseInfoRecord", "tolvex_weight": "WeightRecord"}
    text = HEAD + "using System.Runtime.InteropServices;\n\nnamespace Tolvex\n{\n"
    for position, record in enumerate(header.records):
        name = names[record.name]
        text += "\n" if position else ""
        text += documented("    ", "summary", paragraphs(record.comment))
        text += f"    [StructLayout(LayoutKind.Sequential, Pack = 1, Size = {record.size})]\n"
        text += f"    public struct {name}\n    {{\n"
        text += documented("        ", "summary", ["Bytes of the record."])
        text += f"        public const int ByteCount = {record.size};\n"
        for index in range(len(record.members)):
            text += "\n" + member(record, index)
        text += "\n" + documented("        ", "summary", ["Reads the record from the bytes that the library wrote."])
        text += f"        public static {name} From(byte[] bytes)\n        {{\n"
        text += f"            return ({name})Records.Read(bytes, ByteCount, typeof({name}));\n        }}\n    }}\n"
    return text + "}\n"


def assembly(folder: Path) -> str:
    text = (folder.parents[1] / "CMakeLists.txt").read_text(encoding="utf-8")
    match = re.search(r"^project\(tolvex VERSION (\d+)\.(\d+)\.(\d+)\.(\d+)", text, re.M)
    assert match, "CMakeLists.txt tells no version"
    full, package = ".".join(match.groups()), ".".join(match.groups()[:3])
    return (
        HEAD.replace("src/api/exports.h", "CMakeLists.txt")
        + "using System.Reflection;\nusing System.Runtime.CompilerServices;\nusing System.Runtime.InteropServices;\n\n"
        + '[assembly: AssemblyTitle("Tolvex")]\n[assembly: AssemblyProduct("tolvex")]\n'
        + '[assembly: AssemblyDescription("tolvex, the device adapter library for point-of-sale applications, for .NET")]\n'
        + "// The same for all versions that fit each other, so that an update of .NET Framework applications needs no\n"
        + "// redirection of bindings.\n"
        + f'[assembly: AssemblyVersion("{match.group(1)}.0.0.0")]\n[assembly: AssemblyFileVersion("{full}")]\n'
        + f'[assembly: AssemblyInformationalVersion("{package}")]\n[assembly: ComVisible(false)]\n'
        + '[assembly: InternalsVisibleTo("Tolvex.Tests")]\n'
    )


def files(header: Header, folder: Path) -> Dict[str, str]:
    """The generated files of the binding, by their names below its folder."""
    return {
        "src/Exports.g.cs": exports(header),
        "src/ResultCode.g.cs": result_codes(header),
        "src/Records.g.cs": records(header),
        "src/AssemblyInfo.g.cs": assembly(folder),
    }
