"""Shows that the check of the translation files finds each fault: every case breaks one thing of a sound project."""

import os
import tempfile
import unittest
from pathlib import Path

from check_languages import Project, check

FORM = """<ui version="4.0"><class>Form</class><widget class="QMainWindow" name="Form">
<widget class="QMenuBar" name="bar"><widget class="QMenu" name="menu"><property name="title"><string>M&amp;enu</string>
</property><addaction name="one"/><addaction name="two"/></widget><addaction name="menu"/></widget>
<action name="one"><property name="text"><string>&amp;One</string></property></action>
<action name="two"><property name="text"><string>&amp;Two</string></property>
<property name="shortcut"><string>Del</string></property></action></widget></ui>"""
SOUND = {
    "src/form.ui": FORM,
    "src/code.cpp": 'const char* text = QT_TRANSLATE_NOOP("Code", "%1 of %n @tr.");\n',
    "languages/qt-texts.txt": '# Qt\n[Menu]\nQLineEdit: Cu&t\nQLineEdit: &Copy\nQLineEdit: "Show "\n',
    "languages/kestrum.langs.xml": '<locales><locale language="xx" country="XX" file="kestrum.xx.tr"/></locales>',
}
ENTRY = "@begin\n@context {}\n@src {}\n@tr {}\n@end\n"
ENTRIES = {"Menu": ("Form", "M&enu", "M&enü"), "One": ("Form", "&One", "&Eins"), "Two": ("Form", "&Two", "&Zwei"),
           "Del": ("Form", "Del", "Del"), "Code": ("Code", "%1 of %n \\@tr.", "%n,\\n%1."),
           "Cut": ("QLineEdit", "Cu&t", "A&us"), "Copy": ("*", "&copy", "&Kopie"), "Show": ("*", '"show "', '"Zeig "')}

# The entry that is changed or left out, what is in its place, and what must be said about it.
BROKEN_ENTRIES = [
    ("Menu", None, '"M&enu" of Form has no translation'),
    ("New", ("*", "Gone", "Weg"), '"gone" of * is no text of the program'),
    ("Cut", ("QWidget", "Cu&t", "A&us"), '"Cu&t" of QLineEdit has no translation'),
    ("New", ("qlineedit", "CU&T", "A&us"), "is translated twice"),
    ("Del", ("Form", "Del", '""'), "has an empty translation"),
    ("Code", ("Code", "%1 of %n \\@tr.", "%n."), "has other placeholders"),
    ("Menu", ("Form", "M&enu", "M&enü %1"), "has other placeholders"),
    ("Two", ("Form", "&Two", "Zwei && mehr"), "has a mnemonic and none"),
    ("Two", ("Form", "&Two", "Zw&ei"), 'has the mnemonic of "&One", "e", in: form.ui, menu'),
    ("Copy", ("*", "&copy", "Ko&U"), 'has the mnemonic of "Cu&t", "u", in: [Menu]'),
    ("Del", ("Form", "Del", "Löschen"), "is a key sequence, unlike"),
    ("Show", ("*", '"show "', "Zeig"), "begins or ends otherwise"),
    ("Code", ("Code", "%1 of %n \\@tr.", "%n %1"), "begins or ends otherwise"),
    ("Menu", ("Form", "M&enu", "M&enü\\u0041"), "has a bad escape"),
    ("Code", ("Code", "%1 of %n \\@tr.", "%n @tr %1."), "or a keyword"),
    ("Del", ("Form", "Del", "Del\n# keys"), "is no entry of five lines"),
    ("Del", ("Form", "Del\n@src Del", "Del"), "is no entry of five lines"),
]
BROKEN_FILES = [
    ("languages/kestrum.xx.tr", "a comment\n", '"a comment\n" is no entry'),
    ("languages/kestrum.xx.tr", "\ufeff", "is no entry"),
    ("languages/kestrum.xx.tr", ENTRY.format("Form", "Del", "\xff").encode("latin-1"), "has a bad escape"),
    ("languages/kestrum.yy.tr", "", "kestrum.langs.xml lists"),
    ("languages/qt-texts.txt", "nonsense\n", "qt-texts.txt: no context and text: nonsense"),
    ("languages/qt-texts.txt", "[Menu]\nQMenu: ä\n", '"ä" of QMenu is not ASCII'),
    ("src/unseen.cpp", 'auto text = translate("Code", name);\n', "unseen.cpp: a text translated here is not marked"),
]


class CheckOfTheTranslationFiles(unittest.TestCase):
    def faults(self, entries=None, file="languages/kestrum.langs.xml", content=None):
        """What the check says of a project with these other entries, and these bytes in a file of it."""
        written = "\n# @begin\n".join(ENTRY.format(*entry) for entry in (ENTRIES | (entries or {})).values() if entry)
        project = SOUND | {"languages/kestrum.xx.tr": written} | ({} if content is None else {file: content})
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder).resolve()
            for name, text in project.items():
                (root / name).parent.mkdir(exist_ok=True)
                (root / name).write_bytes(text if isinstance(text, bytes) else text.encode())
            lupdate = os.environ.get("KESTRUM_LUPDATE", "lupdate")
            return "\n".join(check(Project(lupdate, root, root / "x.ts"), root / "languages"))

    def test_finds_nothing_in_a_sound_project(self):
        self.assertEqual(self.faults(), "")

    def test_names_every_fault_of_an_entry(self):
        for key, entry, fault in BROKEN_ENTRIES:
            with self.subTest(fault):
                self.assertIn(fault, self.faults({key: entry}))

    def test_names_every_fault_of_a_file(self):
        for file, content, fault in BROKEN_FILES:
            with self.subTest(fault):
                self.assertIn(fault, self.faults(file=file, content=content))


if __name__ == "__main__":
    unittest.main()
