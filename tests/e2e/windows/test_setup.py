# The setup program under Wine. KESTRUM_SETUP names it.

import os
import pathlib
import subprocess

from wine import LINK, MENU_ENTRIES, SETTINGS, WINE, WineTest

from desktop import LIMIT_S, hex_digest

UNINSTALL = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Kestrum"
LOG = "Quillon.example/Kestrum/kestrum.log"
RUNNING = 3


class SetupTest(WineTest):
    def setUp(self):
        super().setUp()
        self.prefix = pathlib.Path(os.environ["WINEPREFIX"])
        self.home = self.prefix / "drive_c" / "Zoë's"

    # How a setup program ends.
    def end_of(self, program, *arguments):
        command = ["setpriv", "--pdeathsig", "TERM", WINE, program, "/S", *arguments]
        return subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL, timeout=LIMIT_S, check=False).returncode

    def setup_program(self, *arguments):
        return self.end_of(os.environ["KESTRUM_SETUP"], *arguments)

    # All there is, and when it was written; without Wine's own folders, and what waits for a restart to go.
    def written(self):
        return {path: path.stat().st_mtime for part in ("drive_c", "home") for path in self.prefix.joinpath(part).rglob("*")
                if path.is_file() and not {"windows", "Temp"} & set(path.parts)}

    def test_installs_upgrades_and_removes_and_leaves_nothing(self):
        for left in self.user_files(LINK) + self.user_files(LOG):  # by other tests
            left.unlink()
        before = self.written()
        self.assertEqual(self.setup_program("/Desktop", "/D=C:\\Zoë's"), 0)
        self.assertRegex(self.ask(WINE, "reg", "query", UNINSTALL), r"DisplayVersion +REG_SZ +[0-9.]+\s")
        self.assertEqual(len([path for path in self.written() if path.name == "Kestrum.lnk"]), 2)
        own = self.home / "mine.txt"
        own.touch()

        program = self.start_program(f"Z:{self.path}")
        self.press_until("F5", lambda: self.clipboard() == hex_digest("sha256"), "the digest on the clipboard")
        installed = self.written()
        self.assertEqual(self.setup_program(), RUNNING)
        self.assertEqual(self.end_of(self.home / "uninstall.exe", "_?=C:\\Zoë's"), RUNNING)
        self.assertEqual(self.written(), installed)
        self.close_program(program)

        # A new version has other files, and finds the folder by itself.
        self.home.joinpath("kestrum.exe").write_bytes(b"an old version")
        self.assertEqual(self.setup_program(), 0)
        self.assertEqual(self.written().keys(), installed.keys())
        self.assertGreater(self.home.joinpath("kestrum.exe").stat().st_size, 1_000_000)

        self.assertEqual(self.end_of(self.home / "uninstall.exe", "/Settings"), 0)
        self.wait_for(lambda: self.written().keys() == before.keys() | {own}, "the uninstaller's end")
        for key in (UNINSTALL, SETTINGS, MENU_ENTRIES):
            self.assertEqual(self.ask(WINE, "reg", "query", key), "")
        self.assertFalse(self.user_files(LINK))
        own.unlink()
        self.home.rmdir()
