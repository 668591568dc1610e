"""The raw layer: all exports, what they are passed, and the records."""

import ctypes
import inspect
import sys
import unittest
from pathlib import Path
from typing import Any, Callable, List, Tuple

from support import SimulatorTest

import tolvex
from tolvex import exports
from tolvex._native import EXPORTS

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "generate"))
import header  # noqa: E402

MODEL = header.read(Path(__file__).resolve().parents[3] / "src/api/exports.h")


Calls = List[Tuple[Callable[..., int], Tuple[Any, ...]]]


class AsTheHeader(unittest.TestCase):
    def test_every_export_is_there_and_resolves(self) -> None:
        self.assertEqual(list(EXPORTS), [function.name for function in MODEL.functions])
        self.assertEqual(len(EXPORTS), 121)
        for function in MODEL.functions:
            with self.subTest(name=function.name):
                raw = getattr(exports, function.name)
                self.assertEqual(list(inspect.signature(raw).parameters), [p.name for p in function.parameters])
                self.assertIn(function.comment[0][:60], " ".join(raw.__doc__.split("\n")))
                resolved = EXPORTS[function.name].resolve()
                self.assertEqual(len(resolved.argtypes), len(function.parameters))  # type: ignore[attr-defined]

    def test_records_have_the_layout_of_c(self) -> None:
        for record in MODEL.records:
            structure = getattr(exports, record.name)
            self.assertEqual(ctypes.sizeof(structure), record.size)
            for member in record.members:
                with self.subTest(record=record.name, member=member.name):
                    field = getattr(structure, member.name)
                    self.assertEqual((field.offset, field.size), (member.offset, member.size))

    def test_constants_and_codes_are_those_of_the_header(self) -> None:
        for name, value in MODEL.constants.items():
            self.assertEqual(getattr(exports, name), value)
        self.assertEqual({code.name: code.value for code in tolvex.ResultCode}, {c.NAME: c.code for c in MODEL.codes})
        for code in MODEL.codes:
            expected = tolvex.Explanation(code.code, code.name, code.text, code.meaning, code.remedy)
            self.assertEqual(tolvex.explain(code.code), expected)
        for answer in MODEL.answers:
            if answer.constant in ("TOLVEX_UNDER_LOAD", "TOLVEX_OVER_LOAD"):
                continue  # states of the scale
            with self.subTest(answer=answer.constant):
                self.assertEqual(tolvex.explain(answer.code).remedy, answer.remedy)
        self.assertEqual(tolvex.explain(-1).name, "UnreadableReply")


class Arguments(unittest.TestCase):
    def test_what_ctypes_would_bend_is_refused(self) -> None:
        small = bytearray(9)
        refused: Calls = [
            (exports.cutPaperById, (-1,)),
            (exports.cutPaperById, (2**32,)),
            (exports.BeginPrint, (2**31,)),
            (exports.PrintText, (b"a\0b", 24)),
            (exports.read_standard, (bytearray(23),)),
            (exports.read_baseinfo, (exports.tolvex_weight(),)),
            (exports.set_tare_bykey, (small,)),
            (exports.send_pre_tare, (bytearray(b"0123456789"),)),
            (exports.getLCVersion, (bytearray(10), 11)),
            (exports.getPrinterVersion, (bytearray(10), 11, b"Ticket")),
            (exports.sendRawCmdToLC, (b"x", None, bytearray(10), 11, 100)),
            (exports.getLogLevel, (b"print", (ctypes.c_char * 4)(), 5)),
        ]
        for call, arguments in refused:
            with self.subTest(function=call.__name__), self.assertRaisesRegex(ValueError, call.__name__):
                call(*arguments)
        mistaken: Calls = [
            (exports.PrintText, ("text", 24)),
            (exports.PrintText, (b"text", 24.0)),
            (exports.PrintText, (b"text", None)),
            (exports.read_standard, (b"immutable memory of bytes",)),
            (exports.read_standard, ((ctypes.c_int * 6)(),)),
        ]
        for call, arguments in mistaken:
            with self.subTest(function=call.__name__), self.assertRaisesRegex(TypeError, call.__name__):
                call(*arguments)

    def test_a_wrong_number_of_arguments_is_refused(self) -> None:
        with self.assertRaises(TypeError):
            exports.PrintText(b"text")  # type: ignore[call-arg]


class Stubs(unittest.TestCase):
    def test_functions_without_a_device_answer_and_connect_to_nothing(self) -> None:
        stubs = [function for function in MODEL.functions if function.group == "Functions without a device"]
        self.assertGreater(len(stubs), 40)
        for function in stubs:
            answer = getattr(exports, function.name)()
            with self.subTest(name=function.name):
                if function.result != "other":
                    expected = exports.TOLVEX_FAILED if "PrintLabelImage" in function.name else exports.TOLVEX_OK
                    self.assertEqual(answer, expected)


class Devices(SimulatorTest):
    def test_records_and_buffers_are_filled(self) -> None:
        self.simulator.scale(load_kg=0.482)
        weight = exports.tolvex_weight()
        self.assertEqual(exports.read_standard_stdcall(weight), exports.TOLVEX_OK)
        self.assertEqual(bytes(weight)[1:9], b"00.4820P")
        memory = bytearray(24)
        self.assertEqual(exports.read_standard(memory), exports.TOLVEX_OK)
        self.assertEqual(bytes(memory), bytes(weight))
        info = exports.tolvex_base_info()
        self.assertEqual(exports.read_baseinfo(info), exports.TOLVEX_OK)
        self.assertEqual((list(info.max_range), info.weight_unit), ([3, 6, 15], b"kg"))
        names = (ctypes.c_char * 100)()
        self.assertEqual(exports.GetPrinterList(names, 100), exports.TOLVEX_OK)
        self.assertEqual(names.value, b"Label,Ticket,Third")

    def test_null_pointers_are_the_librarys_business(self) -> None:
        self.assertEqual(exports.read_standard(None), exports.TOLVEX_FAILED)
        self.assertEqual(exports.printTextById(None, 24, 1), 2)
        self.assertEqual(exports.getLCVersion(None, 0), 5)
        self.assertEqual(exports.getLCVersion(bytearray(), 0), 5)

    def test_a_job_is_queued_and_printed(self) -> None:
        self.assertEqual(exports.PrintText(tolvex.encode_for_queue("Käse"), 24), exports.TOLVEX_OK)
        self.assertEqual(exports.PrintText(b"x", 11), exports.TOLVEX_FONT_TOO_SMALL)
        self.assertEqual(exports.BeginPrint_stdcall(0), exports.TOLVEX_OK)
        self.assertEqual(self.simulator.paper().splitlines()[0], "Käse")
        self.assertEqual(exports.BeginPrint(0), exports.TOLVEX_FAILED)
        self.assertEqual(exports.getLastErrCode(), tolvex.ResultCode.UNKNOWN)

    def test_a_preset_tare_clears_the_tare(self) -> None:
        self.simulator.scale(load_kg=0.2)
        text = bytearray(b"0.5".ljust(11, b"\0"))
        self.assertEqual(exports.send_pre_tare(text), exports.TOLVEX_OK)
        self.assertEqual(text.rstrip(b"\0"), b"0.000")
        self.assertEqual(self.simulator.requests(), ['{"cmd":"clear_tare"}'])


if __name__ == "__main__":
    unittest.main()
