"""What the tests share: the simulator in the place of the service, and Python processes of their own.

A process has one library with one context, and its ports are fixed. So each file of tests is a process with
an address of its own, and what needs a fresh library runs in a child.

The environment says where everything is: TOLVEX_LIBRARY, ZELKAD_SIM and TOLVEX_TEST_ADDRESS.
"""

import http.client
import json
import os
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import time
import unittest
from pathlib import Path
from typing import Any, Callable, Dict, List, Optional

WAIT = 60  # seconds until a test gives up waiting for what has to happen

ADDRESS = os.environ["TOLVEX_TEST_ADDRESS"]
LIBRARY = os.environ["TOLVEX_LIBRARY"]
SOURCE = Path(__file__).resolve().parents[1] / "src"


class Simulator:
    """zelkad-sim at the test's address, with everything it gets and prints in a folder of its own."""

    def __init__(self, *options: str) -> None:
        self.folder = Path(tempfile.mkdtemp(prefix="tolvex-python-"))
        self.recording = self.folder / "record.jsonl"
        self.paper_folder = self.folder / "paper"
        self.options = options
        self.start()

    def start(self) -> None:
        command = [os.environ["ZELKAD_SIM"], "--address", ADDRESS, "--web-port", "0", "--settling", "0", "--quiet"]
        command += ["--paper-dir", str(self.paper_folder), *self.options]
        if "--replay" not in self.options:
            command += ["--record", str(self.recording)]
        self.process = subprocess.Popen(
            command,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            stdin=subprocess.DEVNULL,
            text=True,
            encoding="utf-8",
        )
        assert self.process.stdout is not None
        said = []
        self.page = 0
        watchdog = threading.Timer(WAIT, self.process.kill)
        watchdog.start()
        for line in self.process.stdout:
            said.append(line)
            if " page on " in line:
                self.page = int(line.rstrip("/\n").rpartition(":")[2])
            if line.strip() == "zelkad-sim: ready":
                break
        else:
            raise AssertionError(f"the simulator did not start within {WAIT} s: " + "".join(said))
        watchdog.cancel()
        # Nobody looks at the rest, but a full pipe would stop it.
        self.reader = threading.Thread(target=self.process.stdout.read, daemon=True)
        self.reader.start()

    def ask(self, method: str, path: str, body: Optional[Dict[str, Any]] = None) -> Any:
        connection = http.client.HTTPConnection(ADDRESS, self.page, timeout=WAIT)
        try:
            text = None if body is None else json.dumps(body)
            connection.request(method, path, text, {"Content-Type": "application/json"} if text else {})
            answer = connection.getresponse()
            content = answer.read().decode("utf-8")
        finally:
            connection.close()
        if answer.status >= 400:
            raise AssertionError(f"{method} {path}: {answer.status} {content}")
        try:
            return json.loads(content)
        except ValueError:
            return content

    def reset(self, **patch: Any) -> None:
        """Devices as at the start, without faults; requests are counted from here."""
        self.ask("POST", "/api/reset", patch or None)
        self._begin = len(self._recorded())

    def scale(self, **patch: Any) -> None:
        self.ask("PATCH", "/api/scale", patch)

    def ticket(self, **patch: Any) -> None:
        self.ask("PATCH", "/api/printers/Ticket", patch)

    def fault(self, kind: str, **members: Any) -> None:
        self.ask("POST", "/api/faults", dict(members, kind=kind))

    def mend(self) -> None:
        self.ask("DELETE", "/api/faults")

    _begin = 0

    def _recorded(self) -> List[Dict[str, Any]]:
        with open(self.recording, encoding="utf-8") as file:
            return [json.loads(line) for line in file if line.endswith("\n")]

    def requests(self, *commands: str) -> List[str]:
        """The requests since the reset, whole; only those of the commands, if any are named."""
        texts = [row["request"] for row in self._recorded()[self._begin :] if "request" in row]
        return [text for text in texts if not commands or json.loads(text)["cmd"] in commands]

    def paper(self, job: int = 1) -> str:
        """What can be read on the paper of a job."""
        return str(self.ask("GET", f"/api/jobs/{job}/paper.txt"))

    def jobs(self) -> List[Dict[str, Any]]:
        answer = self.ask("GET", "/api/jobs")
        jobs: List[Dict[str, Any]] = answer["jobs"] if isinstance(answer, dict) else answer
        return jobs

    def until(self, condition: Callable[[], bool], what: str) -> None:
        end = time.monotonic() + WAIT
        while not condition():
            if time.monotonic() > end:
                raise AssertionError(f"waited {WAIT} s for {what}")
            time.sleep(0.01)

    def kill(self) -> None:
        self.process.kill()
        self._ended()

    def _ended(self) -> None:
        self.process.wait(WAIT)
        self.reader.join(WAIT)
        assert self.process.stdout is not None
        self.process.stdout.close()

    def stop(self) -> None:
        if self.process.poll() is None:
            self.process.terminate()
            try:
                self._ended()
            except subprocess.TimeoutExpired:
                self.kill()
        shutil.rmtree(self.folder, ignore_errors=True)


