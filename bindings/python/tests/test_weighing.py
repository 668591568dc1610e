"""Weighing, against the simulator."""

import asyncio
import threading
import unittest
from decimal import Decimal
from typing import Any, List, Tuple

from support import SimulatorTest

import tolvex
from tolvex import WeightState
from tolvex._scale import parsed_reply, reading_of


def record(status: int, net: bytes, tare: bytes, mark: bytes = b"P") -> bytes:
    return bytes([status]) + net.ljust(7, b"\0") + mark + tare.ljust(15, b"\0")


class Weighing(SimulatorTest):
    scale = tolvex.Scale()

    def test_a_stable_weight_has_all_its_fields(self) -> None:
        self.simulator.scale(load_kg=0.482)
        reading = self.scale.read()
        self.assertEqual(
            reading,
            tolvex.Reading(
                WeightState.WEIGHT,
                net=Decimal("0.4820"),
                tare=Decimal("0.0000"),
                stable=True,
                zero=False,
                tare_active=False,
                net_text="00.4820",
                tare_text="00.0000",
            ),
        )
        self.assertEqual(str(reading), "0.4820 net, tare 0.0000, stable")
        self.assertEqual(self.simulator.requests("getweight"), ['{"cmd":"getweight"}'])

    def test_an_empty_scale_is_at_zero(self) -> None:
        reading = self.scale.read()
        self.assertTrue(reading.zero and reading.stable)
        self.assertEqual(reading.net, 0)

    def test_a_tare_is_subtracted_and_told(self) -> None:
        self.simulator.scale(load_kg=0.12)
        self.assertEqual(self.scale.tare(), Decimal("0.12"))
        self.simulator.scale(load_kg=0.5)
        reading = self.scale.read()
        self.assertEqual((reading.net, reading.tare, reading.tare_active), (Decimal("0.38"), Decimal("0.12"), True))
        self.simulator.scale(load_kg=0)
        self.assertEqual(self.scale.read().net, Decimal("-0.12"))
        self.assertEqual(self.scale.clear_tare(), 0)
        self.assertFalse(self.scale.read().tare_active)
        self.assertEqual(
            self.simulator.requests("settarebykey", "clear_tare"), ['{"cmd":"settarebykey"}', '{"cmd":"clear_tare"}']
        )

    def test_a_moving_weight_is_not_stable(self) -> None:
        self.simulator.scale(load_kg=0.5, unstable=True)
        reading = self.scale.read()
        self.assertEqual((reading.state, reading.stable), (WeightState.WEIGHT, False))
        self.assertIsNotNone(reading.net)

    def test_states_without_a_weight_have_none(self) -> None:
        for patch, state in (
            ({"load_kg": -1}, WeightState.UNDER_LOAD),
            ({"load_kg": 40}, WeightState.OVER_LOAD),
            ({"load_kg": 1, "invalid": True}, WeightState.INVALID),
        ):
            with self.subTest(state=state):
                self.simulator.scale(**patch)
                self.assertEqual(self.scale.read(), tolvex.Reading(state))
                self.assertEqual(str(self.scale.read()), state.value)

    def test_an_unplugged_scale_raises_with_a_remedy(self) -> None:
        self.simulator.scale(connected=False)
        error = self.failure(self.scale.read)
        self.assertEqual(
            (error.operation, error.code, error.name, error.text),
            ("read_standard", tolvex.ResultCode.LC_NOT_CONNECTED, "LcNotConnected", "LC not connected"),
        )
        self.assertIn("Check the scale's cable", error.remedy)
        self.assertEqual(
            str(error),
            "read_standard: 1007 LcNotConnected (LC not connected). The service cannot reach the scale. What to do: "
            "Check the scale's cable and power, then its port in the service's settings.",
        )

    def test_zero_sets_the_scale_to_zero(self) -> None:
        self.simulator.scale(load_kg=0.03)
        self.scale.zero()
        self.assertEqual(self.scale.read().net, 0)
        self.assertEqual(self.simulator.requests("setzero"), ['{"cmd":"setzero"}'])

    def test_a_refusal_to_zero_raises(self) -> None:
        self.simulator.scale(load_kg=0.5, unstable=True)
        error = self.failure(self.scale.zero)
        self.assertEqual(error.code, tolvex.ResultCode.WEIGHT_NOT_STABLE)

    def test_waiting_ends_with_the_weight_that_is_waited_for(self) -> None:
        def until(reading: tolvex.Reading) -> bool:
            if reading.net == 0:
                self.simulator.scale(load_kg=1)
            return reading.net == 1

        reading = self.scale.wait_stable(timeout=60, interval=0.01, until=until)
        self.assertEqual((reading.net, reading.stable), (1, True))
        self.assertEqual(len(self.simulator.requests("getweight")), 2)

    def test_waiting_goes_on_while_the_weight_moves(self) -> None:
        self.simulator.scale(load_kg=1, unstable=True)

        def settle() -> None:
            self.simulator.until(lambda: len(self.simulator.requests("getweight")) >= 3, "three readings")
            self.simulator.scale(unstable=False)

        settling = threading.Thread(target=settle)
        settling.start()
        reading = self.scale.wait_stable(timeout=60, interval=0.01)
        settling.join(60)
        self.assertTrue(reading.stable)
        self.assertGreater(len(self.simulator.requests("getweight")), 3)

    def test_a_reply_without_a_weight_raises(self) -> None:
        self.simulator.scale(load_kg=1)
        self.simulator.fault("result", code=1005, carried_out=True, command="getweight", times=1)
        error = self.failure(self.scale.read)
        self.assertEqual((error.code, error.name), (-1, "UnreadableReply"))
        self.assertEqual(self.scale.read().net, 1)

    def test_waiting_in_vain_tells_the_last_reading(self) -> None:
        self.simulator.scale(load_kg=0.2)
        with self.assertRaises(tolvex.StableWeightTimeout) as caught:
            self.scale.wait_stable(timeout=0.05, interval=0.01, until=lambda r: r.net == 7)
        self.assertIsInstance(caught.exception, TimeoutError)
        self.assertEqual(caught.exception.last.net, Decimal("0.2"))
        self.assertIn("0.2000 net", str(caught.exception))
        self.simulator.scale(load_kg=40)
        with self.assertRaises(tolvex.StableWeightTimeout) as caught:
            self.scale.wait_stable(timeout=0)
        self.assertEqual(caught.exception.last.state, WeightState.OVER_LOAD)

    def test_waiting_times_that_would_never_end_are_refused(self) -> None:
        for timeout, interval in ((float("nan"), 0.1), (60, float("nan")), (60, -0.1)):
            arguments = timeout, interval, lambda reading: False
            with self.subTest(timeout=timeout, interval=interval):
                with self.assertRaisesRegex(ValueError, "has to be"):
                    self.scale.wait_stable(*arguments)
                with self.assertRaisesRegex(ValueError, "has to be"):
                    asyncio.run(tolvex.aio.Scale().wait_stable(*arguments))
        self.assertEqual(self.simulator.requests(), [])

    def test_high_resolution_reads_a_tenth_of_the_division(self) -> None:
        self.simulator.scale(load_kg=0.4824)
        self.assertFalse(self.scale.high_resolution)
        self.scale.high_resolution = True
        try:
            self.assertTrue(self.scale.high_resolution)
            self.assertEqual(self.scale.read().net, Decimal("0.4824"))
        finally:
            self.scale.high_resolution = False
        self.assertEqual(self.scale.read().net, Decimal("0.482"))

    def test_info_is_exact(self) -> None:
        info = self.scale.info()
        self.assertEqual(
            info.ranges,
            (
                tolvex.WeighingRange(Decimal(3), Decimal("0.001")),
                tolvex.WeighingRange(Decimal(6), Decimal("0.002")),
                tolvex.WeighingRange(Decimal(15), Decimal("0.005")),
            ),
        )
        self.assertEqual((info.min_weight, info.max_tare, info.max_preset_tare), (Decimal("0.02"), 6, 3))
        self.assertEqual((info.unit, info.system_version), ("kg", "SIM 1.0"))

    def test_versions_raw_commands_and_the_alarm_reach_the_service(self) -> None:
        self.assertEqual(self.scale.version()["result"], "0")
        self.assertEqual(self.scale.raw_command("getLCVersion", timeout=30), self.scale.raw_command("getLCVersion", ""))
        self.scale.set_overload_alarm(True)
        self.assertEqual(self.simulator.requests("setOverloadAlarm"), ['{"cmd":"setOverloadAlarm","enable":"1"}'])
        error = self.failure(self.scale.raw_command, "selftest", "1,ä")
        self.assertEqual((error.code, error.reply), (1002, '{"result":"1002"}'))
        self.assertEqual(self.simulator.requests("selftest"), ['{"cmd":"selftest","paramList":"1,ä"}'])

    def test_arguments_of_raw_commands_are_checked(self) -> None:
        refused: List[Tuple[Any, ...]] = [
            ("a\0b",),
            ("a", "b\0"),
            ("a", "", 0),
            ("a", "", -1),
            ("a", "", 1e9),
            ("a", "", float("nan")),
        ]
        for arguments in refused:
            with self.subTest(arguments=arguments), self.assertRaises(ValueError):
                self.scale.raw_command(*arguments)
        self.assertEqual(self.simulator.requests(), [])

    def test_the_log_levels_of_the_service_are_asked_and_set(self) -> None:
        for module in ("loadcell", "print"):
            tolvex.set_service_log_level(module, 3)
            self.assertEqual(tolvex.service_log_level(module), "3")
        with self.assertRaises(ValueError):
            tolvex.service_log_level("other")
        with self.assertRaises(ValueError):
            tolvex.set_service_log_level("print", "3\0")
        self.simulator.reset()
        for wrong in (None, True, 3.0, b"3"):
            with self.subTest(wrong=wrong), self.assertRaises(TypeError):
                tolvex.set_service_log_level("print", wrong)  # type: ignore[arg-type]
        self.assertEqual(self.simulator.requests(), [])

    def test_the_connection_can_be_asked_for(self) -> None:
        self.assertIs(tolvex.check_connection(), True)

    def test_a_server_after_the_first_call_is_refused(self) -> None:
        with self.assertRaisesRegex(RuntimeError, "comes too late"):
            tolvex.set_server("127.0.0.1")


