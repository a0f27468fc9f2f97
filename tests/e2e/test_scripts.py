# The scripts by which people start the program.

import os
import pathlib
import signal
import subprocess
import unittest

from desktop import AWKWARD_NAME, CONTENT, LIMIT_S, PROGRAM, DesktopTest, end, hex_digest

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "scripts"


class HeadlessRun(DesktopTest):
    # The script starts its own.
    def start_display(self):
        self.environment["TMPDIR"] = str(self.folder)
        self.picture = self.folder / "pictures" / "window.png"

    # The exit status, output and messages of a run that act() deals with, and that leaves nothing behind.
    def run_script(self, program, act=lambda script: None, size=len(CONTENT)):
        path = self.make_file(AWKWARD_NAME)
        os.truncate(path, size)
        # Tests that run in the background have the interrupt switched off, and would hand that on.
        command = ["env", "--default-signal=INT", SCRIPTS / "run-headless.sh", program, path, self.picture]
        script = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE, text=True, start_new_session=True)
        self.addCleanup(end, script)
        act(script)
        output, messages = script.communicate(timeout=2 * LIMIT_S)
        self.wait_for(lambda: self.ask("sh", "-c", f"kill -0 -{script.pid} || echo gone"), "the end of all its processes")
        self.assertEqual(list(self.folder.glob("tmp.*")), [])
        return script.returncode, output, messages

    def test_prints_the_digest_of_a_file_with_any_name(self):
        status, output, messages = self.run_script(PROGRAM)
        self.assertEqual((status, output), (0, hex_digest("sha256") + "\n"), messages)
        self.assertEqual(self.picture.read_bytes()[:4], b"\x89PNG")

    def test_an_interrupted_run_leaves_nothing_behind(self):
        # Signals the script and all that it started, as a terminal does, once the program is started.
        def interrupt(script):
            self.wait_for(lambda: list(self.folder.glob("tmp.*/program.log")), "the program is started")
            os.killpg(script.pid, number)

        for number in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(number.name):
                self.assertNotEqual(self.run_script(PROGRAM, interrupt, 1 << 40)[0], 0)

    def test_a_program_that_ends_at_once_is_reported(self):
        status, output, messages = self.run_script("/bin/false")
        self.assertEqual((status, output), (1, ""))
        self.assertIn("The window did not open.", messages)


class Refusals(unittest.TestCase):
    def test_the_start_script_refuses_before_it_installs_or_builds_anything(self):
        no_display = "There is no display here. Name a file to have it digested in a window on a virtual one."
        for arguments, message in ((["-missing file"], "-missing file: no such file"), (["/"], "/: not a file"),
                                   ([], no_display)):
            with self.subTest(arguments):
                answer = subprocess.run([SCRIPTS / "run.sh", *arguments], env={"PATH": os.environ["PATH"]},
                                        capture_output=True, text=True, timeout=LIMIT_S, check=False)
                self.assertEqual((answer.returncode, answer.stdout, answer.stderr), (1, "", message + "\n"))
