"""The example, run as its users run it, with the test as the person at the scale."""

import subprocess
import sys
import threading
import unittest
from pathlib import Path
from typing import Callable, Dict, List, Tuple

from support import ADDRESS, WAIT, Simulator, environment

EXAMPLE = Path(__file__).resolve().parents[1] / "examples" / "checkout.py"


class Checkout(unittest.TestCase):
    def setUp(self) -> None:
        self.simulator = Simulator()
        self.addCleanup(self.simulator.stop)
        self.simulator.reset(scale={"load_kg": 0.05})

    def play(self, deeds: Dict[str, Callable[[], object]], *arguments: str) -> Tuple[int, List[str], str]:
        """Runs the example and does what it asks for. Returns its status, its lines, and its errors."""
        program = subprocess.Popen(
            [sys.executable, str(EXAMPLE), *arguments],
            env=environment(),
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            encoding="utf-8",
        )
        assert program.stdout is not None and program.stderr is not None
        watchdog = threading.Timer(2 * WAIT, program.kill)
        watchdog.start()
        lines = []
        for line in program.stdout:
            lines.append(line.rstrip("\n"))
            if lines[-1] in deeds:
                deeds[lines[-1]]()
        errors = program.stderr.read()
        status = program.wait(WAIT)
        watchdog.cancel()
        program.stdout.close()
        program.stderr.close()
        return status, lines, errors

    def loads(self) -> Dict[str, Callable[[], object]]:
        def load(kilograms: float) -> Callable[[], object]:
            return lambda: self.simulator.scale(load_kg=kilograms)

        return {
            "> Please empty the scale.": load(0),
            "> Please put the apples on the scale.": load(0.482),
            "> Please take the apples off.": load(0),
            "> Please put the empty bowl on the scale.": load(0.12),
            "> Please put the cheese into the bowl.": load(0.476),
            "> Please take everything off the scale.": load(0),
        }

    def test_a_sale_goes_through_although_the_paper_runs_out(self) -> None:
        self.simulator.ticket(paper={"left_mm": 30})
        deeds = self.loads()
        deeds["> Please put in new paper."] = lambda: self.simulator.ask("POST", "/api/printers/Ticket/load-paper")
        status, lines, errors = self.play(deeds, "--server", ADDRESS, "--date", "21.11.2026")
        self.assertEqual((status, errors), (0, ""))
        self.assertIn("  tare taken: 0.120 kg", lines)
        self.assertTrue(any(line.startswith("BeginPrint: 2006 OutOfPaper") for line in lines), lines)
        self.assertEqual(lines[-1], "Label printed. The sale is complete.")
        jobs = self.simulator.jobs()
        receipt = next(job for job in reversed(jobs) if job["printer"] == "Ticket")
        self.assertEqual(receipt["end"], "cut")
        paper = [line.rstrip() for line in self.simulator.paper(receipt["number"]).splitlines()]
        self.assertEqual(
            paper[:10],
            [
                "          Lindenstraße 7 · 50674 Köln",
                "",
                "Bon 0042, Kasse 1                     21.11.2026",
                "-" * 48,
                "Äpfel Boskoop",
                "  0.482 kg × 2.99 €/kg                      1.44",
                "Bergkäse, würzig",
                "  0.356 kg × 18.90 €/kg                     6.73",
                "-" * 48,
                "SUMME €                                     8.17",
            ],
        )
        self.assertIn("谢谢惠顾 · Спасибо за покупку", paper)
        label = next(job for job in jobs if job["printer"] == "Label")
        self.assertIn("Netto 0.356 kg", self.simulator.paper(label["number"]))
        self.assertTrue(self.simulator.ask("GET", "/api/drawer")["open"])

    def test_a_failure_is_told_with_its_remedy(self) -> None:
        self.simulator.scale(connected=False)
        status, _, errors = self.play({}, "--server", ADDRESS)
        self.assertEqual(status, 1)
        self.assertIn("What to do: Check the scale's cable and power", errors)


if __name__ == "__main__":
    unittest.main()
