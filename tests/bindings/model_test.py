"""The model that the bindings are written from is what the header declares, compiled.

usage: model_test.py SOURCE COMPILER TOLVEXCTL [LAUNCHER]
"""

import json
import subprocess
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True
source, compiler = Path(sys.argv[1]), sys.argv[2]
sys.path.insert(0, str(source / "bindings/generate"))
import header  # noqa: E402

model = header.read(source / "src/api/exports.h")
failures = 0


def equal(what, expected, got):
    global failures
    if expected != got:
        failures += 1
        print(f"FAILED: {what}: expected {expected!r}, got {got!r}")


# The functions, as the tool knows them from the library's own build.
told = json.loads(subprocess.run(sys.argv[3:] + ["--json", "call", "--list"], check=True, stdout=subprocess.PIPE).stdout)
equal("functions", [(e["name"], e["signature"]) for e in told["exports"]], [(f.name, f.declaration) for f in model.functions])
equal("groups", [e["group"] for e in told["exports"]], [f.group for f in model.functions])

# Numbers, texts and layouts, as the compiler has them.
program = ["#include <exports.h>", "#include <stddef.h>", "#include <stdio.h>", "int main(void) {"]
expected = []
for name, value in model.constants.items():
    program.append(f'printf("{name} %d\\n", {name});')
    expected.append(f"{name} {value}")
for code in model.codes:
    program.append(f'printf("{code.NAME} %d\\n", TOLVEX_RESULT_{code.NAME});')
    expected.append(f"{code.NAME} {code.code}")
program.append("#define ROW(code, NAME, Name, ...) printf(\"%s\\n\", #Name); { const char *t[] = {__VA_ARGS__}; "
               'printf("%s|%s|%s\\n", t[0], t[1], t[2]); }')
program.append("#undef TOLVEX_ROW\nTOLVEX_RESULT_CODES(ROW)")
for code in model.codes:
    expected += [code.name, f"{code.text}|{code.meaning}|{code.remedy}"]
program.append('#define ANSWER(constant, text, meaning, remedy) printf("%d|%s|%s|%s\\n", constant, text, meaning, remedy);')
program.append("TOLVEX_ANSWERS(ANSWER)")
expected += [f"{a.code}|{a.text}|{a.meaning}|{a.remedy}" for a in model.answers]
for record in model.records:
    program.append(f'printf("{record.name} %d\\n", (int)sizeof({record.name}));')
    expected.append(f"{record.name} {record.size}")
    for member in record.members:
        program.append(f'printf("{member.name} %d %d\\n", (int)offsetof({record.name}, {member.name}), '
                       f"(int)sizeof((({record.name} *)0)->{member.name}));")
        expected.append(f"{member.name} {member.offset} {member.size}")
program.append("return 0; }")
with tempfile.TemporaryDirectory() as folder:
    c, binary = Path(folder, "model.c"), Path(folder, "model")
    c.write_text("\n".join(program))
    subprocess.run([compiler, "-I", str(source / "src/api"), str(c), "-o", str(binary)], check=True)
    got = subprocess.run([str(binary)], check=True, stdout=subprocess.PIPE).stdout.decode("ascii").splitlines()
for wanted, line in zip(expected, got):
    equal("the header's", line, wanted)
equal("number of lines", len(got), len(expected))
equal("kinds of results", {"verdict", "code", "other"}, {f.result for f in model.functions})
sys.exit(1 if failures else print(f"{len(model.functions)} functions and {len(got)} values agree"))
