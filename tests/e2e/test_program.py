"""What only the whole program shows: real keys, mouse and clipboard, other programs, large files, its end."""

import base64
import hashlib
import os
import pathlib
import subprocess
import zlib

from desktop import COPY_BASE64, COPY_HEX, COPY_NOTHING, INPUT_FIELD, DesktopTest, Program, hex_digest

DRAG_SOURCE = os.environ["KESTRUM_DRAG_SOURCE"]
AWKWARD_NAME = "-two words 'single' \"double\" äöüß 漢字かな.bin"
CONTENT = b"The quick brown fox jumps over the lazy dog"
MD2_OF_CONTENT = "03D85A0D629D2C442E987525319FC471"
MIB, GIB = 1 << 20, 1 << 30


class Input(DesktopTest):
    def check(self, arguments, expected, **environment):
        program = Program(self.desktop, *arguments, folder=self.files, **environment)
        if "-start" not in arguments:
            self.desktop.key("F5")
        program.wait_for_copy(expected)
        self.finish(program)

    def test_names_of_the_command_line_are_taken_as_they_are_in_any_locale(self):
        for name, locale in ((AWKWARD_NAME, "C.UTF-8"), (AWKWARD_NAME, "C"), ("-style", "C.UTF-8")):
            with self.subTest(name, locale=locale):
                self.make_file(name, CONTENT)
                self.check([name], hex_digest("sha256", CONTENT), LC_ALL=locale)

    def test_keys_choose_file_and_algorithm_and_start_the_run(self):
        self.make_file(AWKWARD_NAME, CONTENT)
        self.check(["-ifile", "./" + AWKWARD_NAME, "-a", "MD5", "-start"], hex_digest("md5", CONTENT), LC_ALL="C")

    def test_a_file_added_by_the_dialog_is_digested(self):
        path = self.make_file("two words.bin", CONTENT)
        program = Program(self.desktop)
        self.desktop.key("ctrl+o")
        self.desktop.wait_for_focus("^Add file to calculate hash$")
        self.desktop.type(path)
        self.desktop.key("Return")
        self.desktop.wait_for_focus(Program.TITLE)
        self.desktop.key("F5")
        program.wait_for_copy(hex_digest("sha256", CONTENT))
        self.finish(program)

    def test_a_pasted_name_in_any_script_is_digested_and_the_digest_copied(self):
        path = self.make_file(AWKWARD_NAME, CONTENT)
        program = Program(self.desktop, copy=COPY_NOTHING)
        with subprocess.Popen(["xclip", "-quiet", "-selection", "clipboard"], env=self.desktop.environment,
                              stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as clip:
            clip.stdin.write(str(path).encode())
            clip.stdin.close()
            program.wait_for_copy(str(path))
            program.click(INPUT_FIELD)
            self.desktop.key("ctrl+v", "F5")
            # Takes the clipboard over, and with that ends the process that held the name.
            program.wait_for_status("Hash was calculated successfully")
        program.click(COPY_HEX)
        program.wait_for_copy(hex_digest("sha256", CONTENT))
        program.click(COPY_BASE64)
        program.wait_for_copy(base64.b64encode(hashlib.sha256(CONTENT).digest()).decode())
        self.finish(program)


class Dropping(DesktopTest):
    DETAILS = (200, 200)
    SOURCE_PLACE = "200x100+1000+50"  # beside the program's window
    START = (100, 50)
    START_OF_DRAG = (120, 60)

    def drag(self, program, place, *paths):
        """Drags the files onto this place of the program's window."""
        self.lines = self.desktop.folder / "drag"
        with open(self.lines, "wb") as output:
            source = self.desktop.start([DRAG_SOURCE, "-qwindowgeometry", self.SOURCE_PLACE, *map(str, paths)],
                                        stdout=output)
        window = self.desktop.find_window(source, "^Drag source$")
        self.desktop.xdotool("windowactivate", window)
        self.desktop.wait_for_focus("^Drag source$")
        self.desktop.xdotool("mousemove", "--window", window, *self.START, "mousedown", 1,
                             "mousemove", "--window", window, *self.START_OF_DRAG)
        self.desktop.wait_for(lambda: self.has_told("started"), "the drag is started")
        self.desktop.wait_for(lambda: self.is_taken_at(program, place), "the window takes the files")
        self.desktop.xdotool("mouseup", 1)
        self.desktop.wait_for(lambda: self.has_told("dropped"), "the drag is dropped")

    def has_told(self, line):
        return line in self.lines.read_text().split()

    def is_taken_at(self, program, place):
        """Moves to and fro over the place."""
        for shift in (0, 1):
            self.desktop.xdotool("mousemove", "--window", program.window, place[0] + shift, place[1])
        return self.has_told("accepted")

    def test_the_first_of_the_files_that_are_dropped_is_digested(self):
        for place in (self.DETAILS, INPUT_FIELD):
            with self.subTest(place):
                paths = [self.make_file(name, name.encode()) for name in (AWKWARD_NAME, "second file.bin")]
                program = Program(self.desktop)
                self.drag(program, place, *paths)
                program.take_focus()
                self.desktop.key("F5")
                program.wait_for_copy(hex_digest("sha256", AWKWARD_NAME.encode()))
                self.finish(program)


class LongRun(DesktopTest):
    def start_long_run(self):
        """With an algorithm so slow that no machine is through before a test has pressed a key."""
        path = self.make_sparse_file("large.bin", 5 * GIB)
        program = Program(self.desktop, "-ifile", "./large.bin", "-a", "MD2", "-start", folder=self.files)
        program.wait_until_reading(path)
        return program, path

    def test_a_stopped_run_leaves_no_digest_and_the_next_run_works(self):
        small = self.make_file("small.bin", CONTENT)
        program, path = self.start_long_run()
        with open(path, "r+b") as file:
            file.truncate(1000)  # it then has no end of its own either
        self.desktop.key("F8")
        self.desktop.wait_for(lambda: program.position_in(path) is None, "the file is closed", limit_s=10)
        program.wait_for_status("Hash calculation was canceled")
        program.click(COPY_HEX)  # copies nothing, so that the status line's text stays
        self.assertEqual(self.desktop.clipboard(), "Hash calculation was canceled")
        program.enter_file(small)
        self.desktop.key("F5")
        program.wait_for_copy(MD2_OF_CONTENT)
        self.finish(program)

    def test_closing_the_window_during_a_run_ends_the_program(self):
        program, path = self.start_long_run()
        self.assertLess(program.position_in(path), 5 * GIB)
        self.assertEqual(program.close(limit_s=5), 0)

    def digest(self, path):
        """Digests the file in a program of its own and gives the peak of that program's memory in bytes."""
        checksum = 0
        with open(path, "rb") as file:
            while piece := file.read(MIB):
                checksum = zlib.crc32(piece, checksum)
        program = Program(self.desktop, "-ifile", path.name, "-a", "CRC32", "-start", folder=self.files)
        program.wait_for_copy(f"{checksum:08X}", limit_s=600)  # for 5 GiB, on a slow machine under load
        peak = program.peak_memory_bytes()
        self.finish(program)
        return peak

    def test_5_gib_give_the_right_digest_in_the_memory_of_5_mib(self):
        small_peak = self.digest(self.make_sparse_file("small.bin", 5 * MIB))
        large_peak = self.digest(self.make_sparse_file("large.bin", 5 * GIB))
        self.assertLess(large_peak, small_peak + 2 * MIB)


class DarkDesktop(DesktopTest):
    def test_the_window_is_light_where_other_programs_are_dark(self):
        # The toolkit itself reads these colours where the desktop calls itself KDE.
        colours = "".join(f"[Colors:{part}]\nBackgroundNormal=30,30,30\nForegroundNormal=240,240,240\n"
                          for part in ("Window", "View", "Button", "Tooltip", "Selection"))
        settings = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"]) / "kdeglobals"
        settings.write_text(colours, encoding="ascii")
        kde = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}
        other = self.desktop.start([DRAG_SOURCE], env={**self.desktop.environment, **kde})
        other_window = self.desktop.find_window(other, "^Drag source$")
        self.desktop.wait_for(lambda: 0.0 < self.desktop.brightness(other_window) < 0.3, "a dark window")
        program = Program(self.desktop, **kde)
        self.desktop.wait_for(lambda: self.desktop.brightness(program.window) > 0.7, "a light window")
        self.finish(program)
