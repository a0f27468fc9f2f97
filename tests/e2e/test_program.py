# What only the whole program shows: real keys, mouse and clipboard, other programs, large files, its end.

import os
import re
import tempfile

from desktop import AWKWARD_NAME, TITLE, DesktopTest, end, hex_digest

LARGE_MARKS = (0, (1 << 31) + 1, (1 << 32) - 3, (1 << 32) + 95)  # where 32-bit positions would err
LARGE_DIGEST = "7B6F0731"  # as zlib.adler32 gives it


# A figure that the system keeps of the process.
def figure(process, file, name):
    with open(f"/proc/{process.pid}/{file}", encoding="ascii") as lines:
        return int(re.search(rf"^{name}:\s*(\d+)", lines.read(), re.MULTILINE)[1])


class Program(DesktopTest):
    def test_takes_names_of_the_command_line_as_they_are_in_any_locale(self):
        for algorithm, locale, arguments in (("sha256", "C", [AWKWARD_NAME]), ("sha256", "C.UTF-8", ["-style"]),
                                             ("md5", "C.UTF-8", ["-a", "MD5", "-ifile", "./" + AWKWARD_NAME])):
            with self.subTest(arguments):
                self.make_file(arguments[-1])
                process = self.start_program(*arguments, LC_ALL=locale)
                self.key("F5")
                self.wait_for_copy(hex_digest(algorithm))
                self.close_program(process)

    def test_digests_4_gib_from_the_file_dialog_in_the_memory_of_nothing(self):
        # Where files are memory the zeros cost nothing.
        with tempfile.NamedTemporaryFile(dir="/dev/shm") as file:
            for position in LARGE_MARKS:
                os.pwrite(file.fileno(), b"mark!", position)
            process = self.start_program("-a", "Adler32")
            self.key("ctrl+o")
            self.wait_for_focus("^Add file to calculate hash$")
            self.xdotool("type", file.name)
            self.key("Return")
            self.wait_for_focus(TITLE)
            # A list of suggestions may outlive the dialog by a moment, and would take the next key.
            self.wait_for(lambda: len(self.xdotool("search", "--onlyvisible", "--pid", process.pid).split()) == 1,
                          "the window alone")
            peak_kib = figure(process, "status", "VmHWM")
            self.key("F5")
            self.wait_for_copy(LARGE_DIGEST)
            self.assertLess(figure(process, "status", "VmHWM"), peak_kib + 2048)
            self.close_program(process)

    def test_ends_when_it_is_closed_during_a_run(self):
        os.truncate(self.make_file("large.bin"), 1 << 40)
        process = self.start_program("-ifile", "./large.bin", "-a", "MD2", "-start")
        self.wait_for(lambda: figure(process, "io", "rchar") > 10_000_000, "the program reads the file")
        self.close_program(process)

    def test_is_light_beside_a_dark_program_and_takes_the_files_that_are_dragged_from_it(self):
        # The toolkit itself reads these colours where the desktop calls itself KDE.
        (self.config / "kdeglobals").write_text("".join(
            f"[Colors:{part}]\nBackgroundNormal=30,30,30\nForegroundNormal=240,240,240\n"
            for part in ("Window", "View", "Button", "Tooltip", "Selection")), encoding="ascii")
        self.environment.update(XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5")
        program = self.start_program()
        window = self.focus()
        self.wait_for(lambda: self.brightness(window) > 0.7, "a light window")
        for name, details_or_field in ((AWKWARD_NAME, (200, 200)), ("other file.bin", (200, 147))):
            self.drag(self.make_file(name, name.encode()), window, details_or_field)
            self.focus()
            self.key("F5")
            self.wait_for_copy(hex_digest("sha256", name.encode()))
        self.close_program(program)

    # Mean brightness of the window's picture, from 0 for black to 1 for white.
    def brightness(self, window):
        return float(self.ask("import", "-window", window, "-colorspace", "Gray", "-format", "%[fx:mean]", "info:-"))

    # Drags the file from another program, which is dark, to this place of the window.
    def drag(self, path, window, place):
        lines = self.folder / "drag"
        with open(lines, "wb") as output:
            source = self.start([os.environ["KESTRUM_DRAG_SOURCE"], path], stdout=output)
        source_window = self.focus("^Drag source$")
        self.wait_for(lambda: 0.0 < self.brightness(source_window) < 0.3, "a dark window")
        self.xdotool("mousemove", "--window", source_window, 100, 50, "mousedown", 1)

        def is_taken():
            for shift in (0, 1):
                self.xdotool("mousemove", "--window", window, place[0] + shift, place[1])
            return "accepted" in lines.read_text()

        self.wait_for(is_taken, "the window takes the file")
        self.xdotool("mouseup", 1)
        self.wait_for(lambda: "ended" in lines.read_text(), "the file is dropped")
        end(source)
