"""What an installation puts into a prefix, and the Debian package made of it."""

import os
import pathlib
import struct
import subprocess

from desktop import COPY_HEX_DIGEST, LIMIT_S, DesktopTest, end_process, hex_digest
from launched import LaunchedProgram, write_settings

BUILD = os.environ["KESTRUM_BUILD"]
ID = "example.quillon.Kestrum"
GERMAN = 1031
CONTENT = b"The quick brown fox jumps over the lazy dog"


class Installed(DesktopTest):
    """A user who has Thunar and reads German."""

    def setUp(self):
        super().setUp()
        self.prefix = self.desktop.folder / "installed system"
        write_settings(self.desktop, LocaleId=GERMAN, WhatCopyToClipboard=COPY_HEX_DIGEST)
        self.actions = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"]) / "Thunar" / "uca.xml"
        self.actions.parent.mkdir()

    def run_command(self, *command, **environment):
        """What a command writes; its failure fails the test."""
        answer = subprocess.run(command, env={**os.environ, **environment}, stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=LIMIT_S, check=False)
        text = answer.stdout.decode(errors="replace")
        self.assertEqual(answer.returncode, 0, text)
        return text

    def wait_for_german_entry(self):
        """Its text comes from the translation, and the entry itself from the helper library."""
        self.desktop.wait_for(lambda: self.actions.exists() and "Senden an Kestrum" in self.actions.read_text(),
                              "the context menu entry with its German text")


class Prefix(Installed):
    def setUp(self):
        super().setUp()
        self.run_command(os.environ["KESTRUM_CMAKE"], "--install", BUILD, "--prefix", str(self.prefix))
        self.share = self.prefix / "share"

    def test_the_program_finds_translations_and_helper_through_the_link(self):
        link = self.prefix / "bin" / "kestrum"
        self.assertFalse(os.readlink(link).startswith("/"))
        process = self.desktop.start([str(link)], env={**self.desktop.environment, "QT_QPA_PLATFORM": "offscreen"})
        self.wait_for_german_entry()
        end_process(process)

    def test_desktop_entry_metainfo_and_manual_page_are_valid(self):
        entry, page = self.share / "applications" / f"{ID}.desktop", self.share / "man" / "man1" / "kestrum.1.gz"
        self.assertEqual(self.run_command("desktop-file-validate", str(entry)), "")
        self.run_command("appstreamcli", "validate", "--no-net", str(self.share / "metainfo" / f"{ID}.metainfo.xml"))
        formatted = self.run_command("man", "--warnings", "--encoding=UTF-8", "--local-file", str(page),
                                     LC_ALL="C.UTF-8", MANWIDTH="80")
        self.assertNotIn("warning", formatted)
        self.assertIn("NAME\n       kestrum - compute the digest of a file", formatted)

    def test_no_type_of_file_opens_with_the_program_by_itself(self):
        self.run_command("update-desktop-database", str(self.share / "applications"))
        self.assertNotIn(ID, (self.share / "applications" / "mimeinfo.cache").read_text())

    def test_the_icons_have_the_sizes_of_their_folders(self):
        icons = list((self.share / "icons" / "hicolor").glob(f"*/apps/{ID}.png"))
        self.assertTrue(icons)
        for icon in icons:
            width, height = struct.unpack(">II", icon.read_bytes()[16:24])
            self.assertEqual(f"{width}x{height}", icon.parts[-3])


class DebianPackage(Installed):
    def setUp(self):
        super().setUp()
        packing = self.desktop.folder / "packing"
        self.run_command(os.environ["KESTRUM_CPACK"], "--config", f"{BUILD}/CPackConfig.cmake", "-B", str(packing))
        (self.package,) = packing.glob("kestrum_*.deb")
        for folder in ("info", "updates"):
            (self.prefix / "var" / "lib" / "dpkg" / folder).mkdir(parents=True)
        (self.prefix / "var" / "lib" / "dpkg" / "status").touch()

    def dpkg(self, *arguments):
        # The root is nobody's system: there are no other packages, and it may belong to an ordinary user.
        self.run_command("dpkg", f"--root={self.prefix}", "--force-not-root", "--force-bad-path", "--force-depends",
                         *arguments)

    def installed_files(self):
        """All there is but dpkg's own."""
        return sorted(path for path in self.prefix.rglob("*") if "var" not in path.relative_to(self.prefix).parts)

    def test_installs_runs_from_its_desktop_entry_and_leaves_nothing(self):
        self.assertEqual(self.installed_files(), [])
        self.dpkg("--install", str(self.package))
        path = self.make_file("two words.bin", CONTENT)
        search_path = f"{self.prefix}/usr/bin:{os.environ['PATH']}"
        entry = self.prefix / "usr" / "share" / "applications" / f"{ID}.desktop"
        self.desktop.start(["gio", "launch", str(entry), str(path)],
                           env={**self.desktop.environment, "PATH": search_path})
        program = LaunchedProgram(self.desktop)
        self.assertTrue(program.executable().startswith(str(self.prefix)))
        self.desktop.key("F5")
        program.wait_for_copy(hex_digest("sha256", CONTENT))
        self.wait_for_german_entry()
        self.finish(program)
        self.dpkg("--remove", "kestrum")
        self.assertEqual(self.installed_files(), [])

    def field(self, name):
        return self.run_command("dpkg-deb", "--field", str(self.package), name)

    def test_names_its_dependencies_and_describes_its_version(self):
        self.assertIn("libqt5widgets5", self.field("Depends"))
        self.assertIn("libcurl4", self.field("Recommends"))
        self.run_command("dpkg-deb", "--extract", str(self.package), str(self.prefix))
        changes = self.run_command("dpkg-parsechangelog", "--show-field", "Version", "--file",
                                   str(self.prefix / "usr/share/doc/kestrum/changelog.gz"))
        self.assertEqual(changes, self.field("Version"))
