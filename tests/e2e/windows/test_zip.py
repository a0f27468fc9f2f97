# The Windows program from its zip, under Wine: unpacked, started, driven by real keys and mouse.
#
# KESTRUM_ZIP names the zip, KESTRUM_WINE and KESTRUM_WINESERVER the programs that run it; WINEPREFIX is ready for use.

import os
import pathlib
import re
import socket
import sys
import zipfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))

from desktop import CONTENT, LIMIT_S, TITLE, DesktopTest, hex_digest  # noqa: E402

WINE = os.environ["KESTRUM_WINE"]
SETTINGS = r"HKCU\Software\Quillon.example\Kestrum"
MENU_ENTRIES = r"HKCU\Software\Classes\*\shell"
LOG = "Quillon.example/Kestrum/kestrum.log"
LINK = "Microsoft/Windows/SendTo/Kestrum.lnk"
# Where a menu of the main window stands under Wine, and what chooses an entry in it.
MENU_HASH = (56, 11)
SELECT_ALGORITHM = ("Down", "Down", "Down", "Return")
GREEK = 1032
DEBUG = 5


class ZipTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.environment.update(WINEPREFIX=os.environ["WINEPREFIX"], WINEDEBUG="-all")
        del self.environment["QT_QPA_PLATFORM"]  # names a plug-in of the other system
        # A server of former programs would keep their display, or that they had none.
        self.end_wine()
        self.addCleanup(self.end_wine)
        home = self.folder / "Zoë Ñandú 文件"
        with zipfile.ZipFile(os.environ["KESTRUM_ZIP"]) as archive:
            archive.extractall(home)
        (self.home,) = home.iterdir()
        self.path = home / "résumé 'Größe' & 計算 (1).bin"
        self.path.write_bytes(CONTENT)
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

    def open_dialog(self, keys, title):
        self.xdotool("mousemove", "--window", self.focus(), *MENU_HASH, "click", 1)
        self.key(*keys)
        self.wait_for_focus(title)

    def leave_dialog(self, *keys):
        self.key(*keys)
        self.wait_for_focus(TITLE)

    def test_the_command_line_starts_a_run_whose_digest_comes_to_the_clipboard(self):
        process = self.start_program("/alg", "sha-512", "/ifile", "Z:" + str(self.path).replace("/", "\\"), "/start")
        self.wait_for_copy(hex_digest("sha512"))
        self.take_picture("windows")
        self.close_program(process)

    def test_a_greek_user_chooses_the_default_algorithm_which_the_next_start_with_a_single_argument_honours(self):
        self.set_values(LocaleId=GREEK)
        process = self.start_program()
        self.open_dialog(SELECT_ALGORITHM, "^Επιλογή αλγορίθμου$")
        self.take_picture("windows-greek")
        self.key("Home")
        self.xdotool("type", "MD5")
        self.leave_dialog("Tab", "space", "Return")
        self.close_program(process)
        self.wait_for(lambda: self.has_number("DefaultCryptoHashAlgorithm", 303), "MD5 in the registry")
        self.assertTrue(self.has_number("DefaultCryptoLibrary", 1))
        process = self.start_program(f"Z:{self.path}")
        self.press_until("F5", lambda: self.clipboard() == hex_digest("md5"), "the digest on the clipboard")
        self.close_program(process)

    def test_log_and_desktop_entries_are_made_and_go_again(self):
        for log in self.user_files(LOG):
            log.unlink()
        self.set_values(LogLevel=DEBUG, UseLogFile=1)
        self.close_program(self.start_program())
        (log,) = self.user_files(LOG)
        self.assertRegex(log.read_text(encoding="utf-8"), r"\[DEBUG\].*\[mainwindow\] Start \.\.\.")
        self.assertIn("Send To Kestrum", self.ask(WINE, "reg", "query", MENU_ENTRIES, "/s"))
        self.assertTrue(self.user_files(LINK))
        self.set_values(IntegrateToShellContextMenu=0, AddToSendMenu=0)
        self.close_program(self.start_program())
        self.assertNotIn("Kestrum", self.ask(WINE, "reg", "query", MENU_ENTRIES, "/s"))
        self.assertFalse(self.user_files(LINK))

    def test_the_connection_check_asks_through_the_proxy(self):
        with socket.create_server(("127.0.0.1", 0)) as proxy:
            proxy.settimeout(LIMIT_S)
            port = proxy.getsockname()[1]
            self.set_values(NetProxyServer="127.0.0.1", NetProxyPort=port, NetProxySelectType=2)
            process = self.start_program()
            self.open_dialog(("Right", "Up", "Return"), "^Options$")
            self.key("ctrl+Tab", "ctrl+Tab", "ctrl+Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "space")
            with proxy.accept()[0] as connection, connection.makefile("rb") as lines:
                request = b"".join(iter(lines.readline, b"\r\n")).decode()
                connection.sendall(b"HTTP/1.1 200 OK\r\nContent-Length: 0\r\nConnection: close\r\n\r\n")
            self.take_picture("windows-options")
            self.leave_dialog("Escape")
            self.close_program(process)
        self.assertRegex(request, "^POST http://")
        self.assertIn("Content-Length: 0\r\n", request)
        self.assertIn("User-Agent: Mozilla/5.0 (Windows NT 10.0; WOW64)", request)
