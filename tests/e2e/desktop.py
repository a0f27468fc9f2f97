"""A virtual desktop for the tests: an X server, a window manager and the program, driven by real keys and mouse.

Everything belongs to one test: the display, the folders of settings and data, and every process, which ends with
the test whatever its outcome.
"""

import ctypes
import hashlib
import os
import pathlib
import re
import signal
import subprocess
import tempfile
import time
import unittest

PROGRAM = os.environ["KESTRUM_PROGRAM"]
PICTURES = pathlib.Path(os.environ["KESTRUM_E2E_PICTURES"])

# Generous, as a condition that comes true ends the wait at once.
LIMIT_S = 60
POLL_S = 0.05

# Where the window has its parts, in pixels from its upper left corner, at its start size on a display of 96 dpi.
START_SIZE = (613, 505)
INPUT_FIELD = (200, 147)
COPY_HEX = (594, 340)
COPY_BASE64 = (594, 427)
STATUS_LINE = (60, 490)

# Values of the setting WhatCopyToClipboard.
COPY_NOTHING, COPY_HEX_DIGEST = 1, 2

PR_SET_PDEATHSIG = 1
LIBC = ctypes.CDLL(None)


def end_with_parent():
    """Runs in the new process: it gets SIGTERM where the test itself is killed."""
    LIBC.prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


def end_process(process):
    """Ends a process, politely first, and takes its exit status."""
    if process.poll() is None:
        process.terminate()
    try:
        process.wait(10)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


class Desktop:
    """A display of its own with a window manager on it."""

    def __init__(self):
        self._processes = []
        self._folder = tempfile.TemporaryDirectory(prefix="kestrum-e2e-")
        self.folder = pathlib.Path(self._folder.name)
        self.environment = self._plain_environment()
        try:
            self.environment["DISPLAY"] = ":" + self._start_display()
            self.start(["openbox"])
            self.wait_for(self._manager_runs, "a window manager")
            # On the first key of all the window manager takes up its own keys anew, and would miss one of them.
            self.key("Shift_L")
        except BaseException:
            self.close()
            raise

    def _plain_environment(self):
        environment = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "xcb",
                       # Without an address a bus would be started, and would outlive the test.
                       "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
        for name, folder in {"HOME": "home", "XDG_CONFIG_HOME": "config", "XDG_DATA_HOME": "data",
                             "XDG_CACHE_HOME": "cache", "XDG_RUNTIME_DIR": "runtime"}.items():
            (self.folder / folder).mkdir(mode=0o700)
            environment[name] = str(self.folder / folder)
        return environment

    def _start_display(self):
        read_end, write_end = os.pipe()
        # Without -noreset the display starts afresh when its last client goes, and takes a newcomer with it.
        self.start(["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1280x800x24", "-nolisten", "tcp",
                    "-noreset"], pass_fds=(write_end,))
        os.close(write_end)
        with open(read_end, encoding="ascii") as pipe:
            number = pipe.readline().strip()
        if not number:
            raise AssertionError("the virtual display did not start")
        return number

    def _manager_runs(self):
        return "window id" in self.ask("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")

    def start(self, command, **options):
        """Starts a process that ends with the desktop; what it writes goes to the file "output" of the desktop."""
        options.setdefault("env", self.environment)
        options.setdefault("stdout", subprocess.DEVNULL)
        with open(self.folder / "output", "ab") as output:
            process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stderr=output,
                                       preexec_fn=end_with_parent, **options)
        self._processes.append(process)
        return process

    def ask(self, *command):
        """What a short command writes; nothing where it fails."""
        answer = subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL, capture_output=True,
                                timeout=LIMIT_S, check=False)
        return answer.stdout.decode(errors="replace") if answer.returncode == 0 else ""

    def xdotool(self, *arguments):
        return self.ask("xdotool", *(str(argument) for argument in arguments)).strip()

    def clipboard(self):
        return self.ask("timeout", "5", "xclip", "-selection", "clipboard", "-o")

    def wait_for(self, condition, what, limit_s=LIMIT_S):
        """The first true value of condition(); where none comes in time the test fails, leaving a picture."""
        end = time.monotonic() + limit_s
        while not (value := condition()):
            if time.monotonic() > end:
                raise AssertionError(f"not within {limit_s} s: {what}; {self._evidence()}")
            time.sleep(POLL_S)
        return value

    def _evidence(self):
        PICTURES.mkdir(parents=True, exist_ok=True)
        picture = PICTURES / time.strftime("%H%M%S.png")
        self.ask("import", "-window", "root", str(picture))
        output = (self.folder / "output").read_text(errors="replace")
        return f"the display at that moment: {picture}; the programs wrote: {output!r}"

    def find_window(self, process, title):
        """The number of the process's visible window with a title that fits the expression."""
        found = self.wait_for(
            lambda: self.xdotool("search", "--all", "--onlyvisible", "--pid", process.pid, "--name", title),
            f"a window with the title {title}")
        return found.split()[0]

    def wait_for_focus(self, title):
        """Waits until the active window has a title that fits the expression."""
        self.wait_for(lambda: re.search(title, self.xdotool("getactivewindow", "getwindowname")),
                      f"the focus in a window with the title {title}")

    def key(self, *keys):
        self.xdotool("key", *keys)

    def type(self, text):
        self.xdotool("type", "--", text)

    def click(self, window, place):
        self.xdotool("mousemove", "--window", window, *place, "click", 1)

    def brightness(self, window):
        """Mean brightness of the window's picture, from 0 for black to 1 for white."""
        answer = self.ask("import", "-window", window, "-colorspace", "Gray", "-format", "%[fx:mean]", "info:-")
        return float(answer)

    def close(self):
        for process in reversed(self._processes):
            end_process(process)
        self._folder.cleanup()


