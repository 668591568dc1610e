"""What goes on while a call waits for its reply: the event loop, the other connection, and Ctrl-C.

The service holds replies back until the test lets them go, so the order is sure and no time is measured.
"""

import asyncio
import json
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import unittest
from decimal import Decimal
from types import FrameType
from typing import Any, Coroutine, List

from support import ADDRESS, WAIT, WEIGHT, Service, environment, python

import tolvex
from tolvex import Receipt, _calls, aio


class Order(unittest.TestCase):
    service: Service

    @classmethod
    def setUpClass(cls) -> None:
        cls.service = Service()
        cls.addClassCleanup(cls.service.close)
        tolvex.set_server(ADDRESS)

    def setUp(self) -> None:
        self.service.received.clear()
        self.service.answer("getweight", WEIGHT)
        for command in ("getweight", "beginPrint", "printtext", "opencashbox"):
            self.addCleanup(self.service.release, command)

    def commands(self) -> List[str]:
        return [json.loads(text)["cmd"] for text in self.service.received]

    def run_async(self, work: Coroutine[Any, Any, Any]) -> Any:
        return asyncio.run(asyncio.wait_for(work, WAIT))

    def in_loop(self, command: str, count: int = 1) -> Any:
        """Waits in the event loop until the service has a request, without stopping the loop."""
        return asyncio.get_running_loop().run_in_executor(None, self.service.wait_for, command, count)

    def test_a_weight_does_not_wait_for_a_receipt(self) -> None:
        self.service.hold("beginPrint")
        receipt = threading.Thread(target=Receipt().text("x").print)
        receipt.start()
        self.service.wait_for("beginPrint")
        self.assertEqual(tolvex.Scale().read().net, Decimal("0.482"))
        self.assertTrue(receipt.is_alive())
        self.service.release("beginPrint")
        receipt.join(WAIT)
        self.assertFalse(receipt.is_alive(), "the receipt did not end")

    def test_a_receipt_does_not_wait_for_a_weight(self) -> None:
        self.service.hold("getweight")
        weighing = threading.Thread(target=tolvex.Scale().read)
        weighing.start()
        self.service.wait_for("getweight")
        Receipt().text("x").print()
        self.assertTrue(weighing.is_alive())
        self.service.release("getweight")
        weighing.join(WAIT)
        self.assertFalse(weighing.is_alive(), "the weighing did not end")

    def test_the_event_loop_goes_on_while_a_weight_is_read(self) -> None:
        async def work() -> Decimal:
            self.service.hold("getweight")
            reading = asyncio.ensure_future(aio.Scale().read())
            await self.in_loop("getweight")
            # Only a loop that goes on comes here before the reply, which it lets go itself.
            self.assertFalse(reading.done())
            self.service.release("getweight")
            net = (await reading).net
            assert net is not None
            return net

        self.assertEqual(self.run_async(work()), Decimal("0.482"))

    def test_the_event_loop_goes_on_and_weighs_while_a_receipt_is_printed(self) -> None:
        async def work() -> None:
            self.service.hold("beginPrint")
            receipt = Receipt().text("a").text("b")
            job = asyncio.ensure_future(aio.print_receipt(receipt))
            await self.in_loop("beginPrint")
            receipt.text("too late for this job")
            self.assertEqual((await aio.Scale().read()).net, Decimal("0.482"))
            self.assertFalse(job.done())
            self.service.release("beginPrint")
            await job

        self.run_async(work())
        self.assertEqual(self.commands(), ["printtext", "printtext", "beginPrint", "getweight", "cutPaper"])

    def test_a_call_that_is_cancelled_goes_on_and_those_behind_it_wait(self) -> None:
        async def work() -> None:
            self.service.hold("beginPrint")
            job = asyncio.ensure_future(aio.print_receipt(Receipt().text("a").text("b")))
            await self.in_loop("beginPrint")
            dropped = asyncio.ensure_future(aio.print_receipt(Receipt().text("never begun")))
            behind = asyncio.ensure_future(aio.open_cash_drawer())
            await asyncio.sleep(0)
            for task in (job, dropped):
                task.cancel()
                with self.assertRaises(asyncio.CancelledError):
                    await task
            self.assertFalse(behind.done())
            self.service.release("beginPrint")
            await behind
            await aio.print_receipt(Receipt().text("next"))

        self.run_async(work())
        self.assertEqual(
            self.commands(),
            ["printtext", "printtext", "beginPrint", "cutPaper", "opencashbox", "printtext", "beginPrint", "cutPaper"],
        )

    def test_waiting_for_a_weight_can_be_cancelled_between_two_readings(self) -> None:
        async def work() -> None:
            waiting = asyncio.ensure_future(aio.Scale().wait_stable(timeout=WAIT, interval=0.01, until=lambda r: False))
            await self.in_loop("getweight", 3)
            waiting.cancel()
            with self.assertRaises(asyncio.CancelledError):
                await waiting
            # One thread for the connection: behind this one, none of the readings is left.
            await aio.Scale().read()
            count = len(self.commands())
            await aio.check_connection()
            self.assertEqual(len(self.commands()), count + 1)

        self.run_async(work())

    def test_waiting_in_vain_tells_the_last_reading(self) -> None:
        with self.assertRaises(tolvex.StableWeightTimeout) as caught:
            self.run_async(aio.Scale().wait_stable(timeout=0, until=lambda r: False))
        self.assertEqual(caught.exception.last.net, Decimal("0.482"))

    def test_failures_reach_the_task(self) -> None:
        self.service.answer("opencashbox", b'{"result":"2008"}')
        with self.assertRaises(tolvex.TolvexError) as caught:
            self.run_async(aio.open_cash_drawer())
        self.assertEqual((caught.exception.operation, caught.exception.code), ("OpenCashDrawerEx", 2008))
        self.service.answer("opencashbox", b'{"result":"0"}')

    def test_every_coroutine_does_what_its_function_does(self) -> None:
        self.service.answer("getPrinterList", b'{"result":"0","PrinterList":" A , B ,,"}')
        self.service.answer("getloglevel", b'{"result":"0","level":"5"}')
        self.service.answer("settarebykey", b'{"result":"0","tare":"0.12"}')
        self.service.answer("clear_tare", b'{"result":"0","tare":"0"}')

        async def work() -> List[Any]:
            scale, printer, settings = aio.Scale(), aio.Printer(1), aio.PrinterSettings("A")
            calls: List[Any] = [
                scale.info(), scale.zero(), scale.tare(), scale.clear_tare(), scale.version(),
                scale.set_overload_alarm(True), scale.raw_command("x", "", 20),
                printer.status(), printer.print_text("t", 24), printer.print_wrapped("t", 24, 72),
                printer.print_image("/x.bmp", 0), printer.cut(), printer.feed(), printer.calibrate(),
                printer.calibrate_paper_end(), printer.set_paper_width(58), printer.set_gap_type(1),
                printer.set_direction(1), printer.set_text_wrap_mode(1),
                settings.set_left_margin(1), settings.set_right_margin(1), settings.set_paper_offset(1),
                settings.set_contrast(1), settings.set_speed(1), settings.set_auto_print(True), settings.set_rollback(True),
                settings.set_take_up_sensor(True), settings.firmware_version(), settings.raw_command("y", 1, "", 20),
                aio.printers(), aio.feed_blank(1), aio.open_cash_drawer(), aio.check_connection(),
                aio.service_log_level("print"), aio.set_service_log_level("loadcell", 3),
                aio.print_label(Receipt().text("l")),
            ]  # fmt: skip
            return [await call for call in calls]

        results = self.run_async(work())
        self.assertEqual(results[2], Decimal("0.12"))
        self.assertEqual((results[4], results[6]), ({"result": "0"}, '{"result":"0"}'))
        self.assertTrue(results[7].ready)
        self.assertEqual(results[29], ["A", "B"])
        self.assertEqual((results[32], results[33]), (True, "5"))
        expected = (
            "getbaseinfo setzero settarebykey clear_tare getLCVersion setOverloadAlarm x printerStatus printtext "
            "print_text_width printbmpfile cutPaper printblanks calibrateLabelGap calibrateOutOfPaper setpaperwidth "
            "setGapType setdirection setTextWrapMode setLeftMargin setRightMargin setPaperOffset setcontrast "
            "setprintspeed setPrtAutoPrint setRollback settakepapersensor getprinterversion y getPrinterList "
            "printblanks opencashbox checkConnection getloglevel setloglevel printtext beginPrint"
        )
        self.assertEqual(self.commands(), expected.split())

    def test_a_reply_that_is_no_json_is_unreadable(self) -> None:
        for reply in (b"ready", b'{"result":0}', b'{"result":"0"', b"\xff\xfe"):
            with self.subTest(reply=reply):
                self.service.answer("getweight", reply)
                with self.assertRaises(tolvex.TolvexError) as caught:
                    tolvex.Scale().read()
                self.assertEqual((caught.exception.code, caught.exception.name), (-1, "UnreadableReply"))
                self.assertIn("DLL=2 in NLog.ini", caught.exception.remedy)

    def test_a_byte_that_is_no_utf_8_never_breaks_a_reply(self) -> None:
        self.service.answer("getPrinterList", b'{"result":"0","PrinterList":"Caf\xe9,B"}')
        self.assertEqual(tolvex.printers(), ["Caf\ufffd", "B"])
        self.service.answer("getLCVersion", b'{"result":"0","version":"\xe9"}')
        self.assertEqual(tolvex.Scale().version()["version"], "\ufffd")

    def test_a_version_that_is_no_object_is_unreadable(self) -> None:
        self.service.answer("getLCVersion", b'{"result":"0"} ...')
        with self.assertRaises(tolvex.TolvexError) as caught:
            tolvex.Scale().version()
        self.assertEqual(caught.exception.code, -1)
        self.service.answer("getLCVersion", b'{"result":"0"}')

    def test_a_tare_that_is_no_number_is_unreadable_but_was_taken(self) -> None:
        self.service.answer("settarebykey", b'{"result":"0","tare":"heavy"}')
        with self.assertRaises(tolvex.TolvexError) as caught:
            tolvex.Scale().tare()
        self.assertEqual(caught.exception.code, -1)
        self.assertIn("was carried out", caught.exception.meaning)

    def test_the_longest_reply_is_handed_out_whole(self) -> None:
        reply = b'{"result":"0","x":"' + b"y" * (2048 - 21) + b'"}'
        self.assertEqual(len(reply), 2048)
        self.service.answer("selftest", reply)
        self.assertEqual(tolvex.Scale().raw_command("selftest", timeout=30), reply.decode())

    @unittest.skipIf(sys.platform == "win32", "there is no SIGINT for one process on Windows")
    def test_ctrl_c_ends_the_wait_but_not_the_job(self) -> None:
        script = (
            "import sys, tolvex\n"
            "tolvex.set_server(sys.argv[1])\n"
            "try:\n"
            "    tolvex.Receipt().text('one').text('two').print()\n"
            "except KeyboardInterrupt:\n"
            "    print('interrupted', flush=True)\n"
            "    tolvex.Receipt().text('next').print()\n"
        )
        self.service.hold("printtext")
        child = subprocess.Popen([sys.executable, "-c", script, ADDRESS], env=environment(), stdout=subprocess.PIPE)
        self.addCleanup(child.kill)
        watchdog = threading.Timer(WAIT, child.kill)
        watchdog.start()
        self.service.wait_for("printtext")
        child.send_signal(signal.SIGINT)
        assert child.stdout is not None
        said = b""
        for line in child.stdout:  # up to the word, or to the end if it never comes
            said += line
            if line == b"interrupted\n":
                break
        self.assertIn(b"interrupted", said)
        self.service.release("printtext")
        child.communicate()
        watchdog.cancel()
        self.assertEqual(child.returncode, 0)
        sent = [json.loads(text).get("text", json.loads(text)["cmd"]) for text in self.service.received]
        self.assertEqual(sent, ["one", "two", "beginPrint", "cutPaper", "next", "beginPrint", "cutPaper"])

    def test_an_interruption_at_any_step_lets_go_of_the_connection(self) -> None:
        passed: List[str] = []

        def interrupt(frame: FrameType, event: str, _: Any) -> Any:
            # Where Ctrl-C can come as well: when a function begins, and when it ends.
            if frame.f_code.co_filename == _calls.__file__ and event in ("call", "return"):
                passed.append(f"{event} {frame.f_code.co_name}")
                if len(passed) > done:
                    sys.settrace(None)
                    raise KeyboardInterrupt
            return interrupt

        before = sys.gettrace()
        for done in range(50):
            passed.clear()
            try:
                sys.settrace(interrupt)
                tolvex.open_cash_drawer()
                break
            except KeyboardInterrupt:
                pass
            finally:
                sys.settrace(before)
            other = threading.Thread(target=tolvex.open_cash_drawer, daemon=True)
            other.start()
            other.join(WAIT)
            self.assertFalse(other.is_alive(), f"another thread waited {WAIT} s after {passed}")
        else:
            self.fail(f"the call never came to its end: {passed}")
        self.assertGreater(done, 3)

    @unittest.skipIf(sys.platform == "win32", "a copy of python.exe needs its DLLs")
    def test_programs_of_some_names_are_told_no_tare(self) -> None:
        self.service.answer("settarebykey", b'{"result":"0","tare":"0.12"}')
        folder = tempfile.mkdtemp(prefix="tolvex-name-")
        self.addCleanup(shutil.rmtree, folder, True)
        script = "import sys, tolvex\ntolvex.set_server(sys.argv[1])\nprint('tare', tolvex.Scale().tare())\n"
        for name, told in (("Kelvarin", "tare None"), ("Lumidesk", "tare None"), ("till", "tare 0.12")):
            program = shutil.copy(os.path.realpath(sys.executable), os.path.join(folder, name))
            home = f"{sys.base_prefix}:{sys.base_exec_prefix}"
            libraries = os.path.join(sys.base_prefix, "lib")
            result = subprocess.run(
                [program, "-c", script, ADDRESS],
                env=environment(PYTHONHOME=home, LD_LIBRARY_PATH=libraries),
                stdout=subprocess.PIPE,
                stderr=subprocess.PIPE,
                encoding="utf-8",
                timeout=WAIT,
            )
            with self.subTest(name=name):
                self.assertIn(told, result.stdout.splitlines(), result.stderr)

    def test_a_receipt_can_be_printed_while_the_interpreter_ends(self) -> None:
        script = (
            "import atexit, sys, tolvex\n"
            "tolvex.set_server(sys.argv[1])\n"
            "atexit.register(lambda: tolvex.Receipt().text('closing').print())\n"
        )
        result = python(script, ADDRESS)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(self.commands(), ["printtext", "beginPrint", "cutPaper"])


if __name__ == "__main__":
    unittest.main()
