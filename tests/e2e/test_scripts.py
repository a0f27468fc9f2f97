"""The scripts by which people start the program."""

import hashlib
import os
import pathlib
import signal
import subprocess
import unittest

from desktop import PROGRAM, DesktopTest, end_process

ROOT = pathlib.Path(__file__).resolve().parents[2]
RUN = str(ROOT / "scripts" / "run.sh")
RUN_HEADLESS = str(ROOT / "scripts" / "run-headless.sh")
CONTENT = b"The quick brown fox jumps over the lazy dog"
LIMIT_S = 120
PNG_MARK = b"\x89PNG"


def take_interrupts():
    """Runs in the new process: tests started in the background have SIGINT switched off, and hand that on."""
    signal.signal(signal.SIGINT, signal.SIG_DFL)


class HeadlessRun(DesktopTest):
    """The files and folders of a desktop are used; its display is not."""

    def setUp(self):
        super().setUp()
        del self.desktop.environment["DISPLAY"]
        self.environment = {**self.desktop.environment, "TMPDIR": str(self.desktop.folder)}
        self.picture = self.files / "pictures" / "window.png"

    def run_script(self, path, folder):
        return subprocess.run([RUN_HEADLESS, PROGRAM, path, str(self.picture)], cwd=folder, env=self.environment,
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=LIMIT_S, check=False)

    def processes(self):
        """Command lines of the running processes that have this test's folder in their environment."""
        found = []
        for folder in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if f"TMPDIR={self.desktop.folder}\0".encode() in (folder / "environ").read_bytes():
                    found.append((folder / "cmdline").read_text().split("\0"))
            except OSError:
                pass  # ended in the meantime, or somebody else's
        return found

    def check_nothing_is_left(self):
        self.assertEqual(self.processes(), [])
        self.assertEqual(list(self.desktop.folder.glob("tmp.*")), [])

    def test_prints_the_digest_of_a_file_with_any_name(self):
        name = "-two words 'single' \"double\" äöüß 漢字.bin"
        path = self.make_file(name, CONTENT)
        answer = self.run_script(str(path), self.files)
        self.assertEqual(answer.returncode, 0, answer.stderr)
        self.assertEqual(answer.stdout.decode(), hashlib.sha256(CONTENT).hexdigest().upper() + "\n")
        self.assertEqual(self.picture.read_bytes()[:4], PNG_MARK)
        self.check_nothing_is_left()

    def test_an_interrupted_run_leaves_nothing_behind(self):
        path = self.make_sparse_file("large.bin", 1 << 40)
        for number in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(number.name):
                self.interrupt(str(path), number)
                self.check_nothing_is_left()

    def interrupt(self, path, number):
        """Sends the signal to the script and all that it started, as a terminal does, once the program runs."""
        with subprocess.Popen([RUN_HEADLESS, PROGRAM, path, str(self.picture)], env=self.environment,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                              preexec_fn=take_interrupts) as script:
            self.addCleanup(end_process, script)
            self.desktop.wait_for(lambda: PROGRAM in (words[0] for words in self.processes()), "the program runs")
            os.killpg(script.pid, number)
            self.assertNotEqual(script.wait(LIMIT_S), 0)

    def test_a_program_that_ends_at_once_is_reported(self):
        answer = subprocess.run([RUN_HEADLESS, "/bin/false", RUN, str(self.picture)], env=self.environment,
                                capture_output=True, timeout=LIMIT_S, check=False)
        self.assertNotEqual(answer.returncode, 0)
        self.assertEqual(answer.stdout, b"")
        self.assertIn(b"The window did not open.", answer.stderr)
        self.check_nothing_is_left()


class Refusals(unittest.TestCase):
    def test_the_start_script_refuses_before_it_installs_or_builds_anything(self):
        no_display = "There is no display here. Name a file to have it digested in a window on a virtual one."
        for arguments, message in ((["-missing file"], "-missing file: no such file"), (["/"], "/: not a file"),
                                   ([], no_display)):
            with self.subTest(arguments):
                answer = subprocess.run([RUN, *arguments], env={"PATH": os.environ["PATH"]}, capture_output=True,
                                        timeout=LIMIT_S, check=False)
                self.assertEqual((answer.returncode, answer.stdout, answer.stderr.decode()), (1, b"", message + "\n"))
