"""The ways by which a file reaches the window: the file dialog, typing, pasting and dropping."""

import os
import subprocess

from desktop import INPUT_FIELD, DesktopTest, Program, hex_digest

DRAG_SOURCE = os.environ["KESTRUM_DRAG_SOURCE"]
AWKWARD_NAME = "two words 'single' \"double\" äöüß 漢字かな.bin"
CONTENT = b"The quick brown fox jumps over the lazy dog"


class FileDialog(DesktopTest):
    def choose(self, title, path):
        self.desktop.wait_for_focus(title)
        self.desktop.type(path)
        self.desktop.key("Return")
        self.desktop.wait_for_focus(Program.TITLE)

    def test_a_file_added_by_its_name_is_digested(self):
        path = self.make_file("two words 'and' quotes.bin", CONTENT)
        program = Program(self.desktop)
        self.desktop.key("ctrl+o")
        self.choose("^Add file to calculate hash$", path)
        self.desktop.key("F5")
        program.wait_for_copy(hex_digest("sha256", CONTENT))
        self.finish(program)

    def test_a_start_without_a_file_asks_for_one_and_digests_it(self):
        path = self.make_file("asked-for.bin", CONTENT)
        program = Program(self.desktop)
        self.desktop.key("F5")
        self.choose("^Select file to calculate hash$", path)
        program.wait_for_copy(hex_digest("sha256", CONTENT))
        self.finish(program)

    def test_a_start_without_a_file_and_without_an_answer_says_so(self):
        program = Program(self.desktop)
        self.desktop.key("F5")
        self.desktop.wait_for_focus("^Select file to calculate hash$")
        self.desktop.key("Escape")
        self.desktop.wait_for_focus(Program.TITLE)
        program.wait_for_status("File to calculate hash is not defined.")
        self.finish(program)


class Typing(DesktopTest):
    def test_a_typed_file_is_digested(self):
        path = self.make_file("typed name.bin", CONTENT)
        program = Program(self.desktop)
        program.enter_file(path)
        self.desktop.key("F5")
        program.wait_for_copy(hex_digest("sha256", CONTENT))
        program.wait_for_status("Hash was calculated successfully")
        self.finish(program)

    def test_a_pasted_name_in_any_script_is_digested(self):
        path = self.make_file(AWKWARD_NAME, CONTENT)
        program = Program(self.desktop)
        with subprocess.Popen(["xclip", "-quiet", "-selection", "clipboard"], env=self.desktop.environment,
                              stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as clip:
            clip.stdin.write(str(path).encode())
            clip.stdin.close()
            program.wait_for_copy(str(path))
            program.click(INPUT_FIELD)
            self.desktop.key("ctrl+v", "F5")
            # The digest takes the clipboard over, and with that ends the process that held the name.
            program.wait_for_copy(hex_digest("sha256", CONTENT))
        self.finish(program)

    def test_a_name_without_a_file_says_so(self):
        program = Program(self.desktop)
        program.enter_file(self.files / "missing.bin")
        self.desktop.key("F5")
        program.wait_for_status("File to calculate hash is not found.")
        self.finish(program)

    def test_a_folder_names_the_systems_reason(self):
        program = Program(self.desktop)
        program.enter_file(self.files)
        self.desktop.key("F5")
        program.wait_for_status("Is a directory (error: 1/21)")
        self.finish(program)


class Dropping(DesktopTest):
    DETAILS = (200, 200)
    SOURCE_PLACE = "200x100+1000+50"  # beside the program's window
    START = (100, 50)
    START_OF_DRAG = (120, 60)

    def drag(self, program, place, *paths):
        """Drags the files onto this place of the program's window."""
        lines = self.desktop.folder / "drag"
        with open(lines, "wb") as output:
            source = self.desktop.start([DRAG_SOURCE, "-qwindowgeometry", self.SOURCE_PLACE, *map(str, paths)],
                                        stdout=output)
        window = self.desktop.find_window(source, "^Drag source$")
        self.desktop.xdotool("windowactivate", window)
        self.desktop.wait_for_focus("^Drag source$")
        self.desktop.xdotool("mousemove", "--window", window, *self.START, "mousedown", 1,
                             "mousemove", "--window", window, *self.START_OF_DRAG)
        self.wait_for_line(lines, "started")
        self.hover(program, place, lines)
        self.desktop.xdotool("mouseup", 1)
        self.wait_for_line(lines, "dropped")

    def wait_for_line(self, lines, line):
        self.desktop.wait_for(lambda: line in lines.read_text().split(), f"the drag is {line}")

    def hover(self, program, place, lines):
        """Moves to and fro over the place until it takes the files."""
        def moved_and_accepted():
            for shift in (0, 1):
                self.desktop.xdotool("mousemove", "--window", program.window, place[0] + shift, place[1])
            return "accepted" in lines.read_text().split()
        self.desktop.wait_for(moved_and_accepted, "the window takes the files")

    def check_drop(self, place, *names):
        paths = [self.make_file(name, name.encode()) for name in names]
        program = Program(self.desktop)
        self.drag(program, place, *paths)
        program.take_focus()
        self.desktop.key("F5")
        program.wait_for_copy(hex_digest("sha256", names[0].encode()))
        self.finish(program)

    def test_a_file_dropped_on_the_details_is_digested(self):
        self.check_drop(self.DETAILS, AWKWARD_NAME)

    def test_of_several_files_dropped_on_the_input_field_the_first_is_digested(self):
        self.check_drop(INPUT_FIELD, "first file.bin", "second file.bin")
