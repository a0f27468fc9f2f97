# The entries in the menus of a real file manager, Thunar.

import os
import pathlib
import urllib.parse

from desktop import AWKWARD_NAME, DesktopTest, hex_digest

TITLE = " - Thunar$"


class FileManager(DesktopTest):
    def setUp(self):
        super().setUp()
        self.path = self.make_file(AWKWARD_NAME)
        self.close_program(self.start_program())  # which makes the entries
        # Entries of other packages would move ours: only the plug-in that has ours is there, and a file of the user's
        # takes the place of each of the system's.
        plugins = self.folder / "plugins"
        plugins.mkdir()
        for plugin in pathlib.Path("/usr/lib").glob("*/thunarx-3/thunar-uca.so"):
            (plugins / plugin.name).symlink_to(plugin)
        for target in pathlib.Path("/usr/share/Thunar/sendto").glob("*.desktop"):
            own = self.folder / "XDG_DATA_HOME" / "Thunar" / "sendto" / target.name
            own.write_text("[Desktop Entry]\nHidden=true\n", encoding="ascii")
        self.environment.update(THUNARX_DIRS=str(plugins), NO_AT_BRIDGE="1")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.first_line_of(
            "dbus-daemon", "--session", "--nofork", "--print-address")
        self.start(["thunar", str(self.files)])

    # Selects all there is; the copy tells whether the list of files stands already.
    def is_file_selected(self):
        self.key("ctrl+a", "ctrl+c")
        return urllib.parse.unquote(self.clipboard("-t", "text/uri-list")) == f"file://{self.path}"

    # Waits for so many windows beside the main one.
    def wait_for_menus(self, count):
        self.wait_for(lambda: len(self.xdotool("search", "--onlyvisible", "--class", "^Thunar$").split()) > count,
                      f"{count} open menus")

    def test_the_entries_of_the_context_menu_and_of_send_to_hand_the_file_to_the_program(self):
        # From below: the properties, our entry; and from the first of Send To, which is selected, round to the last.
        for submenu, keys in ((None, ("Up", "Up", "Return")), ("s", ("Up", "Return"))):
            self.focus(TITLE)
            self.wait_for(self.is_file_selected, "the file is selected")
            self.key("Menu")
            self.wait_for_menus(1)
            if submenu:
                self.key(submenu)
                self.wait_for_menus(2)
            self.key(*keys)
            self.focus()
            self.key("F5")
            self.wait_for_copy(hex_digest("sha256"))
            self.assertEqual(os.listdir(self.files), [AWKWARD_NAME])
            self.close_program()
