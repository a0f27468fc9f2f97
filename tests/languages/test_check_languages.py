# Shows that the check of the translation files finds each fault: every case breaks one thing of a sound project.

import os
import pathlib
import shutil
import tempfile
import unittest

from check_languages import Project, check

HERE = pathlib.Path(__file__).resolve().parent


class CheckOfTheTranslationFiles(unittest.TestCase):
    # What the check says of the sound project with another text in one of its files.
    def faults(self, file="", sound="", broken=""):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(shutil.copytree(HERE / "sound", folder, dirs_exist_ok=True))
            for path in root.glob(f"*/{file}") if file else ():
                content = path.read_text(encoding="utf-8")
                self.assertIn(sound, content)
                path.write_text(content.replace(sound, broken), encoding="utf-8")
            lupdate = os.environ.get("KESTRUM_LUPDATE", "lupdate")
            return "\n".join(check(Project(lupdate, root, root / "x.ts"), root / "languages"))

    def test_finds_nothing_in_a_sound_project(self):
        self.assertEqual(self.faults(), "")

    def test_names_every_fault(self):
        for line in (HERE / "broken.txt").read_text(encoding="utf-8").splitlines():
            if not line.startswith("#"):
                with self.subTest(line):
                    *change, complaint = line.split("|")
                    self.assertIn(complaint, self.faults(*change))