class Program:
    """The running program with its window in focus."""

    TITLE = "^Kestrum v"

    def __init__(self, desktop, *arguments, copy=COPY_HEX_DIGEST, folder=None, **environment):
        self.desktop = desktop
        self._write_settings(copy)
        self.process = desktop.start([PROGRAM, *arguments], cwd=folder or desktop.folder,
                                     env={**desktop.environment, **environment})
        self.window = desktop.find_window(self.process, self.TITLE)
        desktop.wait_for(self._has_start_size, f"the window has its start size {START_SIZE}")
        self.take_focus()

    def _write_settings(self, copy):
        folder = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"]) / "Quillon.example"
        folder.mkdir(exist_ok=True)
        (folder / "Kestrum.conf").write_text(f"[General]\nWhatCopyToClipboard={copy}\n", encoding="ascii")

    def _has_start_size(self):
        geometry = self.desktop.xdotool("getwindowgeometry", self.window)
        return "Geometry: {}x{}".format(*START_SIZE) in geometry

    def take_focus(self):
        self.desktop.xdotool("windowactivate", self.window)
        self.desktop.wait_for_focus(self.TITLE)

    def click(self, place):
        self.desktop.click(self.window, place)

    def enter_file(self, path):
        """Types the name into the input field in place of what stands there."""
        self.click(INPUT_FIELD)
        self.desktop.key("ctrl+a")
        self.desktop.type(str(path))

    def wait_for_copy(self, text, limit_s=LIMIT_S):
        """Waits until the clipboard holds exactly this text."""
        self.desktop.wait_for(lambda: self.desktop.clipboard() == text, f"the clipboard holds {text}", limit_s)

    def status(self):
        """The text of the status line, taken by marking and copying it."""
        self.click(STATUS_LINE)
        self.desktop.key("ctrl+a", "ctrl+c")
        return self.desktop.clipboard()

    def wait_for_status(self, text):
        self.desktop.wait_for(lambda: self.status() == text, f"the status line says {text}")

    def position_in(self, path):
        """How far the program has read the file, in bytes; None while it does not have it open."""
        for entry in pathlib.Path(f"/proc/{self.process.pid}/fd").iterdir():
            try:
                if os.readlink(entry) == str(path):
                    information = pathlib.Path(f"/proc/{self.process.pid}/fdinfo/{entry.name}").read_text()
                    return int(re.search(r"^pos:\s*(\d+)", information).group(1))
            except FileNotFoundError:
                pass  # closed in the meantime
        return None

    def wait_until_reading(self, path):
        self.desktop.wait_for(lambda: self.position_in(path), f"the program reads {path}")

    def peak_memory_bytes(self):
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return int(re.search(r"^VmHWM:\s*(\d+) kB", status, re.MULTILINE).group(1)) * 1024

    def close(self, limit_s=LIMIT_S):
        """Closes the window by its key and gives the program's exit status."""
        self.take_focus()
        self.desktop.key("alt+F4")
        return self.process.wait(limit_s)


class DesktopTest(unittest.TestCase):
    """Gives each test a desktop, and a folder for its files."""

    def setUp(self):
        self.desktop = Desktop()
        self.addCleanup(self.desktop.close)
        self.files = self.desktop.folder / "files"
        self.files.mkdir()

    def make_file(self, name, content):
        path = self.files / name
        path.write_bytes(content)
        return path

    def make_sparse_file(self, name, size):
        """A file of mostly zeros that takes no room on the disk, with marks where 32-bit positions would err."""
        path = self.files / name
        with open(path, "wb") as file:
            for position in (0, size // 2 + 1, (1 << 32) - 3, size - 5):
                if position <= size - 5:
                    file.seek(position)
                    file.write(b"mark!")
            file.truncate(size)
        return path

    def finish(self, program):
        """Closes the window; a program that crashes on its way out fails the test."""
        self.assertEqual(program.close(), 0)


def hex_digest(algorithm, content):
    return hashlib.new(algorithm, content).hexdigest().upper()
