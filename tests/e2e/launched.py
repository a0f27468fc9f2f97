"""The program where another program starts it: a file manager, a launcher."""

import os
import pathlib

from desktop import LIMIT_S, Program


def write_settings(desktop, **values):
    """Makes the program's settings file."""
    folder = pathlib.Path(desktop.environment["XDG_CONFIG_HOME"]) / "Quillon.example"
    folder.mkdir(exist_ok=True)
    lines = "".join(f"{key}={value}\n" for key, value in values.items())
    (folder / "Kestrum.conf").write_text("[General]\n" + lines, encoding="ascii")


class LaunchedProgram(Program):
    """Waits for the program's window, whoever started it, and takes the focus there."""

    def __init__(self, desktop):  # pylint: disable=super-init-not-called
        self.desktop = desktop
        found = desktop.wait_for(lambda: desktop.xdotool("search", "--onlyvisible", "--name", self.TITLE),
                                 "the program's window")
        self.window = found.split()[0]
        self.process_id = int(desktop.xdotool("getwindowpid", self.window))
        self.take_focus()

    def executable(self):
        return os.readlink(f"/proc/{self.process_id}/exe")

    def close(self, limit_s=LIMIT_S):
        """Closes the window by its key and waits for the end of the process, whose exit status is not ours to see."""
        self.take_focus()
        self.desktop.key("alt+F4")
        self.desktop.wait_for(lambda: not os.path.exists(f"/proc/{self.process_id}"), "the program's end", limit_s)
        return 0
