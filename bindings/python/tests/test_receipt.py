"""Receipts, printers and the drawer, against the simulator."""

import json
import os
import signal
import threading
import unittest
from pathlib import Path
from typing import Any, List
from unittest import mock

from support import WAIT, SimulatorTest

import tolvex
from tolvex import JobType, PrinterType, Receipt, _receipt

PRINTED = ("printtext", "print_text_width", "printbmpfile", "beginPrint", "cutPaper", "printblanks")

# A picture of one black dot.
BITMAP = (
    b"BM\x42\0\0\0\0\0\0\0\x3e\0\0\0"
    + b"\x28\0\0\0\x01\0\0\0\x01\0\0\0\x01\0\x01\0"
    + bytes(24)
    + b"\0\0\0\0\xff\xff\xff\0"
    + bytes(4)
)


def texts(requests: List[str]) -> List[str]:
    return [json.loads(request).get("text", json.loads(request)["cmd"]) for request in requests]


class Receipts(SimulatorTest):
    def image(self) -> Path:
        path = self.simulator.folder / "Bild ä.bmp"
        path.write_bytes(BITMAP)
        return path

    def test_a_receipt_goes_out_byte_for_byte(self) -> None:
        receipt = Receipt().text("Äpfel\n\n谢谢", 36).wrapped("TOTAL 1.44", 48, 72).text("").blank(12)
        receipt.print()
        self.assertEqual(
            self.simulator.requests(*PRINTED),
            [
                '{"cmd":"printtext","printerType":"1","fontsize":"36","text":"Äpfel"}',
                '{"cmd":"printtext","printerType":"1","fontsize":"36","text":" "}',
                '{"cmd":"printtext","printerType":"1","fontsize":"36","text":"谢谢"}',
                '{"cmd":"print_text_width","printerType":"1","fontsize":"48","width":"576","text":"TOTAL 1.44"}',
                '{"cmd":"printtext","printerType":"1","fontsize":"24","text":" "}',
                '{"cmd":"printtext","printerType":"1","fontsize":"12","text":" "}',
                '{"cmd":"beginPrint","printerType":"1"}',
                '{"cmd":"cutPaper","printerType":"1","Percent":"70"}',
            ],
        )
        paper = self.simulator.paper().splitlines()
        self.assertEqual([line.strip() for line in paper[:4]], ["Äpfel", "", "谢谢", "TOTAL 1.44"])
        self.assertEqual(self.simulator.jobs()[0]["end"], "cut")

    def test_an_empty_text_prints_a_blank_line(self) -> None:
        Receipt().text("a").text("").wrapped("").text("b").print()
        self.assertEqual(self.simulator.paper().splitlines()[:4], ["a", "", "", "b"])

    def test_a_receipt_can_be_printed_any_number_of_times(self) -> None:
        receipt = Receipt().text("again")
        receipt.print()
        receipt.print(JobType.TICKET_FEED)
        self.assertEqual([job["printer"] for job in self.simulator.jobs()], ["Ticket", "Ticket"])
        self.assertEqual(len(receipt), 1)

    def test_job_types_go_to_their_printers(self) -> None:
        for job_type, printer, last in (
            (JobType.TICKET, "1", "beginPrint"),
            (JobType.LABEL, "0", "beginPrint"),
            (JobType.THIRD, "2", "beginPrint"),
            (JobType.THIRD_CUT, "2", "cutPaper"),
            (JobType.LABEL_FEED, "0", "printblanks"),
            (42, "1", "beginPrint"),
        ):
            with self.subTest(job_type=job_type):
                self.simulator.reset()
                Receipt().text("x").print(job_type)
                requests = [json.loads(request) for request in self.simulator.requests(*PRINTED)]
                self.assertEqual({request["printerType"] for request in requests}, {printer})
                self.assertEqual(requests[-1]["cmd"], last)

    def test_a_label_goes_to_the_label_printer(self) -> None:
        Receipt().text("Käse", 36).print_label()
        self.assertEqual(
            self.simulator.requests(*PRINTED),
            [
                '{"cmd":"printtext","printerType":"0","fontsize":"36","text":"Käse"}',
                '{"cmd":"beginPrint","printerType":"0"}',
            ],
        )

    def test_an_image_is_printed_from_its_copy(self) -> None:
        Receipt().image(self.image(), 90).text("below").print()
        sent = json.loads(self.simulator.requests("printbmpfile")[0])
        self.assertEqual((sent["angle"], Path(sent["filename"]).suffix), ("90", ".bmp"))
        self.assertEqual(Path(sent["filename"]).read_bytes(), BITMAP)
        self.assertEqual(self.simulator.jobs()[0]["images"], 1)

    def test_a_relative_image_counts_from_the_working_folder(self) -> None:
        self.image()
        before = os.getcwd()
        os.chdir(self.simulator.folder)
        try:
            receipt = Receipt().image("Bild ä.bmp")
        finally:
            os.chdir(before)
        receipt.print()
        self.assertEqual(self.simulator.jobs()[0]["images"], 1)

    def test_nothing_is_sent_of_a_receipt_that_cannot_be_printed_whole(self) -> None:
        refused = (
            (Receipt().text("first").image(self.simulator.folder / "none.bmp"), FileNotFoundError),
            (Receipt().text("first").text("ä" * 1025), ValueError),
            (Receipt().text("first").text("\ud83d"), tolvex.UnprintableText),
        )
        for receipt, kind in refused:
            with self.subTest(kind=kind), self.assertRaises(kind):
                receipt.print()
        with self.assertRaisesRegex(ValueError, "empty"):
            Receipt().print(JobType.TICKET)
        with self.assertRaisesRegex(ValueError, "at most 200 images"):
            receipt = Receipt()
            for _ in range(201):
                receipt.image("x.bmp")
            receipt.print()
        self.assertEqual(self.simulator.requests(), [])
        Receipt().text("next").print()
        self.assertEqual(texts(self.simulator.requests(*PRINTED)), ["next", "beginPrint", "cutPaper"])

    def test_a_line_of_2048_bytes_is_printed(self) -> None:
        Receipt().text("ä" * 1024 + "\n" + "b" * 2048, 12).print()
        self.assertEqual(texts(self.simulator.requests("printtext")), ["ä" * 1024, "b" * 2048])

    def test_an_empty_receipt_cuts(self) -> None:
        Receipt().print(JobType.TICKET_CUT)
        self.assertEqual(self.simulator.requests(*PRINTED), ['{"cmd":"cutPaper","printerType":"1","Percent":"70"}'])

    def test_job_types_that_leave_the_queue_as_it_is_are_refused(self) -> None:
        for job_type in (6, 80, 81, 90, 91, 106, 209, 306):
            with self.subTest(job_type=job_type), self.assertRaises(ValueError):
                Receipt().text("x").print(job_type)

    def test_arguments_are_checked_when_they_are_given(self) -> None:
        receipt = Receipt()
        for call, arguments in (
            (receipt.text, ("a\0b",)),
            (receipt.text, ("a", 11)),
            (receipt.text, ("a", 73)),
            (receipt.text, ("a", -1)),
            (receipt.wrapped, ("a", 24, 81)),
            (receipt.wrapped, ("a", 24, 0)),
            (receipt.image, ("",)),
            (receipt.image, ("a\0.bmp",)),
            (receipt.image, ("a.bmp", 65536)),
            (receipt.image, ("a.bmp", -90)),
        ):
            with self.subTest(arguments=arguments), self.assertRaises(ValueError):
                call(*arguments)  # type: ignore[operator]
        for wrong in (None, 7, b"bytes"):
            with self.subTest(wrong=wrong), self.assertRaises(TypeError):
                receipt.text(wrong)  # type: ignore[arg-type]
        with self.assertRaises(TypeError):
            receipt.text("a", True)
        with self.assertRaises(TypeError):
            receipt.text("a", 24.0)  # type: ignore[arg-type]
        with self.assertRaises(ValueError):
            Receipt(errors="ignore")
        self.assertEqual(len(receipt), 0)

    def test_half_of_a_surrogate_pair_is_told_with_its_place(self) -> None:
        with self.assertRaises(tolvex.UnprintableText) as caught:
            Receipt().text("ok \udc80").print()
        self.assertEqual((caught.exception.position, caught.exception.character), (3, "\udc80"))
        self.assertIn("U+DC80 at position 3", str(caught.exception))
        Receipt(errors="replace").text("ok \udc80").print()
        self.assertEqual(texts(self.simulator.requests("printtext")), ["ok ?"])


