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


def claims_table(rows):
    def full(row):
        name, figure, spread, limit, reached = claims.cells(row)
        return [f"`{name}`" if row["cores"] == 1 else f"`{row['claim']}`, two cores", row["what"], row["against"] or "-",
                figure, spread, limit, reached]

    return markdown(["claim", "measured", "against", "figure", "spread", "at most", "reached"], map(full, rows))


def short_table(rows):
    chosen = [row for row in rows if row["limit"] is not None]
    for row in chosen:
        if row["unit"] == "x":
            row = {**row, "what": f"{row['what']}, against {row['against']}"}
        elif row["against"]:
            row = {**row, "what": f"{row['what']} {row['against']}"}
        _, figure, _, limit, _ = claims.cells(row)
        yield [row["what"], figure, limit]


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
        rows = markdown(["measured", "figure", "at most"], short_table(results["claims"]))
        replace(root / README, "speed", rows)
    if "micro" in results:
        rows = markdown(["part", "time", "spread"], map(micro.cells, results["micro"]))
        replace(performance, "parts", [*rows, *measured])
    if "print_job" in results:
        rows = markdown(["what", "figure", "spread"], map(print_job.cells, results["print_job"]))
        replace(performance, "print job", [*rows, *measured])
    print(f"{PERFORMANCE} and {README} have the figures")
