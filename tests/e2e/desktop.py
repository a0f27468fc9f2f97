# A virtual desktop for the tests: an X server, a window manager and the program, driven by real keys and mouse.

import hashlib
import os
import pathlib
import re
import subprocess
import tempfile
import time
import unittest

PROGRAM = os.environ["KESTRUM_PROGRAM"]
PICTURES = pathlib.Path(os.environ["KESTRUM_E2E_PICTURES"])
# Generous, as a condition that comes true ends the wait at once.
LIMIT_S = 60
TITLE = "^Kestrum v"
# Nothing of it may be run or taken for a code or a switch on its way to the program.
AWKWARD_NAME = "-a 'b'  \"c\" $(touch x) `touch x` ; touch x & \\ 100%f %% äöü ю漢.txt"
CONTENT = b"The quick brown fox jumps over the lazy dog"


def hex_digest(algorithm, content=CONTENT):
    return hashlib.new(algorithm, content).hexdigest().upper()


def end(process):
    process.terminate()
    process.wait()


# Each test has its own display, folders of settings and data, folder of files, and the processes it starts.
class DesktopTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kestrum-e2e-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.environment = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "xcb",
                            # Without an address a bus would be started, and would outlive the test.
                            "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"):
            (self.folder / name).mkdir(mode=0o700)
            self.environment[name] = str(self.folder / name)
        self.config = self.folder / "XDG_CONFIG_HOME"
        self.write_settings()
        self.files = self.folder / "files"
        self.files.mkdir()
        self.start_display()

    # Makes the program's settings file, in which the automatic copy of the digest is switched on.
    def write_settings(self, **values):
        lines = "".join(f"{key}={value}\n" for key, value in {"WhatCopyToClipboard": 2, **values}.items())
        (self.config / "Quillon.example").mkdir(exist_ok=True)
        (self.config / "Quillon.example" / "Kestrum.conf").write_text("[General]\n" + lines, encoding="ascii")

    def start_display(self):
        # Without -noreset the display starts afresh when its last client goes, and takes a newcomer with it.
        self.environment["DISPLAY"] = ":" + self.first_line_of(
            "Xvfb", "-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset")
        self.start(["openbox"])
        self.wait_for(lambda: "window id" in self.ask("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "a window manager")
        # On the first key of all the window manager takes up its own keys anew, and would miss one of them.
        self.key("Shift_L")

    # Starts a process that ends with the test, also where that is killed.
    def start(self, command, stdout=subprocess.DEVNULL, cwd=None, **environment):
        process = subprocess.Popen(["setpriv", "--pdeathsig", "TERM", *command], stdin=subprocess.DEVNULL,
                                   stdout=stdout, cwd=cwd or self.files, env={**self.environment, **environment})
        self.addCleanup(end, process)
        return process

    def first_line_of(self, *command):
        process = self.start(command, stdout=subprocess.PIPE)
        self.addCleanup(process.stdout.close)
        return process.stdout.readline().decode().strip()

    # What a short command writes; nothing where it fails.
    def ask(self, *command):
        answer = subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL, capture_output=True,
                                timeout=LIMIT_S, check=False)
        return answer.stdout.decode(errors="replace") if answer.returncode == 0 else ""

    def xdotool(self, *arguments):
        return self.ask("xdotool", *map(str, arguments)).strip()

    def key(self, *keys):
        self.xdotool("key", *keys)

    # The first true value of condition(); where none comes in time the test fails, leaving a picture.
    def wait_for(self, condition, what):
        end_of_wait = time.monotonic() + LIMIT_S
        while not (value := condition()):
            if time.monotonic() > end_of_wait:
                self.fail(f"not within {LIMIT_S} s: {what}; the display at that moment: {self.take_picture(self.id())}")
            time.sleep(0.05)
        return value

    def take_picture(self, name):
        PICTURES.mkdir(parents=True, exist_ok=True)
        self.ask("import", "-window", "root", str(PICTURES / f"{name}.png"))
        return PICTURES / f"{name}.png"

    def wait_for_focus(self, title):
        self.wait_for(lambda: re.search(title, self.xdotool("getactivewindow", "getwindowname")),
                      f"the focus in a window with the title {title}")

    # The number of the window with a title that fits the expression, which then has the focus.
    def focus(self, title=TITLE):
        window = self.wait_for(lambda: self.xdotool("search", "--all", "--onlyvisible", "--name", title),
                               f"a window with the title {title}").split()[0]
        self.xdotool("windowactivate", window)
        self.wait_for_focus(title)
        return window

    def clipboard(self, *options):
        return self.ask("timeout", "5", "xclip", "-selection", "clipboard", "-o", *options).strip()

    def wait_for_copy(self, text):
        self.wait_for(lambda: self.clipboard() == text, f"the clipboard holds {text}")

    def make_file(self, name, content=CONTENT):
        (self.files / name).write_bytes(content)
        return self.files / name

    def start_program(self, *arguments, **environment):
        process = self.start([PROGRAM, *arguments], **environment)
        self.focus()
        return process

    # Closes the window by its key; a crash on the way out fails the test, where the process is ours to see.
    def close_program(self, process=None):
        process_id = self.xdotool("getwindowpid", self.focus())
        self.key("alt+F4")
        if process:
            self.assertEqual(process.wait(LIMIT_S), 0)
        self.wait_for(lambda: not os.path.exists(f"/proc/{process_id}"), "the program's end")
