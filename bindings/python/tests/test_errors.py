"""What is raised, by itself: texts, and the way to another process and back."""

import pickle
import unittest
from decimal import Decimal

import tolvex
from tolvex._errors import error_of_code, error_of_verdict, unreadable


class Errors(unittest.TestCase):
    def test_they_come_through_a_process_pool_as_they_are(self) -> None:
        reading = tolvex.Reading(tolvex.WeightState.OVER_LOAD)
        for error, names in (
            (
                error_of_code("cutPaperById", 2006, "{}"),
                ("operation", "code", "name", "text", "meaning", "remedy", "reply"),
            ),
            (unreadable("read_standard", "Nothing came."), ("code", "meaning")),
            (tolvex.StableWeightTimeout(reading, 1.5), ("last", "timeout")),
            (tolvex.UnprintableText("a€", 1, "GBK"), ("text", "character", "position", "code_page")),
            (tolvex.UnprintableText("/€.bmp", 1, "GBK", is_path=True), ("text", "is_path")),
            (tolvex.LibraryNotLoaded([("x", "is missing")], "p", "n", "r"), ("tried", "process", "needed", "remedy")),
            (tolvex.QueueNotEmpty(3), ("lines",)),
        ):
            again = pickle.loads(pickle.dumps(error))
            with self.subTest(error=type(error).__name__):
                self.assertIs(type(again), type(error))
                self.assertEqual(str(again), str(error))
                for name in names:
                    self.assertEqual(getattr(again, name), getattr(error, name))

    def test_every_text_says_what_to_do(self) -> None:
        for error in (
            error_of_code("x", 2006),
            error_of_code("x", 4711),
            error_of_code("x", -1),
            error_of_verdict("x", 0),
            tolvex.StableWeightTimeout(tolvex.Reading(tolvex.WeightState.INVALID), 1),
            tolvex.UnprintableText("€", 0, "GBK"),
            tolvex.UnprintableText("\ud800", 0, "UTF-8"),
            tolvex.QueueNotEmpty(1),
        ):
            with self.subTest(error=str(error)):
                self.assertIn("What to do: ", str(error))

    def test_waiting_in_vain_tells_what_to_do_about_the_last_reading(self) -> None:
        state = tolvex.WeightState
        for reading, remedy in (
            (tolvex.Reading(state.WEIGHT, net=Decimal(1)), "Wait until the goods lie still"),
            (tolvex.Reading(state.WEIGHT, net=Decimal(1), stable=True), "Do what the program waits for"),
            (tolvex.Reading(state.OVER_LOAD), "Take the load off at once"),
            (tolvex.Reading(state.UNDER_LOAD), "Put the plate back"),
            (tolvex.Reading(state.INVALID), "Empty the scale and zero it"),
        ):
            with self.subTest(reading=str(reading)):
                self.assertIn(f"{reading}. What to do: {remedy}", str(tolvex.StableWeightTimeout(reading, 1)))

    def test_a_long_text_is_shown_by_its_beginning(self) -> None:
        said = str(tolvex.UnprintableText("x" * 5000 + "€", 5000, "GBK"))
        self.assertIn("position 5000", said)
        self.assertLess(len(said), 500)


if __name__ == "__main__":
    unittest.main()