class Failures(SimulatorTest):
    def test_out_of_paper_half_way_then_cut_off_and_printed_again(self) -> None:
        self.simulator.ticket(paper={"left_mm": 10})
        receipt = Receipt()
        for number in range(5):
            receipt.text(f"line {number}")
        error = self.failure(receipt.print)
        self.assertEqual((error.operation, error.code, error.name), ("BeginPrint", 2006, "OutOfPaper"))
        self.assertEqual(
            str(error),
            "BeginPrint: 2006 OutOfPaper (Out of Paper). The printer has no paper left. What to do: Put in new paper, "
            "close the cover, and print the job again: what came out before is not complete.",
        )
        out = len(self.simulator.requests("printtext"))
        self.assertTrue(0 < out < 5, out)
        status = tolvex.Printer(PrinterType.TICKET).status()
        self.assertEqual((status.ready, status.code, status.name), (False, 2006, "OutOfPaper"))
        self.assertIn("Put in new paper", status.remedy)
        self.simulator.ask("POST", "/api/printers/Ticket/load-paper")
        self.assertTrue(tolvex.Printer(PrinterType.TICKET).status().ready)
        tolvex.Printer(PrinterType.TICKET).cut()
        receipt.print()
        lines = [
            line for line in self.simulator.paper(len(self.simulator.jobs())).splitlines() if line.startswith("line")
        ]
        self.assertEqual(lines, [f"line {number}" for number in range(5)])

    def test_nothing_of_a_failed_receipt_comes_out_with_the_next(self) -> None:
        self.simulator.fault("result", code=2005, command="printtext", times=1)
        self.assertEqual(self.failure(Receipt().text("old 1").text("old 2").print).code, 2005)
        Receipt().text("new").print()
        self.assertEqual(texts(self.simulator.requests(*PRINTED)), ["old 1", "new", "beginPrint", "cutPaper"])

    def test_what_was_queued_of_a_receipt_is_printed_with_that_one_only(self) -> None:
        receipt = Receipt().text("one").text("two").text("three")
        real = tolvex.exports.PrintText
        calls = []

        def failing(text: bytes, size: int) -> int:
            calls.append(text)
            return 255 if len(calls) == 2 else real(text, size)

        failing.__name__ = "PrintText"
        prepared = [queued._replace(function=failing) for queued in receipt.prepared(8)]
        with self.assertRaisesRegex(MemoryError, "PrintText could not queue"):
            _receipt.send(prepared, 8)
        with self.assertRaises(tolvex.QueueNotEmpty) as caught:
            Receipt().text("another").print()
        self.assertEqual(caught.exception.lines, 1)
        self.assertEqual(self.simulator.requests(), [])
        _receipt.send(prepared, 8)
        self.assertEqual(texts(self.simulator.requests("printtext")), ["one", "two", "three"])
        Receipt().text("another").print()
        self.assertEqual(texts(self.simulator.requests("printtext"))[3:], ["another"])

    def test_font_sizes_that_the_library_refuses_are_wrong_arguments(self) -> None:
        for size in (11, 73):
            with self.subTest(size=size), self.assertRaisesRegex(ValueError, f"the font size {size}.*12 to 72"):
                _receipt.send([_receipt.Queued(tolvex.exports.PrintText, b"x", (size,))], 8)
        self.assertEqual(self.simulator.requests(), [])

    def test_a_failed_verdict_without_a_code_says_so(self) -> None:
        Receipt().text("fine").print()
        with mock.patch.object(tolvex._exports, "getLastErrCode", return_value=0):
            self.simulator.fault("result", code=2005, command="opencashbox", times=1)
            error = self.failure(tolvex.open_cash_drawer)
        self.assertEqual((error.code, error.name), (255, "Failed"))
        self.assertIn("another call ended at the same time", error.meaning)
        self.assertIn("log", error.remedy)

    def test_a_code_of_the_services_own_is_unknown_but_told(self) -> None:
        self.simulator.fault("result", code=4711, command="cutPaper", times=1)
        error = self.failure(tolvex.Printer(1).cut)
        self.assertEqual((error.code, error.name), (4711, "Unknown code 4711"))
        self.assertTrue(str(error).startswith("cutPaperById: Unknown code 4711. "), error)
        self.assertIn("log", error.remedy)


