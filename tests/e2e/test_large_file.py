"""A file of more bytes than 32 bits count: its digest, and the memory that the run takes."""

import zlib

from desktop import DesktopTest, Program

MIB, GIB = 1 << 20, 1 << 30
PIECE_BYTES = MIB
# For 5 GiB, on a slow machine under load.
RUN_LIMIT_S = 600


def crc32_of(path):
    checksum = 0
    with open(path, "rb") as file:
        while piece := file.read(PIECE_BYTES):
            checksum = zlib.crc32(piece, checksum)
    return f"{checksum:08X}"


class LargeFile(DesktopTest):
    def digest(self, path):
        """Digests the file in a program of its own and gives the peak of that program's memory in bytes."""
        program = Program(self.desktop, "-ifile", path.name, "-a", "CRC32", "-start", folder=self.files)
        program.wait_for_copy(crc32_of(path), RUN_LIMIT_S)
        peak = program.peak_memory_bytes()
        self.finish(program)
        return peak

    def test_5_gib_give_the_right_digest_in_the_memory_of_5_mib(self):
        small_peak = self.digest(self.make_sparse_file("small.bin", 5 * MIB))
        large_peak = self.digest(self.make_sparse_file("large.bin", 5 * GIB))
        self.assertLess(large_peak, small_peak + 2 * MIB)

    def test_a_file_that_is_removed_during_the_run_is_digested_to_its_end(self):
        path = self.make_sparse_file("removed.bin", 2 * GIB)
        program = Program(self.desktop, "-ifile", path.name, "-a", "CRC32", folder=self.files)
        expected = crc32_of(path)
        self.desktop.key("F5")
        program.wait_until_reading(path)
        path.unlink()
        # Under its new name the system still lists it: the run was not over when the file went.
        self.assertIsNotNone(program.position_in(f"{path} (deleted)"))
        program.wait_for_copy(expected, RUN_LIMIT_S)
        self.finish(program)