class Service:
    """A service that answers what the test says, when the test says: the same to everything, but for what is held.

    Devices are the simulator's; this is for the order in which things happen.
    """

    def __init__(self) -> None:
        self._lock = threading.Condition()
        self._held: Dict[str, bool] = {}
        self._replies: Dict[str, bytes] = {}
        self.received: List[str] = []
        self._listeners = []
        for port in (53264, 53265):
            listener = socket.create_server((ADDRESS, port))
            self._listeners.append(listener)
            threading.Thread(target=self._accept, args=(listener,), daemon=True).start()

    def _accept(self, listener: socket.socket) -> None:
        while True:
            try:
                connection, _ = listener.accept()
            except OSError:
                return
            threading.Thread(target=self._serve, args=(connection,), daemon=True).start()

    def _serve(self, connection: socket.socket) -> None:
        text = b""
        with connection:
            while True:
                received = connection.recv(65536)
                if not received:
                    return
                text += received
                try:
                    request = json.loads(text.decode("utf-8"))
                except ValueError:
                    continue  # not all of it yet
                with self._lock:
                    self.received.append(text.decode("utf-8"))
                    text = b""
                    self._lock.notify_all()
                    released = self._lock.wait_for(lambda: not self._held.get(request["cmd"]), WAIT)
                    reply = self._replies.get(request["cmd"], b'{"result":"0"}')
                if not released:
                    return
                connection.sendall(reply)

    def hold(self, command: str) -> None:
        """Lets replies to a command wait until it is released."""
        with self._lock:
            self._held[command] = True

    def release(self, command: str) -> None:
        with self._lock:
            self._held[command] = False
            self._lock.notify_all()

    def answer(self, command: str, reply: bytes) -> None:
        """What a command is answered with from now on."""
        with self._lock:
            self._replies[command] = reply

    def wait_for(self, command: str, count: int = 1) -> None:
        """Waits until a command has come so often."""

        def has_come() -> bool:
            return [json.loads(text)["cmd"] for text in self.received].count(command) >= count

        with self._lock:
            if not self._lock.wait_for(has_come, WAIT):
                raise AssertionError(f"waited {WAIT} s for {count} {command}, got {self.received}")

    def close(self) -> None:
        for listener in self._listeners:
            listener.close()


WEIGHT = b'{"result":"0","net":"0.482","tare":"0","zero":"0","tareType":"N","highResNet":"0.4820","weightUnit":"kg"}'


class SimulatorTest(unittest.TestCase):
    """Tests of a process that uses the simulator with the library that is loaded here."""

    simulator: Simulator

    @classmethod
    def setUpClass(cls) -> None:
        import tolvex

        cls.simulator = Simulator()
        cls.addClassCleanup(cls.simulator.stop)
        from tolvex._native import process

        if process.owner is None:
            tolvex.set_server(ADDRESS)
        # The connections may be those to the simulator of the class before, and notice it with a call.
        cls.simulator.until(tolvex.check_connection, "the service to answer for weighing")
        cls.simulator.until(cls._is_printing, "the service to answer for printing")

    @staticmethod
    def _is_printing() -> bool:
        import tolvex

        try:
            return len(tolvex.printers()) > 0
        except tolvex.TolvexError:
            return False

    def setUp(self) -> None:
        self.simulator.reset()

    def failure(self, call: Callable[..., Any], *arguments: Any, **named: Any) -> Any:
        """The TolvexError that a call ends in."""
        import tolvex

        with self.assertRaises(tolvex.TolvexError) as caught:
            call(*arguments, **named)
        return caught.exception


def environment(**changes: Optional[str]) -> Dict[str, str]:
    """That of a child: this one's with changes, where None takes a variable away."""
    made = dict(os.environ, PYTHONIOENCODING="utf-8")
    for name, value in changes.items():
        if value is None:
            made.pop(name, None)
        else:
            made[name] = value
    return made


def python(script: str, *arguments: str, **changes: Optional[str]) -> "subprocess.CompletedProcess[str]":
    """Runs a script in a Python of its own; its status, output and errors are in the result."""
    return python_file("-c", script, *arguments, **changes)


def python_file(*arguments: str, **changes: Optional[str]) -> "subprocess.CompletedProcess[str]":
    """The same for a file, or for what else the interpreter takes as arguments."""
    return subprocess.run(
        [sys.executable, *arguments],
        env=environment(**changes),
        stdout=subprocess.PIPE,
        stderr=subprocess.PIPE,
        stdin=subprocess.DEVNULL,
        encoding="utf-8",
        timeout=WAIT,
    )
