#!/usr/bin/env python3
"""Holds the translation files against the texts of the program.

usage: check_languages.py LUPDATE PROJECT_FOLDER TS_FILE

TS_FILE is written anew. Every fault is printed, naming file and text; the exit status is 1 where there is one.
"""

import re
import sys
import xml.etree.ElementTree as ElementTree
from collections import Counter
from pathlib import Path

from source_texts import gather
from tr_file import read_tr_file

PLACEHOLDER = re.compile(r"%(?:L?\d{1,2}|n)")
MNEMONIC = re.compile(r"&(.)", re.DOTALL)
ENDING = re.compile(r"\s$|\.\.\.$|[.:]$|$")
MODIFIER = r"(?:Ctrl|Shift|Alt|Meta)\+"
KEY = (r"(?:F[1-9]|F[12]\d|F3[0-5]|[!-~]|Left|Right|Up|Down|Home|End|PgUp|PgDown|Ins|Del|Esc|Tab|Space|Return|Enter"
       r"|Backspace)")
KEY_SEQUENCE = re.compile(rf"(?:{MODIFIER})*{KEY}")
PLAIN_SHORTCUT = re.compile(rf"(?:{MODIFIER})+{KEY}|F\d+")


def mnemonics(text):
    return [letter.casefold() for letter in MNEMONIC.findall(text) if letter != "&"]


class Language:
    """The entries of one translation file. The program compares sources and contexts without ASCII case."""

    def __init__(self, name, entries):
        self.name = name
        self.entries = {}
        self.faults = []
        for entry in entries:
            if self.entries.setdefault((entry.context.lower(), entry.source.lower()), entry) is not entry:
                self.fault(entry, "is translated twice")

    def fault(self, entry, sentence):
        self.faults.append(f'{self.name}:{entry.line}: "{entry.source}" {sentence}')

    def find(self, text):
        for context in (text.context, "*", ""):
            if entry := self.entries.get((context.lower(), text.source.lower())):
                return entry
        return None


def check_coverage(language, texts):
    used = {}
    for text in texts:
        if entry := language.find(text):
            used[id(entry)] = entry
        else:
            language.faults.append(f"{language.name}: no translation of {text}")
    for entry in language.entries.values():
        if id(entry) not in used:
            language.fault(entry, f"of {entry.context} is no text of the program (any more)")


def check_entry(language, entry, shortcuts):
    source, translation = entry.source, entry.translation
    if not translation.strip():
        language.fault(entry, "has an empty translation")
    if Counter(PLACEHOLDER.findall(source)) != Counter(PLACEHOLDER.findall(translation)):
        language.fault(entry, f'has other placeholders than "{translation}"')
    if len(mnemonics(source)) != len(mnemonics(translation)):
        language.fault(entry, f'has a mnemonic where "{translation}" has none, or the other way round')
    if ENDING.search(source)[0] != ENDING.search(translation)[0] or source[:1].isspace() != translation[:1].isspace():
        language.fault(entry, f'begins or ends otherwise than "{translation}"')
    if source in shortcuts or PLAIN_SHORTCUT.fullmatch(source):
        if not KEY_SEQUENCE.fullmatch(translation):
            language.fault(entry, f'has the translation "{translation}", which is no key sequence')


def check_group(language, name, texts):
    owners = {}
    for text in texts:
        entry = language.find(text)
        for letter in mnemonics(entry.translation) if entry else []:
            other = owners.setdefault(letter, entry)
            if other is not entry:
                language.fault(entry, f'has the mnemonic of "{other.source}", "{letter}", in: {name}')


def check_language(name, entries, found):
    language = Language(name, entries)
    check_coverage(language, found.texts)
    for entry in language.entries.values():
        check_entry(language, entry, found.shortcuts)
    for group, texts in found.groups:
        check_group(language, group, texts)
    return language.faults


def check_list(folder):
    """The list must name each file of the folder once, and each of its files must be there."""
    listed = [locale.get("file") for locale in ElementTree.parse(folder / "kestrum.langs.xml").iter("locale")]
    listed = sorted(name for name in listed if name)
    present = sorted(path.name for path in folder.glob("*.tr"))
    return [] if listed == present else [f"kestrum.langs.xml: lists {listed}, but there are {present}"]


def check(folder, found):
    faults = found.faults + check_list(folder)
    faults += [f"{text} is not ASCII" for text in found.texts if not text.source.isascii()]
    for path in sorted(folder.glob("*.tr")):
        entries, unread = read_tr_file(path)
        faults += [f"{path.name}:{line}: {sentence}" for line, sentence in unread]
        faults += check_language(path.name, entries, found)
    return faults


def main(lupdate, root, ts_file):
    root = Path(root).resolve()
    faults = check(root / "languages", gather(lupdate, root, Path(ts_file).resolve()))
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
