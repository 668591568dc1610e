"""A copy of the source tree, in which one change after another is built and tested.

Tests that need no process of their own share one, which takes a third of the time."""

import os
import re
import shutil
import signal
import subprocess

FOLDERS = ("platform", "config", "log", "transport", "service", "weighing", "printing", "library")
BUILD_LIMIT = 600  # seconds
TEST_LIMIT = 300   # for all tests of a phase; they take half a minute
ONE_TEST_LIMIT = 20  # the longest takes two seconds
PROGRAM_LIMIT = 60


class Tree:
    def __init__(self, root, folder, number, jobs):
        self.source = folder / "source"
        self.build = folder / "build"
        self.jobs = str(jobs)
        self._log = folder / "log"
        self._running = None
        # Trees test at the same time, so each has a network of its own.
        network = os.environ.get("TOLVEX_TEST_NETWORK", "127.76").split(".")
        self._environment = dict(
            os.environ, TOLVEX_TEST_NETWORK="%s.%d" % (network[0], int(network[1]) + number),
            CCACHE_BASEDIR=str(folder), CCACHE_NOHASHDIR="1")  # trees compile the same
        self._copy(root)

    def _copy(self, root):
        names = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                               cwd=root, check=True, capture_output=True).stdout.decode().split("\0")
        wanted = {name for name in names if name and (root / name).is_file()}
        for name in wanted:
            source, copy = root / name, self.source / name
            # An unchanged file keeps its time, and what was built of it stays.
            if not copy.exists() or copy.read_bytes() != source.read_bytes():
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, copy)
        for copy in self.source.rglob("*"):
            if copy.is_file() and str(copy.relative_to(self.source)) not in wanted:
                copy.unlink()

    def configure(self):
        command = ["cmake", "--preset", "linux", "-S", ".", "-B", str(self.build),
                   "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS=-O0", "-DTOLVEX_WERROR=OFF",
                   "-DTOLVEX_BUILD_BENCH=OFF", "-DTOLVEX_WHOLE=OFF", "-DTOLVEX_TEST_FOLDERS=" + ";".join(FOLDERS),
                   "-DTOLVEX_FEW_PROCESSES=ON", "-DTOLVEX_TEST_LIMIT=%d" % ONE_TEST_LIMIT,
                   "-DTOLVEX_PROGRAM_LIMIT=%d" % PROGRAM_LIMIT]
        if shutil.which("clang++") and shutil.which("clang"):  # in half of GCC's time
            command += ["-DCMAKE_C_COMPILER=clang", "-DCMAKE_CXX_COMPILER=clang++"]
        if shutil.which("ccache"):
            command += ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache", "-DCMAKE_C_COMPILER_LAUNCHER=ccache"]
        return self._run(command, BUILD_LIMIT, self.source) == 0

    def read(self, name):
        return (self.source / name).read_text()

    def write(self, name, text):
        (self.source / name).write_text(text)

    def compiles(self, folder=None):
        target = "tests/all" if folder is None else "tests/%s/all" % folder
        return self._run(["ninja", "-C", str(self.build), "-j", self.jobs, target], BUILD_LIMIT) == 0

    def failure(self, *options):
        """What of these tests fails first: a name, or None when all pass. It has to fail twice, so
        that a machine that is busy does not count as a test that noticed something."""
        for _ in range(2):
            state = self._run(["ctest", "--test-dir", str(self.build), "-j", self.jobs,
                               "--stop-on-failure", "--no-tests=error", "--output-on-failure",
                               *options], TEST_LIMIT)
            if state == 0:
                return None
            if state is None or "***Timeout" in self.log():
                break  # it hangs, and would again
        return "no end after %d s" % TEST_LIMIT if state is None else self._failed_test()

    def _failed_test(self):
        lines = self.log().splitlines()
        failed = [line.split(":", 1)[1].split()[0] for line in lines if "***" in line and " Test " in line]
        # More exactly, where a program of several ran as one test.
        failed = re.findall(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)", self.log(), re.M) or failed
        return failed[0] if failed else "ctest itself, see " + str(self._log)

    def log(self):
        return self._log.read_text(errors="replace")

    def _run(self, command, limit, folder=None):
        """The exit status, or None when the time was up; then nothing of it goes on running."""
        with open(self._log, "wb") as log:
            process = subprocess.Popen(command, stdout=log, stderr=log, stdin=subprocess.DEVNULL,
                                       cwd=folder, env=self._environment, start_new_session=True)
            self._running = process
            try:
                return process.wait(limit)
            except subprocess.TimeoutExpired:
                self.stop()
                process.wait()
                return None

    def stop(self):
        """Ends what runs; from any thread."""
        if self._running is not None and self._running.poll() is None:
            os.killpg(self._running.pid, signal.SIGKILL)
