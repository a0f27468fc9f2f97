# The Windows program from its zip, under Wine: unpacked, started, driven by real keys and mouse.
#
# KESTRUM_ZIP names the zip.

import os
import socket
import zipfile

from wine import LINK, MENU_ENTRIES, WINE, WineTest

from desktop import LIMIT_S, TITLE, hex_digest

LOG = "Quillon.example/Kestrum/kestrum.log"
# Where a menu of the main window stands under Wine, and what chooses an entry in it.
MENU_HASH = (56, 11)
SELECT_ALGORITHM = ("Down", "Down", "Down", "Return")
GREEK = 1032
DEBUG = 5


class ZipTest(WineTest):
    def setUp(self):
        super().setUp()
        home = self.folder / "Zoë Ñandú 文件"
        with zipfile.ZipFile(os.environ["KESTRUM_ZIP"]) as archive:
            archive.extractall(home)
        (self.home,) = home.iterdir()

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
