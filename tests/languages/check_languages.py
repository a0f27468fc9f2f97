#!/usr/bin/env python3
# Holds the translation files against the texts of the program.
#
# usage: check_languages.py LUPDATE PROJECT_FOLDER TS_FILE
#
# TS_FILE is written anew. Every fault is printed, naming file and text; the exit status is 1 where there is one.

import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

HAS_TEXTS = re.compile(r"\btr\(|\btranslate\(|\bQT_TR")
# A call whose text is no literal: only a marked text, QT_TRANSLATE_NOOP and its like, can then be found.
UNSEEN_CALL = re.compile(r'\b(?:tr\(\s*[^")\s]|translate\(\s*"[^"]*"\s*,\s*[^"\s])')
MARKER = re.compile(r"\bQT_TR(?:ANSLATE)?_NOOP")

ENTRY = r"^@begin\n@context (.+)\n@src (.+)\n@tr (.+)\n@end\n"
ENTRY_OR_NONE = re.compile(ENTRY + r"|^#.*\n|^\n", re.MULTILINE)
# What the program would take for something else: an escape of another meaning, a keyword.
MISREAD = re.compile(r"\\(?![nrt@])|(?<!\\)@(?:include|begin|end|context|src|tr)")

MOST_BYTES = 65536

PLACEHOLDER = re.compile(r"%(?:L?\d{1,2}|n)")
MNEMONIC = re.compile(r"&([^&])|&&")
ENDING = re.compile(r"\s$|\.\.\.$|[.:]$|$")
# The marks at the end of a sentence and of a label where a language has its own, by the code in the file's name. A text
# that has none in English, as code puts it together with others, has none of these either.
FULL_WIDTH = {".": "。", ":": "："}
OWN_MARKS = {"zh-Hans": FULL_WIDTH, "zh-Hant": FULL_WIDTH, "ja": FULL_WIDTH, "hi": {".": "।"}}
MODIFIER = r"(?:Ctrl|Shift|Alt|Meta)\+"
KEY = (r"(?:F[1-9]|F[12]\d|F3[0-5]|[!-~]|Left|Right|Up|Down|Home|End|PgUp|PgDown|Ins|Del|Esc|Tab|Space|Return|Enter"
       r"|Backspace)")
KEY_SEQUENCE = re.compile(rf"(?:{MODIFIER})*{KEY}")
PLAIN_SHORTCUT = re.compile(rf"(?:{MODIFIER})+{KEY}|F\d+")


# The value of a text as it is written in a translation file.
def decoded(written):
    text = re.fullmatch(r'\s*("?)(.*)\1\s*', written)[2]
    return text.replace("\\n", "\n").replace("\\r", "\r").replace("\\t", "\t").replace("\\@", "@")


def mnemonics(text):
    return [letter.casefold() for letter in MNEMONIC.findall(text) if letter]


# The texts that need a translation, each a pair of context and source, and what is known of them.
class Project:
    def __init__(self, lupdate, root, ts_file):
        self.faults = []
        self.shortcuts = set()  # sources that stand for keys
        self.groups = []  # pairs of a name and the texts that are seen together
        self.texts = list(self.extract(lupdate, root, ts_file))
        for form in sorted((root / "src").rglob("*.ui")):
            self.read_form(form)
        self.read_qt_list(root / "languages" / "qt-texts.txt")
        self.faults += [f'"{text[1]}" of {text[0]} is not ASCII' for text in self.texts if not text[1].isascii()]

    # The texts of code and forms below root/src, as Qt's lupdate finds them.
    def extract(self, lupdate, root, ts_file):
        files = sorted((root / "src").rglob("*.ui"))
        for path in [*(root / "src").rglob("*.h"), *(root / "src").rglob("*.cpp")]:
            code = path.read_text(encoding="utf-8")
            # Files without texts stay out, as lupdate stumbles over the digit separators of numbers in them.
            files += [path] if HAS_TEXTS.search(code) else []
            if UNSEEN_CALL.search(code) and not MARKER.search(code):
                self.faults.append(f"{path.name}: a text translated here is not marked with QT_TRANSLATE_NOOP")
        ts_file.unlink(missing_ok=True)
        run = subprocess.run([lupdate, "-silent", "-I", root / "src", *files, "-ts", ts_file], stderr=subprocess.PIPE,
                             text=True, check=True)
        self.faults += run.stderr.splitlines()
        for context in ElementTree.parse(ts_file).iter("context"):
            for message in context.iter("message"):
                yield context.findtext("name"), message.findtext("source")

    # Adds the shortcuts of a form, and which of its texts share a menu or the window.
    def read_form(self, path):
        form = ElementTree.parse(path).getroot()

        def text_of(element, *names):
            found = (part.findtext("string") for part in element if part.get("name") in names)
            return form.findtext("class"), next(filter(None, found), "")

        parts = [part for part in form.iter() if part.tag in ("action", "widget")]
        texts = {part.get("name"): text_of(part, "text", "title") for part in parts}
        window = []
        for part in parts:
            if part.get("class") in ("QMenu", "QMenuBar"):
                entries = [entry.get("name") for entry in part.findall("addaction")]
                self.groups.append((f"{path.name}, {part.get('name')}", [texts[e] for e in entries if e in texts]))
            elif part.tag == "widget":
                window.append(texts[part.get("name")])
            self.shortcuts.add(text_of(part, "shortcut")[1])
        self.groups.append((path.name, window))

    # Adds the texts of Qt and which of them are seen together.
    def read_qt_list(self, path):
        for line in re.findall("^[^#\n].*", path.read_text(encoding="utf-8"), re.MULTILINE):
            context, separator, source = line.partition(": ")
            if line.startswith("["):
                self.groups.append((line, []))
            elif separator:
                self.texts.append((context, decoded(source)))
                self.groups[-1][1].append(self.texts[-1])
            else:
                self.faults.append(f"{path.name}: no context and text: {line}")