class Threads(SimulatorTest):
    def run_all(self, *work: "threading.Thread") -> None:
        for thread in work:
            thread.start()
        for thread in work:
            thread.join(WAIT)
            self.assertFalse(thread.is_alive(), f"{thread.name} did not end within {WAIT} s")

    def test_receipts_of_two_threads_never_mix(self) -> None:
        failures: List[BaseException] = []

        def print_receipts(name: str) -> None:
            try:
                for _ in range(20):
                    receipt = Receipt()
                    for number in range(6):
                        receipt.text(f"{name}{number}")
                    receipt.print(JobType.TICKET)
            except BaseException as error:
                failures.append(error)

        self.run_all(*(threading.Thread(target=print_receipts, args=(name,), name=name) for name in "ab"))
        self.assertEqual(failures, [])
        sent = texts(self.simulator.requests(*PRINTED))
        jobs = [sent[at : at + 7] for at in range(0, len(sent), 7)]
        self.assertEqual(len(jobs), 40)
        for job in jobs:
            self.assertEqual(job, [job[0][0] + str(number) for number in range(6)] + ["beginPrint"])

    def test_one_thread_weighs_while_another_prints(self) -> None:
        self.simulator.scale(load_kg=0.482)
        printed: List[object] = []
        weights: List[object] = []
        failures: List[BaseException] = []
        done = threading.Event()

        def weigh() -> None:
            try:
                weights.append(tolvex.Scale().read().net)
                while not done.is_set():
                    weights.append(tolvex.Scale().read().net)
            except BaseException as error:
                failures.append(error)

        def print_one() -> None:
            try:
                for _ in range(30):
                    Receipt().text("x").print()
                    printed.append(True)
            except BaseException as error:
                failures.append(error)
            finally:
                done.set()

        self.run_all(
            threading.Thread(target=weigh, name="weighing"), threading.Thread(target=print_one, name="printing")
        )
        self.assertEqual((failures, len(printed)), ([], 30))
        self.assertEqual({str(weight) for weight in weights}, {"0.4820"})

    @unittest.skipUnless(hasattr(os, "fork"), "there is no fork on this system")
    def test_a_fork_does_not_talk_on_its_parents_connections(self) -> None:
        tolvex.check_connection()
        reading, writing = os.pipe()
        child = os.fork()
        if child == 0:
            signal.alarm(WAIT)
            try:
                tolvex.Scale().read()
                said = "read"
            except RuntimeError as error:
                said = str(error)
            os.write(writing, said.encode())
            os._exit(0)
        os.close(writing)
        with os.fdopen(reading, "rb") as pipe:
            said = pipe.read().decode()
        os.waitpid(child, 0)
        self.assertIn("is a fork of one that has used tolvex already", said)
        tolvex.Scale().read()


