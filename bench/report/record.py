"""Writes the figures into the documentation, between comments that name them."""

import claims
import machine
import micro
import print_job

PERFORMANCE = "docs/performance.md"
README = "README.md"


def markdown(head, rows):
    yield "| " + " | ".join(head) + " |"
    yield "|" + "---|" * len(head)
    for row in rows:
        yield "| " + " | ".join(row) + " |"


def times(row):
    """The medians of the library and of what it is held against."""
    medians = {name: value for name, value in row["details"].items() if name.endswith(("_us", "_ms")) and "_p99" not in name}
    return [f"{medians[name]:.4g} {name[-2:]}" for name in sorted(medians, key=lambda name: not name.startswith("library"))]


def claims_table(rows):
    def full(row):
        _, figure, spread, limit, reached = claims.cells(row)
        name = f"`{row['claim']}`" + ("" if row["cores"] == 1 else ", two cores")
        return [name, figure, spread, limit, reached, *(times(row) or ["-", "-"])]

    return markdown(["claim", "figure", "spread", "at most", "reached", "library", "counterpart"], map(full, rows))


def short_table(rows):
    chosen = [row for row in rows if row["limit"] is not None]
    for row in chosen:
        if row["unit"] == "x":
            row = {**row, "what": f"{row['what']}, against {row['against']}"}
        elif row["against"]:
            row = {**row, "what": f"{row['what']} {row['against']}"}
        _, figure, _, limit, reached = claims.cells(row)
        yield [row["what"], figure, limit, reached]


def replace(path, name, lines):
    begin, end = f"<!-- figures: {name} -->", f"<!-- end of figures: {name} -->"
    text = path.read_text(encoding="utf-8")
    before, found, rest = text.partition(begin)
    _, closed, after = rest.partition(end)
    if not found or not closed:
        raise claims.Failed(f"{path.name} has no place for the figures: {begin} ... {end}")
    path.write_text(before + begin + "\n" + "\n".join(lines) + "\n" + end + after, encoding="utf-8")


def write(root, results):
    performance = root / PERFORMANCE
    measured = ["", f"Measured {machine.sentence(results['machine'])}"]
    if "claims" in results:
        replace(performance, "claims", [*claims_table(results["claims"]), *measured])
        rows = markdown(["measured", "figure", "at most", "reached"], short_table(results["claims"]))
        replace(root / README, "speed", rows)
    if "micro" in results:
        rows = markdown(["part", "time", "spread"], map(micro.cells, results["micro"]))
        replace(performance, "parts", [*rows, *measured])
    if "print_job" in results:
        rows = markdown(["what", "figure", "spread"], map(print_job.cells, results["print_job"]))
        replace(performance, "print job", [*rows, *measured])
    print(f"{PERFORMANCE} and {README} have the figures")
