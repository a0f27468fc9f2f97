"""The Windows program from its zip, under Wine: unpacked, started, driven by real keys and mouse.

KESTRUM_ZIP names the zip, KESTRUM_WINE and KESTRUM_WINESERVER the programs that run it; WINEPREFIX is ready for use.
"""

import contextlib
import hashlib
import http.server
import os
import pathlib
import re
import sys
import threading
import zipfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))

import desktop  # noqa: E402

WINE = os.environ["KESTRUM_WINE"]
TITLE = "^Kestrum v"
SETTINGS = r"HKCU\Software\Quillon.example\Kestrum"
MENU_ENTRIES = r"HKCU\Software\Classes\*\shell"
LINK = "Microsoft/Windows/SendTo/Kestrum.lnk"
COPY_HEX = 2
GREEK = 1032
DEBUG = 5

# Where the window has its parts under Wine, in pixels from its upper left corner.
MENU_HASH = (56, 11)


class ZipTest(desktop.DesktopTest):
    def setUp(self):
        super().setUp()
        self.desktop.environment.update(WINEPREFIX=os.environ["WINEPREFIX"], WINEDEBUG="-all")
        del self.desktop.environment["QT_QPA_PLATFORM"]  # names a plug-in of the other system
        # A server of former programs would keep their display, or that they had none.
        self.end_wine()
        self.addCleanup(self.end_wine)
        home = self.desktop.folder / "Zoë Ñandú 文件"
        home.mkdir()
        with zipfile.ZipFile(os.environ["KESTRUM_ZIP"]) as archive:
            archive.extractall(home)
        (self.folder,) = home.iterdir()
        self.home = home
        self.run_wine("reg", "delete", SETTINGS, "/f")
        desktop.PICTURES.mkdir(parents=True, exist_ok=True)

    def end_wine(self):
        self.desktop.ask(os.environ["KESTRUM_WINESERVER"], "--kill")
        self.desktop.ask(os.environ["KESTRUM_WINESERVER"], "--wait")

    def run_wine(self, *arguments):
        return self.desktop.ask(WINE, *arguments)

    def set_number(self, name, value):
        self.run_wine("reg", "add", SETTINGS, "/v", name, "/t", "REG_DWORD", "/d", str(value), "/f")

    def number(self, name):
        found = re.search(rf"{name}\s+REG_DWORD\s+(0x[0-9a-f]+)", self.run_wine("reg", "query", SETTINGS))
        return int(found.group(1), 16) if found else None

    def start(self, *arguments):
        process = self.desktop.start([WINE, "kestrum.exe", *arguments], cwd=self.folder)
        self.window = self.desktop.wait_for(
            lambda: self.desktop.xdotool("search", "--all", "--onlyvisible", "--name", TITLE), "the window").split()[0]
        self.desktop.xdotool("windowactivate", self.window)
        self.desktop.wait_for_focus(TITLE)
        return process

    def close(self, process):
        self.desktop.xdotool("windowactivate", self.window)
        self.desktop.wait_for_focus(TITLE)
        self.desktop.key("alt+F4")
        self.assertEqual(process.wait(desktop.LIMIT_S), 0)

    def wait_for_clipboard(self, text):
        self.desktop.wait_for(lambda: self.desktop.clipboard().strip() == text, f"the clipboard holds {text}")

    def make_awkward_file(self, content):
        path = self.home / "résumé 'Größe' & 計算 (1).bin"
        path.write_bytes(content)
        return path

    def test_the_command_line_starts_a_run_whose_digest_comes_to_the_clipboard(self):
        content = bytes(range(256)) * 5000
        path = self.make_awkward_file(content)
        self.set_number("WhatCopyToClipboard", COPY_HEX)
        process = self.start("/alg", "sha-512", "/ifile", "Z:" + str(path).replace("/", "\\"), "/start")
        self.wait_for_clipboard(hashlib.sha512(content).hexdigest().upper())
        self.desktop.ask("import", "-window", self.window, str(desktop.PICTURES / "windows.png"))
        self.close(process)

    def test_a_single_argument_with_slashes_is_the_file(self):
        path = self.make_awkward_file(b"abc")
        self.set_number("WhatCopyToClipboard", COPY_HEX)
        process = self.start("Z:" + str(path))
        self.desktop.key("F5")
        self.wait_for_clipboard(hashlib.sha256(b"abc").hexdigest().upper())
        self.close(process)

    def test_the_default_algorithm_goes_to_the_registry_and_the_next_start_honours_it(self):
        path = self.make_awkward_file(b"abc")
        process = self.start()
        self.desktop.click(self.window, MENU_HASH)
        self.desktop.key("Down", "Down", "Down", "Return")
        self.desktop.wait_for_focus("^Select algorithm$")
        self.desktop.key("Home")
        self.desktop.type("MD5")
        self.desktop.key("Tab", "space", "Return")
        self.desktop.wait_for_focus(TITLE)
        self.close(process)
        self.desktop.wait_for(lambda: self.number("DefaultCryptoHashAlgorithm") == 303, "MD5 in the registry")
        self.assertEqual(self.number("DefaultCryptoLibrary"), 1)
        self.set_number("WhatCopyToClipboard", COPY_HEX)
        process = self.start("Z:" + str(path))
        self.desktop.key("F5")
        self.wait_for_clipboard(hashlib.md5(b"abc").hexdigest().upper())
        self.close(process)


    def test_the_greek_user_reads_greek(self):
        self.set_number("LocaleId", GREEK)
        process = self.start()
        self.desktop.click(self.window, MENU_HASH)
        self.desktop.key("Down", "Down", "Down", "Return")
        self.desktop.wait_for_focus("^Επιλογή αλγορίθμου$")
        self.desktop.ask("import", "-window", "root", str(desktop.PICTURES / "windows-greek.png"))
        self.desktop.key("Escape")
        self.desktop.wait_for_focus(TITLE)
        self.close(process)

    def test_log_and_desktop_entries_are_made_and_go_again(self):
        self.set_number("LogLevel", DEBUG)
        self.set_number("UseLogFile", 1)
        self.close(self.start())
        log = self.user_file("Quillon.example/Kestrum/kestrum.log")
        self.assertRegex(log.read_text(encoding="utf-8"), r"\[DEBUG\].*\[mainwindow\] Start \.\.\.")
        self.assertIn("Send To Kestrum", self.run_wine("reg", "query", MENU_ENTRIES, "/s"))
        self.assertIsNotNone(self.user_file(LINK))
        for name in ("IntegrateToShellContextMenu", "AddToSendMenu"):
            self.set_number(name, 0)
        self.close(self.start())
        self.assertNotIn("Kestrum", self.run_wine("reg", "query", MENU_ENTRIES, "/s"))
        self.assertIsNone(self.user_file(LINK))

    def user_file(self, name):
        """A file of the user's data; None where there is none of this name."""
        users = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c" / "users"
        return next(users.glob("*/AppData/Roaming/" + name), None)

    def test_the_connection_check_asks_through_the_proxy(self):
        with loopback_proxy() as (port, requests):
            self.run_wine("reg", "add", SETTINGS, "/v", "NetProxyServer", "/d", "127.0.0.1", "/f")
            self.set_number("NetProxyPort", port)
            self.set_number("NetProxySelectType", 2)
            process = self.start()
            self.open_options()
            self.desktop.key("ctrl+Tab", "ctrl+Tab", "ctrl+Tab")
            self.desktop.key("Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "space")
            self.desktop.wait_for(lambda: requests, "a request at the proxy")
            self.desktop.ask("import", "-window", "root", str(desktop.PICTURES / "windows-options.png"))
            self.desktop.key("Escape")
            self.desktop.wait_for_focus(TITLE)
            self.close(process)
        method, address, agent, length = requests[0]
        self.assertEqual((method, length), ("POST", "0"))
        self.assertTrue(address.startswith("http://"))
        self.assertTrue(agent.startswith("Mozilla/5.0 (Windows NT 10.0; WOW64)"))

    def open_options(self):
        self.desktop.click(self.window, MENU_HASH)
        self.desktop.key("Right", "Up", "Return")
        self.desktop.wait_for_focus("^Options$")


@contextlib.contextmanager
def loopback_proxy():
    """A proxy that answers by itself: its port, and what was asked of it."""
    requests = []

    class Handler(http.server.BaseHTTPRequestHandler):
        def do_POST(self):
            requests.append((self.command, self.path, self.headers["User-Agent"], self.headers["Content-Length"]))
            self.send_response(200)
            self.send_header("Content-Length", "0")
            self.end_headers()

        def log_message(self, *arguments):
            pass

    with http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler) as server:
        threading.Thread(target=server.serve_forever, daemon=True).start()
        yield server.server_port, requests
        server.shutdown()


if __name__ == "__main__":
    import unittest

    unittest.main()