class Devices(SimulatorTest):
    printer = tolvex.Printer(PrinterType.TICKET)

    def test_what_is_printed_past_the_queue_is_utf_8(self) -> None:
        path = self.simulator.folder / "dot.bmp"
        path.write_bytes(BITMAP)
        self.printer.print_text("Спасибо €", 36)
        self.printer.print_text("")
        self.printer.print_wrapped("谢谢", 24, 58)
        self.printer.print_image(path, 180)
        self.printer.cut()
        self.assertEqual(
            self.simulator.requests(*PRINTED),
            [
                '{"cmd":"printtext","printerType":"1","fontsize":"36","text":"Спасибо €"}',
                '{"cmd":"printtext","printerType":"1","fontsize":"24","text":" "}',
                '{"cmd":"print_text_width","printerType":"1","fontsize":"24","width":"464","text":"谢谢"}',
                '{"cmd":"printbmpfile","printerType":"1","angle":"180","filename":"%s"}' % path,
                '{"cmd":"cutPaper","printerType":"1","Percent":"70"}',
            ],
        )

    def test_printers_are_operated(self) -> None:
        label = tolvex.Printer(PrinterType.LABEL)
        label.calibrate()
        self.printer.calibrate_paper_end()
        self.printer.feed()
        tolvex.feed_blank(40)
        label.set_gap_type(1)
        label.set_direction(1)
        self.printer.set_text_wrap_mode(1)
        self.printer.set_paper_width(58)
        tolvex.open_cash_drawer()
        self.assertEqual(
            self.simulator.requests(),
            [
                '{"cmd":"calibrateLabelGap","printerType":"0"}',
                '{"cmd":"calibrateOutOfPaper","printerType":"1"}',
                '{"cmd":"printblanks","distance":"13","printerType":"1"}',
                '{"cmd":"printblanks","distance":"40","printerType":"100"}',
                '{"cmd":"setGapType","gapType":"1","printerType":"0"}',
                '{"cmd":"setdirection","direction":"1","printerType":"0"}',
                '{"cmd":"setTextWrapMode","printerType":"1","WrapMode":"1"}',
                '{"cmd":"setpaperwidth","width":"464","printerType":"1"}',
                '{"cmd":"opencashbox"}',
            ],
        )
        self.assertTrue(self.simulator.ask("GET", "/api/drawer")["open"])

    def test_settings_go_by_the_printers_name(self) -> None:
        self.assertEqual(tolvex.printers(), ["Label", "Ticket", "Third"])
        settings = tolvex.PrinterSettings("Label")
        settings.set_left_margin(8)
        settings.set_right_margin(9)
        settings.set_paper_offset(4)
        settings.set_contrast(50)
        settings.set_speed(100)
        settings.set_auto_print(True)
        settings.set_rollback(False)
        settings.set_take_up_sensor(True)
        self.assertEqual(settings.firmware_version()["result"], "0")
        self.assertEqual(
            self.simulator.requests()[1:],
            [
                '{"cmd":"setLeftMargin","printerName":"Label","leftMargin":"8"}',
                '{"cmd":"setRightMargin","printerName":"Label","rightMargin":"9"}',
                '{"cmd":"setPaperOffset","offset":"4","printerName":"Label"}',
                '{"cmd":"setcontrast","contrast":"50","printerName":"Label"}',
                '{"cmd":"setprintspeed","speed":"100","printerName":"Label"}',
                '{"cmd":"setPrtAutoPrint","printerName":"Label","enable":"1"}',
                '{"cmd":"setRollback","enable":"0","printerName":"Label"}',
                '{"cmd":"settakepapersensor","enable":"1","printerName":"Label"}',
                '{"cmd":"getprinterversion","printerName":"Label"}',
            ],
        )

    def test_raw_commands_for_a_printer_hand_the_reply_out(self) -> None:
        error = self.failure(tolvex.PrinterSettings("Ticket").raw_command, "beep", -3, "x", timeout=20)
        self.assertEqual((error.code, error.reply), (2002, '{"result":"2002"}'))
        self.assertEqual(
            self.simulator.requests("beep"),
            ['{"cmd":"beep","printerName":"Ticket","intParam":"-3","paramList":"x"}'],
        )

    def test_an_unknown_printer_raises(self) -> None:
        self.assertEqual(self.failure(tolvex.PrinterSettings("None").set_speed, 1).code, 2008)
        self.assertEqual(self.failure(tolvex.PrinterSettings("None").firmware_version).code, 2008)

    def test_states_of_a_printer_are_no_errors(self) -> None:
        for fault, name in (("busy", "PrinterIsBusy"), ("hot", "PrintHeadIsHot"), ("unplugged", "PrinterNotFound")):
            with self.subTest(fault=fault):
                self.simulator.reset(printers={"Ticket": {"faults": {fault: True}}})
                status = self.printer.status()
                self.assertEqual((status.ready, status.name), (False, name))
        self.simulator.fault("result", code=2, command="printerStatus", times=1)
        self.assertEqual(self.failure(self.printer.status).code, 2)

    def test_arguments_are_checked_before_the_call(self) -> None:
        settings = tolvex.PrinterSettings("Ticket")
        for call in (
            lambda: tolvex.Printer(-1),
            lambda: tolvex.Printer(2**31),
            lambda: tolvex.PrinterSettings(""),
            lambda: tolvex.PrinterSettings("ä" * 128),
            lambda: tolvex.PrinterSettings("a\0"),
            lambda: tolvex.feed_blank(0),
            lambda: tolvex.feed_blank(1001),
            lambda: self.printer.print_text("a\0"),
            lambda: self.printer.print_text("\ud800"),
            lambda: self.printer.print_text("a", 0),
            lambda: self.printer.print_wrapped("a", 24, 2**28),
            lambda: self.printer.print_image(""),
            lambda: self.printer.print_image("a", -1),
            lambda: settings.set_speed(-1),
            lambda: settings.set_speed(2**32),
            lambda: settings.raw_command("a", 2**31),
        ):
            with self.assertRaises(ValueError):
                call()  # type: ignore[no-untyped-call]
        wrong: Any = None
        for refuses in (tolvex.PrinterSettings, settings.set_speed, self.printer.print_text):
            with self.assertRaises(TypeError):
                refuses(wrong)  # type: ignore[operator]
        self.assertEqual(self.simulator.requests(), [])
        tolvex.PrinterSettings("ä" * 127 + "b")


if __name__ == "__main__":
    unittest.main()
