"""Files and algorithms given on the command line."""

from desktop import DesktopTest, Program, hex_digest

AWKWARD_NAME = "-two words 'single' \"double\" äöüß 漢字かな.bin"
CONTENT = b"The quick brown fox jumps over the lazy dog"


class CommandLine(DesktopTest):
    def check(self, arguments, expected, press_start=False, **environment):
        program = Program(self.desktop, *arguments, folder=self.files, **environment)
        if press_start:
            self.desktop.key("F5")
        program.wait_for_copy(expected)
        self.finish(program)

    def test_keys_choose_file_and_algorithm_and_start_the_run(self):
        self.make_file("name.bin", CONTENT)
        self.check(["-ifile", "./name.bin", "-a", "MD5", "-start"], hex_digest("md5", CONTENT))

    def test_keys_are_known_with_a_slash_and_in_any_case_and_order(self):
        self.make_file("name.bin", CONTENT)
        self.check(["/START", "stray", "-Algorithm", "sha-512", "/IFile", "name.bin"], hex_digest("sha512", CONTENT))

    def test_an_unknown_algorithm_leaves_the_default_one(self):
        self.make_file("name.bin", CONTENT)
        self.check(["/a", "SHA-999", "/ifile", "name.bin", "/start"], hex_digest("sha256", CONTENT))

    def test_a_single_argument_is_the_file_whatever_its_name(self):
        self.make_file(AWKWARD_NAME, CONTENT)
        self.check([AWKWARD_NAME], hex_digest("sha256", CONTENT), press_start=True)

    def test_an_option_of_the_toolkit_is_a_file_name(self):
        self.make_file("-style", CONTENT)
        self.check(["-style"], hex_digest("sha256", CONTENT), press_start=True)

    def test_any_name_is_found_in_a_locale_without_an_encoding_for_it(self):
        path = self.make_file(AWKWARD_NAME, CONTENT)
        self.check([str(path)], hex_digest("sha256", CONTENT), press_start=True, LC_ALL="C")

    def test_keys_work_in_a_locale_without_an_encoding_for_the_name(self):
        self.make_file(AWKWARD_NAME, CONTENT)
        self.check(["-ifile", "./" + AWKWARD_NAME, "-a", "SHA1", "-start"], hex_digest("sha1", CONTENT), LC_ALL="C")
