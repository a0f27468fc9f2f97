# What an installation puts into a prefix, and the Debian package made of it.

import os
import pathlib
import shutil
import struct
import subprocess

from desktop import LIMIT_S, DesktopTest, end, hex_digest

BUILD = os.environ["KESTRUM_BUILD"]
SOURCE = pathlib.Path(__file__).resolve().parents[2]
ID = "example.quillon.Kestrum"
GERMAN = 1031


# A user who has Thunar and reads German.
class Installed(DesktopTest):
    def setUp(self):
        super().setUp()
        self.prefix = self.folder / "installed system"
        self.write_settings(LocaleId=GERMAN)
        self.actions = self.config / "Thunar" / "uca.xml"
        self.actions.parent.mkdir()

    # What a command writes; its failure fails the test. Its files are nobody else's unless it sees to that.
    def run_command(self, *command, **environment):
        answer = subprocess.run(command, env={**os.environ, **environment}, stdin=subprocess.DEVNULL, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=LIMIT_S, check=False,
                                umask=0o077)
        self.assertEqual(answer.returncode, 0, answer.stdout)
        return answer.stdout

    # Its text comes from the translation, and the entry itself from the helper library.
    def wait_for_german_entry(self):
        self.wait_for(lambda: self.actions.exists() and "Senden an Kestrum" in self.actions.read_text("utf-8"),
                      "the context menu entry with its German text")

    def test_a_prefix_has_a_program_that_runs_through_its_link_and_valid_files_for_the_desktop(self):
        self.run_command(os.environ["KESTRUM_CMAKE"], "--install", BUILD, "--prefix", self.prefix)
        link, share = self.prefix / "bin" / "kestrum", self.prefix / "share"
        self.assertFalse(os.readlink(link).startswith("/"))
        self.assertEqual({path.stat().st_mode & 0o777 for path in self.prefix.rglob("*") if path.is_dir()}, {0o755})
        program = self.start([link])
        self.wait_for_german_entry()
        end(program)

        self.assertEqual(self.run_command("desktop-file-validate", share / "applications" / f"{ID}.desktop"), "")
        self.run_command("appstreamcli", "validate", "--no-net", share / "metainfo" / f"{ID}.metainfo.xml")
        page = self.run_command("man", "--warnings", "--encoding=UTF-8", "--local-file",
                                share / "man" / "man1" / "kestrum.1", LC_ALL="C.UTF-8", MANWIDTH="80")
        self.assertNotIn("warning", page)
        self.assertIn("NAME\n       kestrum - compute the digest of a file", page)

        # No type of file opens with the program by itself.
        self.run_command("update-desktop-database", share / "applications")
        self.assertNotIn(ID, (share / "applications" / "mimeinfo.cache").read_text())

        icons = list((share / "icons" / "hicolor").glob(f"*/apps/{ID}.png"))
        self.assertTrue(icons)
        for icon in icons:
            self.assertEqual("{}x{}".format(*struct.unpack(">II", icon.read_bytes()[16:24])), icon.parts[-3])

    def dpkg(self, *arguments):
        # The root is nobody's system: there are no other packages, and it may belong to an ordinary user.
        self.run_command("dpkg", f"--root={self.prefix}", "--force-not-root", "--force-bad-path", "--force-depends",
                         *arguments)

    # All there is but dpkg's own.
    def installed_files(self):
        return [path for path in self.prefix.rglob("*") if "var" not in path.relative_to(self.prefix).parts]

    # Packs what is built already, in a folder beside it: the packing is what is tested here.
    def packed(self):
        source = self.folder / "source"
        shutil.copytree(SOURCE / "debian", source / "debian")
        self.run_command("make", "--directory", source, "--makefile", "debian/rules", "binary", KESTRUM_BUILD=BUILD)
        return next(self.folder.glob("kestrum_*.deb"))

    def test_the_package_tells_of_itself_runs_from_its_desktop_entry_and_leaves_nothing(self):
        package = self.packed()
        depends, recommends, version, size = (
            self.run_command("dpkg-deb", "--field", package, name)
            for name in ("Depends", "Recommends", "Version", "Installed-Size"))
        self.assertRegex(depends, r"libqt([56])widgets\1")
        self.assertIn("libcurl4", recommends)
        contents = [line.split() for line in self.run_command("dpkg-deb", "--contents", package).splitlines()]
        self.assertEqual({line[0] for line in contents if line[0].startswith("d")}, {"drwxr-xr-x"})
        # The link to the program is no second program.
        self.assertLess(int(size), sum(int(line[2]) for line in contents) / 1024 + 2 * len(contents))

        state = self.prefix / "var" / "lib" / "dpkg"
        for folder in ("info", "updates"):
            (state / folder).mkdir(parents=True)
        (state / "status").touch()
        self.dpkg("--install", package)
        usr = self.prefix / "usr"
        self.assertEqual(version, self.run_command("dpkg-parsechangelog", "--show-field", "Version", "--file",
                                                   usr / "share/doc/kestrum/changelog.gz"))
        self.start(["gio", "launch", usr / "share" / "applications" / f"{ID}.desktop", self.make_file("two words.bin")],
                   PATH=f"{usr}/bin:{os.environ['PATH']}")
        process_id = self.xdotool("getwindowpid", self.focus())
        self.assertTrue(os.readlink(f"/proc/{process_id}/exe").startswith(str(self.prefix)))
        self.key("F5")
        self.wait_for_copy(hex_digest("sha256"))
        self.wait_for_german_entry()
        self.close_program()
        self.dpkg("--remove", "kestrum")
        self.assertEqual(self.installed_files(), [])
