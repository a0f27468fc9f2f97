"""Shows that the check of the translation files finds each fault: every case breaks one thing of a sound project."""

import os
import tempfile
import unittest
from pathlib import Path

from check_languages import check
from source_texts import gather

ENTRY = "@begin\n@context {}\n@src {}\n@tr {}\n@end\n"
FORM = """<ui version="4.0"><class>Form</class><widget class="QMainWindow" name="Form">
<widget class="QMenuBar" name="bar"><widget class="QMenu" name="menu"><property name="title"><string>M&amp;enu</string>
</property><addaction name="one"/><addaction name="two"/></widget><addaction name="menu"/></widget>
<action name="one"><property name="text"><string>&amp;One</string></property></action>
<action name="two"><property name="text"><string>&amp;Two</string></property>
<property name="shortcut"><string>Del</string></property></action></widget></ui>"""
CODE = 'const char* text = QT_TRANSLATE_NOOP("Code", "%1 of %n @tr.");\n'
QT_LIST = '# Qt\n[Menu]\nQLineEdit: Cu&t\nQLineEdit: &Copy\nQLineEdit: "Show "\n'
LIST = '<locales><locale language="xx" country="XX" file="kestrum.xx.tr"/></locales>'
ENTRIES = {"Menu": ("Form", "M&enu", "M&enü"), "One": ("Form", "&One", "&Eins"), "Two": ("Form", "&Two", "&Zwei"),
           "Del": ("Form", "Del", "Del"), "Code": ("Code", "%1 of %n \\@tr.", "%n,\\n%1."),
           "Cut": ("QLineEdit", "Cu&t", "A&us"), "Copy": ("*", "&copy", "&Kopie"), "Show": ("", '"show "', '"Zeig "')}

# What is broken, how, and what must be said about it.
BROKEN_ENTRIES = {
    "a missing text": ({"Menu": None}, 'no translation of "M&enu" of Form (src/form.ui:'),
    "a vanished text": ({"New": ("*", "Gone", "Weg")}, '"Gone" of * is no text of the program'),
    "a text in another context": ({"Cut": ("QWidget", "Cu&t", "A&us")}, 'no translation of "Cu&t" of QLineEdit'),
    "a text twice": ({"New": ("qlineedit", "CU&T", "A&us")}, "is translated twice"),
    "an empty translation": ({"Del": ("Form", "Del", '""')}, "has an empty translation"),
    "a lost placeholder": ({"Code": ("Code", "%1 of %n \\@tr.", "%n.")}, "has other placeholders"),
    "a new placeholder": ({"Menu": ("Form", "M&enu", "M&enü %1")}, "has other placeholders"),
    "a lost mnemonic": ({"Two": ("Form", "&Two", "Zwei && mehr")}, "has a mnemonic where"),
    "a clash in a menu": ({"Two": ("Form", "&Two", "Zw&ei")}, 'has the mnemonic of "&One", "e", in: form.ui, menu'),
    "a clash in a menu of Qt": ({"Copy": ("*", "&copy", "Ko&Ü"), "Cut": ("QLineEdit", "Cu&t", "A&ü")},
                                'has the mnemonic of "Cu&t", "ü", in: Menu'),
    "a shortcut that is none": ({"Del": ("Form", "Del", "Löschen")}, "which is no key sequence"),
    "a lost blank": ({"Show": ("", '"show "', "Zeig")}, "begins or ends otherwise"),
    "a lost full stop": ({"Code": ("Code", "%1 of %n \\@tr.", "%n %1")}, "begins or ends otherwise"),
    "an unknown escape": ({"Menu": ("Form", "M&enu", "M&enü\\u0041")}, "is none of the escapes"),
    "a comment in an entry": ({"Del": ("Form", "Del", "Del\n# keys")}, "a text runs over more than one line"),
    "a keyword in a text": ({"Code": ("Code", "%1 of %n @tr.", "%n %1.")}, "no blank behind @tr"),
    "text behind a keyword": ({"Del": ("Form", "Del\n@trDel\n#", "Del")}, "no blank behind @tr"),
}
BROKEN_FILES = {
    "a field twice": ("kestrum.xx.tr", "@begin\n@src a\n@src b\n@end\n", "@src is out of place"),
    "a missing field": ("kestrum.xx.tr", "@begin\n@src a\n@tr b\n@end\n", "@context is missing"),
    "a missing end": ("kestrum.xx.tr", "@begin\n@context *\n@src a\n@tr b\n", "@end is missing"),
    "a line between entries": ("kestrum.xx.tr", "a comment\n", "text stands where a keyword is expected"),
    "a mark in front": ("kestrum.xx.tr", "\ufeff", "a byte order mark stands in front"),
    "bytes that are no UTF-8": ("kestrum.xx.tr", b"\xff", "the file is no UTF-8"),
    "a file that the list lacks": ("kestrum.yy.tr", "", "kestrum.langs.xml: lists"),
    "a bad line of Qt's list": ("qt-texts.txt", "nonsense\n", "qt-texts.txt:1: no context and text"),
}


class CheckOfTheTranslationFiles(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.root = Path(self.folder.name).resolve()
        self.write_sound_project({})

    def write(self, name, content):
        path = self.root / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(content if isinstance(content, bytes) else content.encode("utf-8"))

    def write_sound_project(self, changes):
        self.write("src/form.ui", FORM)
        self.write("src/code.cpp", CODE)
        self.write("languages/qt-texts.txt", QT_LIST)
        self.write("languages/kestrum.langs.xml", LIST)
        entries = [ENTRY.format(*entry) for entry in (ENTRIES | changes).values() if entry]
        self.write("languages/kestrum.xx.tr", "# @begin\n" + "\n# -\n".join(entries))

    def faults(self):
        return "\n".join(check(self.root / "languages",
                               gather(os.environ.get("KESTRUM_LUPDATE", "lupdate"), self.root, self.root / "x.ts")))

    def test_finds_nothing_in_a_sound_project(self):
        self.assertEqual(self.faults(), "")

    def test_names_every_fault_of_an_entry(self):
        for name, (changes, fault) in BROKEN_ENTRIES.items():
            with self.subTest(name):
                self.write_sound_project(changes)
                self.assertIn(fault, self.faults())

    def test_names_every_fault_of_a_file(self):
        for name, (file, content, fault) in BROKEN_FILES.items():
            with self.subTest(name):
                self.write_sound_project({})
                self.write(f"languages/{file}", content)
                self.assertIn(fault, self.faults())
                (self.root / "languages" / file).unlink()

    def test_names_texts_of_the_code_that_cannot_be_found(self):
        self.write("src/unseen.cpp", 'QString text = QCoreApplication::translate("Code", name);\n')
        self.assertIn("src/unseen.cpp:1: the text translated here is not marked", self.faults())


if __name__ == "__main__":
    unittest.main()
