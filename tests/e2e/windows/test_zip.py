"""The Windows program from its zip, under Wine: unpacked, started, driven by real keys and mouse.

KESTRUM_ZIP names the zip, KESTRUM_WINE and KESTRUM_WINESERVER the programs that run it; WINEPREFIX is ready for use.
"""

import hashlib
import os
import pathlib
import re
import sys
import zipfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))

import desktop  # noqa: E402

WINE = os.environ["KESTRUM_WINE"]
TITLE = "^Kestrum v"
SETTINGS = r"HKCU\Software\Quillon.example\Kestrum"
COPY_HEX = 2

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
        desktop.PICTURES.mkdir(parents=True, exist_ok=True)
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


if __name__ == "__main__":
    import unittest

    unittest.main()
