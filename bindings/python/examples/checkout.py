"""A sale at a checkout: two articles are weighed, one of them in a bowl; the receipt is printed and cut, the
drawer opened, and one article gets a label.

Run it while the service, or zelkad-sim in its place, is running. The program asks for what the person at the
scale has to do, and waits for it. When the paper runs out half-way, it asks for paper and prints again.

usage: checkout.py [--server ADDRESS] [--date DATE]
Exit status: 0 the sale went through, 1 it did not.
"""

import argparse
import datetime
import sys
import time
from dataclasses import dataclass
from decimal import ROUND_HALF_UP, Decimal
from typing import Callable, List

import tolvex
from tolvex import JobType, PrinterType, Reading, Receipt, ResultCode

PATIENCE = 60  # seconds for what a person has to do
COLUMNS = 48  # of characters of size 24 on 72 mm
CENT = Decimal("0.01")

scale = tolvex.Scale()
printer = tolvex.Printer(PrinterType.TICKET)


@dataclass
class Article:
    name: str
    price_per_kg: Decimal
    kilograms: Decimal = Decimal(0)

    @property
    def price(self) -> Decimal:
        return (self.kilograms * self.price_per_kg).quantize(CENT, ROUND_HALF_UP)


def ask(request: str) -> None:
    print(f"> {request}", flush=True)


def weigh(request: str, until: Callable[[Decimal], bool]) -> Decimal:
    """Asks for something to be done on the scale, and waits for a stable weight that shows it."""

    def is_done(reading: Reading) -> bool:
        return reading.net is not None and until(reading.net)

    ask(request)
    net = scale.wait_stable(PATIENCE, until=is_done).net
    assert net is not None
    print(f"  {net} kg", flush=True)
    return net


def weigh_articles(apples: Article, cheese: Article) -> None:
    weigh("Please empty the scale.", lambda net: net == 0)
    apples.kilograms = weigh("Please put the apples on the scale.", lambda net: net > 0)
    weigh("Please take the apples off.", lambda net: net == 0)
    weigh("Please put the empty bowl on the scale.", lambda net: net > 0)
    print(f"  tare taken: {scale.tare()} kg", flush=True)
    cheese.kilograms = weigh("Please put the cheese into the bowl.", lambda net: net > 0)
    weigh("Please take everything off the scale.", lambda net: net < 0)
    scale.clear_tare()


def apart(left: str, right: str, columns: int = COLUMNS) -> str:
    """One text at the left end of the line, another at the right end."""
    return left + right.rjust(columns - len(left))


def receipt_of(articles: List[Article], date: str) -> Receipt:
    total = sum((article.price for article in articles), Decimal(0))
    receipt = Receipt()
    receipt.text("Lindenstraße 7 · 50674 Köln".center(COLUMNS)).blank()
    receipt.text(apart("Bon 0042, Kasse 1", date)).text("-" * COLUMNS)
    for article in articles:
        receipt.text(article.name)
        quantity = f"  {article.kilograms:.3f} kg × {article.price_per_kg} €/kg"
        receipt.text(apart(quantity, str(article.price)))
    receipt.text("-" * COLUMNS).text(apart("SUMME €", str(total), COLUMNS // 2), 48).blank()
    receipt.text("Vielen Dank für Ihren Einkauf!".center(COLUMNS)).text("谢谢惠顾 · Спасибо за покупку")
    return receipt.text("\n\n\n")  # up to the knife, which sits above the head


def wait_for_paper() -> None:
    ask("Please put in new paper.")
    end = time.monotonic() + PATIENCE
    while not printer.status().ready:
        if time.monotonic() > end:
            raise TimeoutError(f"There was no paper within {PATIENCE} s.")
        time.sleep(0.1)


def print_whole(receipt: Receipt) -> None:
    """Prints a receipt, and once more from its beginning when the paper has run out."""
    while True:
        try:
            return receipt.print(JobType.TICKET_CUT)
        except tolvex.TolvexError as error:
            if error.code != ResultCode.OUT_OF_PAPER:
                raise
            print(error, flush=True)
        wait_for_paper()
        printer.cut()  # what came out belongs to no receipt


def label_of(article: Article) -> Receipt:
    label = Receipt().text(article.name, 36)
    label.text(f"Netto {article.kilograms:.3f} kg\n{article.price_per_kg} €/kg", 28)
    return label.text(f"{article.price} €", 72)


def sell(date: str) -> None:
    info = scale.info()
    print(f"Scale {info.system_version!r}, weights in {info.unit}, from {info.min_weight} {info.unit}", flush=True)
    articles = [Article("Äpfel Boskoop", Decimal("2.99")), Article("Bergkäse, würzig", Decimal("18.90"))]
    weigh_articles(*articles)
    print_whole(receipt_of(articles, date))
    print("Receipt printed and cut.", flush=True)
    tolvex.open_cash_drawer()
    print("Drawer opened.", flush=True)
    label_of(articles[1]).print_label()
    print("Label printed. The sale is complete.", flush=True)


def main() -> int:
    parser = argparse.ArgumentParser(description="A sale at a checkout.")
    parser.add_argument("--server", metavar="ADDRESS", help="where the service is, instead of what the INI file says")
    parser.add_argument("--date", help="what the receipt shows as its date, default today")
    options = parser.parse_args()
    try:
        if options.server:
            tolvex.set_server(options.server)
        sell(options.date or datetime.date.today().strftime("%d.%m.%Y"))
    except (tolvex.TolvexError, tolvex.LibraryNotLoaded, tolvex.UnprintableText, TimeoutError) as error:
        print(error, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
