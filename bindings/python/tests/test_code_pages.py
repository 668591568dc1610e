"""Texts in the user's character set, against the simulator.

The process runs in the locale that is under test: TOLVEX_TEST_CODE_PAGE says which character set is expected.
"""

import codecs
import json
import os
import unittest
from typing import Dict, List, Tuple

from support import SimulatorTest

import tolvex
from tolvex import Receipt, _encoding

EXPECTED = os.environ.get("TOLVEX_TEST_CODE_PAGE", "UTF-8")
# Of the first, each text can be encoded; of the second, none.
SAMPLES: Dict[str, Tuple[List[str], List[str]]] = {
    "UTF-8": (["Äpfel €", "Спасибо", "谢谢", "\U0001f34e"], []),
    "GBK": (["谢谢 1.44", "Спасибо", "ASCII \\ ~"], ["\U0001f34e", "Ä", "한"]),
    "CP1251": (["Спасибо €", "№ 1"], ["Ä", "谢"]),
    "ISO-8859-1": (["Äpfel ß ÿ", "\xa0\xad"], ["€", "С", "谢"]),
}


class CodePages(SimulatorTest):
    encodable, others = SAMPLES[EXPECTED]

    def printed(self) -> List[str]:
        return [json.loads(request)["text"] for request in self.simulator.requests("printtext", "print_text_width")]

    def test_the_code_page_is_that_of_the_locale(self) -> None:
        self.assertEqual(_encoding.code_page().name, EXPECTED)

    def test_what_the_code_page_has_is_printed_as_it_is(self) -> None:
        receipt = Receipt()
        for text in self.encodable:
            receipt.text(text).wrapped(text)
        receipt.print()
        self.assertEqual(self.printed(), [text for text in self.encodable for _ in range(2)])
        for text in self.encodable:
            self.assertEqual(tolvex.encode_for_queue(text), codecs.encode(text, EXPECTED))

    def test_what_it_does_not_have_is_refused_with_its_place_and_a_remedy(self) -> None:
        for character in self.others:
            with self.subTest(character=character):
                with self.assertRaises(tolvex.UnprintableText) as caught:
                    Receipt().text("first").wrapped("abc" + character + "def").print()
                error = caught.exception
                self.assertEqual((error.character, error.position, error.code_page), (character, 3, EXPECTED))
                said = str(error)
                for word in (
                    f"U+{ord(character):04X}",
                    "position 3",
                    EXPECTED,
                    "Printer.print_text",
                    'errors="replace"',
                ):
                    self.assertIn(word, said)
        self.assertEqual(self.simulator.requests(), [])

    def test_it_is_replaced_where_the_receipt_says_so(self) -> None:
        receipt = Receipt(errors="replace")
        for character in self.others:
            receipt.text(f"a{character}{self.encodable[0]}{character}")
        if self.others:
            receipt.print()
        self.assertEqual(self.printed(), [f"a?{self.encodable[0]}?"] * len(self.others))

    def test_it_is_printed_past_the_queue(self) -> None:
        for text in self.encodable + self.others:
            tolvex.Printer(1).print_text(text)
        self.assertEqual(self.printed(), self.encodable + self.others)

    def test_the_name_of_an_image_is_never_replaced_and_the_remedy_is_another_name(self) -> None:
        for character in [*self.others, "\udce9"]:
            with self.subTest(character=character):
                with self.assertRaises(tolvex.UnprintableText) as caught:
                    Receipt(errors="replace").image(f"/{character}.bmp").print()
                self.assertEqual((caught.exception.position, caught.exception.character), (1, character))
                said = str(caught.exception)
                self.assertIn("What to do: Give the image a path without this character", said)
                self.assertNotIn('errors="replace"', said)
        self.assertEqual(self.simulator.requests(), [])

    def test_every_character_comes_out_or_is_refused(self) -> None:
        encodable = []
        for start, end in (
            (0x01, 0x250),
            (0x370, 0x500),
            (0x2000, 0x2030),
            (0x20A0, 0x20D0),
            (0x3000, 0x3100),
            (0x4E00, 0x4F00),
        ):
            for number in range(start, end):
                try:
                    encodable.append(chr(number)) if tolvex.encode_for_queue(chr(number)) else self.fail(hex(number))
                except tolvex.UnprintableText:
                    pass
        self.assertGreater(len(encodable), 180)
        characters = [c for c in encodable if c not in "\n\r"]
        lines = ["".join(characters[at : at + 100]) for at in range(0, len(characters), 100)]
        receipt = Receipt()
        for line in lines:
            receipt.text(line)
        receipt.print()
        self.assertEqual(self.printed(), lines)


if __name__ == "__main__":
    unittest.main()
