"""Gathers the texts that need a translation: from code and forms, and Qt's own from their list."""

import os
import re
import subprocess
import xml.etree.ElementTree as ElementTree
from dataclasses import dataclass, field

from tr_file import decode_text

CODE_SUFFIXES = {".h", ".cpp"}
HAS_TEXTS = re.compile(r"\btr\(|\btranslate\(|\bQT_TR")
# A call whose text is no literal: only a marked text, QT_TRANSLATE_NOOP and its like, can then be found.
UNSEEN_CALL = re.compile(r'\b(?:tr\(\s*[^")\s]|translate\(\s*"[^"]*"\s*,\s*[^"\s])')
MARKER = re.compile(r"\bQT_TR(?:ANSLATE)?_NOOP")


@dataclass(frozen=True)
class Text:
    context: str
    source: str
    where: str = field(compare=False)

    def __str__(self):
        return f'"{self.source}" of {self.context} ({self.where})'


@dataclass
class SourceTexts:
    texts: list = field(default_factory=list)
    groups: list = field(default_factory=list)  # pairs of a name and the texts that are seen together
    shortcuts: set = field(default_factory=set)  # source texts that stand for keys
    faults: list = field(default_factory=list)


def code_files(root):
    return [path for path in sorted((root / "src").rglob("*")) if path.suffix in CODE_SUFFIXES]


def extract(lupdate, root, ts_file):
    """The texts of code and forms below root/src, as Qt's lupdate finds them."""
    ts_file.unlink(missing_ok=True)
    # Files without texts stay out, as lupdate stumbles over the digit separators of numbers in them.
    files = [path for path in code_files(root) if HAS_TEXTS.search(path.read_text(encoding="utf-8"))]
    files += sorted((root / "src").rglob("*.ui"))
    run = subprocess.run([lupdate, "-silent", "-locations", "absolute", "-I", root / "src", *files, "-ts", ts_file],
                         stderr=subprocess.PIPE, text=True, check=True)
    found = SourceTexts()
    found.faults += [line for line in run.stderr.splitlines() if line.strip()]
    for context in ElementTree.parse(ts_file).getroot().iter("context"):
        for message in context.iter("message"):
            found.texts.append(Text(context.findtext("name"), message.findtext("source"), place(message, ts_file, root)))
    return found


def place(message, ts_file, root):
    location = message.find("location")
    path = os.path.relpath(ts_file.parent / location.get("filename"), root)
    return f"{path}:{location.get('line')}"


def unseen_calls(root):
    for path in code_files(root):
        code = path.read_text(encoding="utf-8")
        call = UNSEEN_CALL.search(code)
        if call and not MARKER.search(code):
            line = code.count("\n", 0, call.start()) + 1
            yield f"{path.relative_to(root)}:{line}: the text translated here is not marked with QT_TRANSLATE_NOOP"


def read_form(path, found):
    """Adds the shortcuts of a form, and which of its texts share a menu or the window."""
    form = ElementTree.parse(path).getroot()
    context = form.findtext("class")

    def text_of(element, names=("text", "title")):
        for owner in element.findall("property") + element.findall("attribute"):
            if owner.get("name") in names and owner.find("string") is not None:
                return Text(context, owner.findtext("string") or "", path.name)
        return Text(context, "", path.name)

    entries = {action.get("name"): text_of(action) for action in form.iter("action")}
    entries |= {menu.get("name"): text_of(menu) for menu in form.iter("widget") if menu.get("class") == "QMenu"}
    window = []
    for widget in form.iter("widget"):
        if widget.get("class") in ("QMenu", "QMenuBar"):
            texts = [entries[use.get("name")] for use in widget.findall("addaction") if use.get("name") in entries]
            found.groups.append((f"{path.name}, {widget.get('name')}", texts))
        else:
            window.append(text_of(widget))
    found.groups.append((path.name, window))
    found.shortcuts |= {text_of(action, ("shortcut",)).source for action in form.iter("action")} - {""}


def read_qt_list(path, found):
    """Adds the texts of Qt and which of them are seen together."""
    group = []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        context, separator, source = line.partition(": ")
        if line.startswith("["):
            group = []
            found.groups.append((line.strip("[]"), group))
        elif separator and not line.startswith("#"):
            group.append(Text(context, decode_text(source), f"{path.name}:{number}"))
            found.texts.append(group[-1])
        elif line.strip() and not line.startswith("#"):
            found.faults.append(f"{path.name}:{number}: no context and text")


def gather(lupdate, root, ts_file):
    found = extract(lupdate, root, ts_file)
    found.faults += unseen_calls(root)
    for form in sorted((root / "src").rglob("*.ui")):
        read_form(form, found)
    read_qt_list(root / "languages" / "qt-texts.txt", found)
    return found
