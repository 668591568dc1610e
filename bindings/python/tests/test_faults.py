"""A service that goes away, comes back, or answers what it should not, in the simulator's place."""

import unittest
from typing import Callable, List

from support import SimulatorTest

import tolvex
from tolvex import JobType, Receipt, ResultCode


class Faults(SimulatorTest):
    def setUp(self) -> None:
        super().setUp()
        self.reach()
        self.simulator.reset()
        self.simulator.scale(load_kg=0.482)

    def reach(self) -> None:
        """Calls on each connection until the library has found out that it was closed, and opened it again."""

        def is_answered() -> bool:
            try:
                return tolvex.check_connection() and tolvex.Printer(1).status().ready
            except tolvex.TolvexError as error:
                self.assertEqual(error.code, ResultCode.SOCKET_INTERRUPT)
                return False

        self.simulator.until(is_answered, "the service to be reached again")

    def test_a_service_that_is_gone_raises_with_a_remedy_and_is_found_again(self) -> None:
        receipt = Receipt().text("kept")
        receipt.print()
        self.simulator.kill()
        calls: List[Callable[[], object]] = [tolvex.Scale().read, tolvex.Scale().info, receipt.print]
        for call in [*calls, tolvex.open_cash_drawer, tolvex.printers]:
            error = self.failure(call)
            self.assertEqual((error.code, error.name), (ResultCode.SOCKET_INTERRUPT, "SocketInterrupt"))
            self.assertIn("Start the service", error.remedy)
        error = self.failure(tolvex.Printer(1).status)
        self.assertEqual((error.operation, error.code), ("GetPrinterStatus", 4))
        self.assertIs(tolvex.check_connection(), False)
        self.simulator.start()
        self.simulator.reset()
        self.reach()
        receipt.print()
        self.assertEqual(self.simulator.paper().splitlines()[0], "kept")

    def test_a_service_that_closes_the_connection_is_reached_again(self) -> None:
        self.simulator.fault("close", command="getweight", times=1)
        self.assertEqual(self.failure(tolvex.Scale().read).code, 4)
        self.reach()
        self.assertEqual(str(tolvex.Scale().read().net), "0.4820")

    def test_a_reply_that_is_no_json_is_unreadable(self) -> None:
        self.simulator.fault("garbage", times=4)
        for call in (tolvex.Scale().read, tolvex.Scale().zero, tolvex.Printer(1).cut, tolvex.Scale().version):
            error = self.failure(call)
            self.assertEqual((error.code, error.name), (-1, "UnreadableReply"))
        self.assertEqual(str(tolvex.Scale().read().net), "0.4820")

    def test_a_result_that_is_a_number_is_unreadable(self) -> None:
        self.simulator.fault("wrong-type", times=2)
        self.assertEqual(self.failure(tolvex.Scale().info).code, -1)
        self.assertEqual(self.failure(tolvex.Printer(1).status).code, -1)

    def test_a_line_that_is_refused_ends_the_job(self) -> None:
        self.simulator.fault("result", code=2007, command="print_text_width", times=1)
        receipt = Receipt().text("above").wrapped("refused").text("below")
        error = self.failure(receipt.print, JobType.TICKET_FEED)
        self.assertEqual((error.operation, error.name), ("BeginPrint", "PrintHeadIsHot"))
        sent = self.simulator.requests("printtext", "print_text_width", "beginPrint", "printblanks")
        self.assertEqual(len(sent), 2)
        tolvex.Printer(1).cut()
        receipt.print(JobType.TICKET_FEED)
        self.assertEqual(len(self.simulator.requests("printtext", "print_text_width", "beginPrint", "printblanks")), 7)

    def test_each_code_of_the_table_is_raised_with_its_row(self) -> None:
        for code in ResultCode:
            if code == ResultCode.OK:
                continue
            with self.subTest(code=code.name):
                self.simulator.fault("result", code=int(code), command="cutPaper", times=1)
                error = self.failure(tolvex.Printer(1).cut)
                row = tolvex.explain(code)
                self.assertEqual(
                    str(error),
                    f"cutPaperById: {int(code)} {row.name} ({row.text}). {row.meaning} What to do: {row.remedy}",
                )


if __name__ == "__main__":
    unittest.main()
