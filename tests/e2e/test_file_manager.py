"""The entries in the menus of a real file manager, Thunar."""

import os
import pathlib
import urllib.parse

from desktop import DesktopTest, Program, hex_digest
from launched import LaunchedProgram

# Nothing of it may be run or taken for a code or a switch on its way to the program.
AWKWARD_NAME = "-a 'b'  \"c\" $(touch x) `touch x` ; touch x & \\ 100%f %% äöü ю漢.txt"
CONTENT = b"The quick brown fox jumps over the lazy dog"
TITLE = " - Thunar$"


class FileManager(DesktopTest):
    def setUp(self):
        super().setUp()
        self.path = self.make_file(AWKWARD_NAME, CONTENT)
        self.finish(Program(self.desktop))  # which makes the entries
        self.leave_out_other_plugins()
        self.leave_out_other_targets()
        self.start_bus()
        self.desktop.start(["thunar", str(self.files)], cwd=self.files)

    def leave_out_other_plugins(self):
        """Entries of other packages in the context menu would move ours."""
        plugins = self.desktop.folder / "plugins"
        plugins.mkdir()
        for plugin in pathlib.Path("/usr/lib").glob("*/thunarx-3/thunar-uca.so"):
            (plugins / plugin.name).symlink_to(plugin)
        self.desktop.environment.update(THUNARX_DIRS=str(plugins), NO_AT_BRIDGE="1")

    def leave_out_other_targets(self):
        """The same for the menu Send To: a file of the user's takes the place of one of the system's."""
        for target in pathlib.Path("/usr/share/Thunar/sendto").glob("*.desktop"):
            own = pathlib.Path(self.desktop.environment["XDG_DATA_HOME"]) / "Thunar" / "sendto" / target.name
            own.write_text("[Desktop Entry]\nHidden=true\n", encoding="ascii")

    def start_bus(self):
        read_end, write_end = os.pipe()
        self.desktop.start(["dbus-daemon", "--session", "--nofork", f"--print-address={write_end}"],
                           pass_fds=(write_end,))
        os.close(write_end)
        with open(read_end, encoding="ascii") as pipe:
            self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = pipe.readline().strip()

    def is_file_selected(self):
        """Selects all there is; the copy tells whether the list of files stands already."""
        self.desktop.key("ctrl+a", "ctrl+c")
        copied = self.desktop.ask("timeout", "5", "xclip", "-selection", "clipboard", "-o", "-t", "text/uri-list")
        return urllib.parse.unquote(copied.strip()) == f"file://{self.path}"

    def open_menus(self):
        windows = self.desktop.xdotool("search", "--onlyvisible", "--class", "^Thunar$").split()
        return len(windows) - 1  # but for the main window

    def wait_for_menus(self, count):
        self.desktop.wait_for(lambda: self.open_menus() >= count, f"{count} open menus")

    def open_context_menu(self):
        self.desktop.wait_for_focus(TITLE)
        self.desktop.wait_for(self.is_file_selected, "the file is selected")
        self.desktop.key("Menu")
        self.wait_for_menus(1)

    def check_that_the_program_has_the_file(self):
        program = LaunchedProgram(self.desktop)
        self.desktop.key("F5")
        program.wait_for_copy(hex_digest("sha256", CONTENT))
        self.assertEqual(os.listdir(self.files), [AWKWARD_NAME])
        self.finish(program)

    def test_the_entry_of_the_context_menu_hands_the_file_to_the_program(self):
        self.open_context_menu()
        self.desktop.key("Up", "Up", "Return")  # from below: the properties, our entry
        self.check_that_the_program_has_the_file()

    def test_the_entry_of_the_send_to_menu_hands_the_file_to_the_program(self):
        self.open_context_menu()
        self.desktop.key("s")
        self.wait_for_menus(2)
        self.desktop.key("Up", "Return")  # from the first, which is selected, round to the last
        self.check_that_the_program_has_the_file()
