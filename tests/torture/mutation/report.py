"""What came of the changes, for those who write the tests that are missing."""

import difflib
from collections import defaultdict, namedtuple
from pathlib import Path

Result = namedtuple("Result", "name change before after caught")
Figures = namedtuple("Figures", "table line caught")

_EQUIVALENT = Path(__file__).with_name("equivalent.txt")


def difference(result):
    """The changed lines alone, as in a diff."""
    lines = difflib.unified_diff(result.before.split("\n"), result.after.split("\n"), n=0, lineterm="")
    return [line for line in lines if not line.startswith(("---", "+++", "@@"))]


def where(result):
    return "%s:%d" % (result.change.file, result.before.count("\n", 0, result.change.start) + 1)


def outcome(result):
    if result.caught is not None:
        return "caught by " + result.caught
    return "SURVIVED: %s (%s)\n        %s" % (where(result), result.change.operator,
                                             "\n        ".join(difference(result)))


def entry(result):
    """As it stands in equivalent.txt."""
    return "\n".join(["`%s`" % result.change.file, "", "```diff", *difference(result), "```"])


def is_equivalent(result):
    return entry(result) in _EQUIVALENT.read_text()


def _table(by_folder):
    rows = ["| folder | changes | caught | survived | the same program |", "|---|---|---|---|---|"]
    for folder, count in sorted(by_folder.items()):
        rows.append("| %s | %d | %d | %d | %d |" % (
            folder, sum(count.values()), count["caught"], count["survived"], count["same"]))
    return "\n".join(rows)


def write(file, options, results, tried):
    by_folder = defaultdict(lambda: defaultdict(int))
    by_operator = defaultdict(lambda: defaultdict(int))
    survivors = []
    for result in results:
        kind = "caught"
        if result.caught is None:
            kind = "same" if is_equivalent(result) else "survived"
            if kind == "survived":
                survivors.append(result)
        by_folder[result.change.file.split("/")[1]][kind] += 1
        by_operator[result.change.operator][kind] += 1
    total = {kind: sum(count[kind] for count in by_folder.values())
             for kind in ("caught", "survived", "same")}
    counted = total["caught"] + total["survived"]
    share = 100 * total["caught"] / counted if counted else 0
    line = "seed %d: %d changes, %d caught of %d that count (%.1f %%), %d survivors" % (
        options.seed, len(results), total["caught"], counted, share, total["survived"])
    table = _table(by_folder)
    text = ["# Changes that the tests were to notice", "", line + ". %d did not compile." % (tried - len(results)),
            "", table, "", _table(by_operator).replace("folder", "operator"), "", "## Survivors", ""]
    for result in sorted(survivors, key=lambda one: one.name):
        text += ["%s, %s, at %s" % (result.name, result.change.operator, where(result)), "", entry(result), ""]
    text += ["## Caught", ""]
    for result in sorted(results, key=lambda one: one.name):
        if result.caught is not None:
            text.append("- %s, %s, at %s, by %s" % (
                result.name, result.change.operator, where(result), result.caught))
    file.write_text("\n".join(text) + "\n")
    print()
    return Figures(table, line, share)