class Records(unittest.TestCase):
    def test_wide_weights_run_on(self) -> None:
        reading = reading_of(record(5, b"-12.500", b"123.4000"))
        self.assertEqual((reading.net, reading.tare), (Decimal("-12.500"), Decimal("123.4000")))
        self.assertEqual((reading.net_text, reading.tare_text), ("-12.500", "123.4000"))

    def test_a_tare_that_fills_the_record_is_read_whole(self) -> None:
        self.assertEqual(reading_of(record(5, b"00.0000", b"-123456789.0000")).tare, Decimal("-123456789.0000"))

    def test_zero_has_no_sign(self) -> None:
        self.assertEqual(str(reading_of(record(1, b"-0.0000", b"")).net), "0.0000")

    def test_a_tare_that_is_not_told_is_none(self) -> None:
        self.assertIsNone(reading_of(record(1, b"01.5000", b"")).tare)

    def test_what_is_no_number_is_never_a_weight(self) -> None:
        for net in (b"", b"    inf", b"    nan", b"   -inf", b"1234567", b"1.2.3", b"1e5", b"\xb2.0000"):
            with self.subTest(net=net), self.assertRaises(tolvex.TolvexError) as caught:
                reading_of(record(1, net, b"00.0000"))
            self.assertEqual((caught.exception.code, caught.exception.name), (-1, "UnreadableReply"))
        with self.assertRaisesRegex(tolvex.TolvexError, "no number as the tare"):
            reading_of(record(1, b"01.5000", b"    inf"))

    def test_a_reply_that_is_no_object_is_unreadable(self) -> None:
        for reply in ("", "[]", "ready", '{"x":' + "[" * 2000):
            with self.subTest(reply=reply[:9]), self.assertRaises(tolvex.TolvexError) as caught:
                parsed_reply("getLCVersion", reply)
            self.assertEqual(caught.exception.code, -1)

    def test_zeros_are_an_invalid_weight(self) -> None:
        self.assertEqual(reading_of(bytes(24)).state, WeightState.INVALID)


if __name__ == "__main__":
    unittest.main()
