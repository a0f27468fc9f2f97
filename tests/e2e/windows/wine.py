# The Windows program under Wine, driven by real keys and mouse.
#
# KESTRUM_WINE and KESTRUM_WINESERVER name the programs that run it; WINEPREFIX is ready for use.

import os
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))

from desktop import CONTENT, DesktopTest  # noqa: E402

WINE = os.environ["KESTRUM_WINE"]
SETTINGS = r"HKCU\Software\Quillon.example\Kestrum"
MENU_ENTRIES = r"HKCU\Software\Classes\*\shell"
LINK = "Microsoft/Windows/SendTo/Kestrum.lnk"


# The program stands in self.home.
class WineTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.environment.update(WINEPREFIX=os.environ["WINEPREFIX"], WINEDEBUG="-all",
                                WINEDLLOVERRIDES=os.environ["WINEDLLOVERRIDES"])
        del self.environment["QT_QPA_PLATFORM"]  # names a plug-in of the other system
        # A server of former programs would keep their display, or that they had none.
        self.end_wine()
        self.addCleanup(self.end_wine)
        self.path = self.make_file("résumé 'Größe' & 計算 (1).bin", CONTENT)
        self.ask(WINE, "reg", "delete", SETTINGS, "/f")
        self.set_values(WhatCopyToClipboard=2)

    def end_wine(self):
        self.ask(os.environ["KESTRUM_WINESERVER"], "--kill")
        self.ask(os.environ["KESTRUM_WINESERVER"], "--wait")

    def set_values(self, **values):
        for name, value in values.items():
            kind = "REG_SZ" if isinstance(value, str) else "REG_DWORD"
            self.ask(WINE, "reg", "add", SETTINGS, "/v", name, "/t", kind, "/d", str(value), "/f")

    def has_number(self, name, value):
        return re.search(rf"\b{name}\s+REG_DWORD\s+{value:#x}\s", self.ask(WINE, "reg", "query", SETTINGS))

    def user_files(self, name):
        users = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c" / "users"
        return list(users.glob("*/AppData/Roaming/" + name))

    def start_program(self, *arguments):
        process = self.start([WINE, "kestrum.exe", *arguments], cwd=self.home)
        self.focus()
        return process

    # Presses the key again until that has come true, as a window of Wine that has just opened may miss it.
    def press_until(self, key, condition, what):
        self.wait_for(lambda: self.key(key) or condition(), what)

    def close_program(self, process):
        self.focus()
        self.press_until("alt+F4", lambda: process.poll() is not None, "the program's end")
        self.assertEqual(process.returncode, 0)
