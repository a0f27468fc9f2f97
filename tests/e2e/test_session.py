"""What can be done with a run and its digest: stopping, starting anew, copying, closing."""

import base64
import hashlib

from desktop import (COPY_BASE64, COPY_BASE64_DIGEST, COPY_HEX, COPY_NOTHING, DesktopTest, Program, hex_digest)

CONTENT = b"The quick brown fox jumps over the lazy dog"
MD2_OF_CONTENT = "03D85A0D629D2C442E987525319FC471"
OTHER_CONTENT = b"The quick brown fox jumps over the lazy dog."
GIB = 1 << 30
# Slow enough that no machine is through with a large file before a test has pressed a key.
SLOW = ["-a", "MD2", "-start"]


class Digest(DesktopTest):
    def test_the_copy_buttons_put_the_digest_on_the_clipboard(self):
        path = self.make_file("name.bin", CONTENT)
        program = Program(self.desktop, str(path), copy=COPY_NOTHING)
        self.desktop.key("F5")
        program.wait_for_status("Hash was calculated successfully")
        program.click(COPY_HEX)
        program.wait_for_copy(hex_digest("sha256", CONTENT))
        program.click(COPY_BASE64)
        program.wait_for_copy(base64.b64encode(hashlib.sha256(CONTENT).digest()).decode())
        self.finish(program)

    def test_the_automatic_copy_may_be_the_base64_text(self):
        path = self.make_file("empty.bin", b"")
        program = Program(self.desktop, str(path), copy=COPY_BASE64_DIGEST)
        self.desktop.key("F5")
        program.wait_for_copy(base64.b64encode(hashlib.sha256(b"").digest()).decode())
        self.finish(program)

    def test_a_second_run_on_another_file_gives_its_digest(self):
        first, second = self.make_file("first.bin", CONTENT), self.make_file("second.bin", OTHER_CONTENT)
        program = Program(self.desktop, str(first))
        self.desktop.key("F5")
        program.wait_for_copy(hex_digest("sha256", CONTENT))
        program.enter_file(second)
        self.desktop.key("F5")
        program.wait_for_copy(hex_digest("sha256", OTHER_CONTENT))
        self.finish(program)


class LongRun(DesktopTest):
    def start_long_run(self):
        path = self.make_sparse_file("large.bin", 5 * GIB)
        program = Program(self.desktop, "-ifile", "./large.bin", *SLOW, folder=self.files)
        program.wait_until_reading(path)
        return program, path

    def wait_until_closed(self, program, path):
        self.desktop.wait_for(lambda: program.position_in(path) is None, "the file is closed", limit_s=10)

    def stop(self, program, path):
        self.desktop.key("F8")
        self.wait_until_closed(program, path)
        program.wait_for_status("Hash calculation was canceled")

    def test_a_stopped_run_leaves_no_digest_and_the_next_run_works(self):
        small = self.make_file("small.bin", CONTENT)
        program, path = self.start_long_run()
        self.stop(program, path)
        program.click(COPY_HEX)  # copies nothing, so that the status line's text stays
        self.assertEqual(self.desktop.clipboard(), "Hash calculation was canceled")
        program.enter_file(small)
        self.desktop.key("F5")
        program.wait_for_copy(MD2_OF_CONTENT)
        self.finish(program)

    def test_a_start_during_a_run_leaves_the_run_going(self):
        program, path = self.start_long_run()
        before = program.position_in(path)
        self.desktop.key("F5")
        self.desktop.wait_for(lambda: (program.position_in(path) or 0) > before, "the run goes on")
        self.stop(program, path)
        self.finish(program)

    def test_a_file_that_is_cut_during_a_run_gives_no_digest(self):
        program, path = self.start_long_run()
        with open(path, "r+b") as file:
            file.truncate(1000)
        self.stop(program, path)
        program.click(COPY_HEX)
        self.assertEqual(self.desktop.clipboard(), "Hash calculation was canceled")
        self.finish(program)

    def test_closing_the_window_during_a_run_ends_the_program(self):
        program, path = self.start_long_run()
        self.assertLess(program.position_in(path), 5 * GIB)
        self.assertEqual(program.close(limit_s=5), 0)