# One translation file. The program compares sources and contexts without ASCII case.
class Language:
    def __init__(self, path, project):
        self.name = path.name
        self.own_marks = OWN_MARKS.get(path.name.split(".")[1], {})
        self.faults = []
        self.lines = {}  # where a source stood last
        self.entries = {}  # pairs of source and translation
        self.read(path.read_bytes().decode("utf-8", "backslashreplace"))  # what is no UTF-8 becomes a bad escape
        self.check_coverage(project.texts)
        for source, translation in self.entries.values():
            self.check_entry(source, translation, source in project.shortcuts)
        for name, texts in project.groups:
            self.check_group(name, texts)

    def fault(self, source, sentence):
        where = f"{self.name}:{self.lines[source]}" if source in self.lines else self.name
        self.faults.append(f'{where}: "{source}" {sentence}')

    def read(self, text):
        for entry in re.finditer(ENTRY, text, re.MULTILINE):
            context, *written = entry.groups()
            source, translation = map(decoded, written)
            self.lines[source] = text.count("\n", 0, entry.start()) + 1
            if max(len(field.encode()) for field in entry.groups()) > MOST_BYTES:
                self.fault(source, "or its translation or context is too long for the program")
            if any(map(MISREAD.search, written)):
                self.fault(source, "or its translation has a bad escape or a keyword")
            if (context.lower(), source.lower()) in self.entries:
                self.fault(source, "is translated twice")
            self.entries[context.lower(), source.lower()] = source, translation
        if rest := ENTRY_OR_NONE.sub("", text):
            self.lines[rest] = text.count("\n", 0, text.find(rest.split("\n")[0])) + 1
            self.fault(rest, "is no entry of five lines, nor a comment between two")

    # The keys of its entries, of which the first that there is counts.
    def keys_of(self, text):
        context, source = text
        keys = [(place, source.lower()) for place in (context.lower(), "*")]
        return [key for key in keys if key in self.entries]

    def check_coverage(self, texts):
        unused = set(self.entries)
        for text in texts:
            keys = self.keys_of(text)
            if not keys:
                self.fault(text[1], f"of {text[0]} has no translation")
            unused -= set(keys[:1])
        for key in sorted(unused):
            self.fault(self.entries[key][0], f"of {key[0]} is no text of the program (any more)")

    # The translation with English marks at its end.
    def with_plain_end(self, source, translation):
        for plain, own in self.own_marks.items():
            if translation.endswith(own):
                return translation.removesuffix(own) + plain
            if translation.endswith(plain) and not translation.endswith("..."):
                self.fault(source, f'ends with "{plain}" where the language has "{own}": "{translation}"')
        return translation

    def check_entry(self, source, translation, is_shortcut):
        comparable = self.with_plain_end(source, translation)

        def same(part):
            return part(source) == part(comparable)

        rules = {
            "has an empty translation": translation.strip(),
            "has other placeholders than": same(lambda text: sorted(PLACEHOLDER.findall(text))),
            "has a mnemonic and none, or the other way round, in": same(lambda text: len(mnemonics(text))),
            "begins or ends otherwise than": same(lambda text: (text[:1].isspace(), ENDING.search(text)[0])),
            "is a key sequence, unlike": not (is_shortcut or PLAIN_SHORTCUT.fullmatch(source))
                                         or KEY_SEQUENCE.fullmatch(translation),
        }
        for sentence, holds in rules.items():
            if not holds:
                self.fault(source, f'{sentence} "{translation}"')

    def check_group(self, name, texts):
        owners = {}
        for source, translation in (self.entries[key] for text in texts for key in self.keys_of(text)[:1]):
            for letter in mnemonics(translation):
                if owners.setdefault(letter, source) != source:
                    self.fault(source, f'has the mnemonic of "{owners[letter]}", "{letter}", in: {name}')


def check(project, folder):
    # The list must name each file of the folder once, and each of its files must be there.
    listed = [locale.get("file") for locale in ElementTree.parse(folder / "kestrum.langs.xml").iter("locale")]
    paths = sorted(folder.glob("*.tr"))
    names = [path.name for path in paths]
    faults = [] if sorted(filter(None, listed)) == names else [f"kestrum.langs.xml lists {listed}, there are {names}"]
    return project.faults + faults + [fault for path in paths for fault in Language(path, project).faults]


def main(lupdate, root, ts_file):
    root = Path(root).resolve()
    faults = check(Project(lupdate, root, Path(ts_file).resolve()), root / "languages")
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
