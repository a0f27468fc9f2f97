"""Reads translation files as the program does, but tells what the program would pass over in silence."""

import re
from dataclasses import dataclass

BLANK = " \t\n\r\v\f"
FIELDS = ("@context", "@src", "@tr")
KEYWORDS = ("@include", "@begin", "@end") + FIELDS
ESCAPES = {"n": "\n", "r": "\r", "t": "\t", "@": "@"}


@dataclass(frozen=True)
class Entry:
    line: int
    context: str
    source: str
    translation: str


class BadEntry(Exception):
    """The entry at hand cannot be read."""


def decode_text(text):
    """The value of a written @src or @tr field. Raises BadEntry for an escape with a surprising meaning and for a
    line break, behind which a comment would be swallowed."""
    text = text.strip(BLANK)
    if len(text) >= 2 and text[0] == '"' and text[-1] == '"':
        text = text[1:-1]
    if "\n" in text or "\r" in text:
        raise BadEntry("a text runs over more than one line; a line feed is written \\n")

    def replace(match):
        if match[1] not in ESCAPES:
            raise BadEntry(f'"{match[0]}" is none of the escapes \\n, \\r, \\t and \\@')
        return ESCAPES[match[1]]

    return re.sub(r"\\(.?)", replace, text, flags=re.DOTALL)


class Reader:
    """Walks the text of one file; `entries` and `faults`, pairs of line and sentence, are what it found."""

    def __init__(self, text):
        self.text = text
        self.position = 0
        self.entries = []
        self.faults = []
        self.read()

    def read(self):
        if self.text.startswith("\ufeff"):
            self.fault("a byte order mark stands in front", 1)
            self.position = 1
        while self.skip_blanks_and_comments():
            start = self.line()
            try:
                self.entries.append(self.read_entry(start))
            except BadEntry as error:
                self.fault(f"the entry is skipped: {error}", start)
                self.go_to_next_entry()

    def fault(self, sentence, line):
        self.faults.append((line, sentence))

    def line(self):
        return self.text.count("\n", 0, self.position) + 1

    def skip_blanks(self):
        while self.text[self.position:self.position + 1] in tuple(BLANK):
            self.position += 1

    def skip_blanks_and_comments(self):
        """False at the end of the file."""
        self.skip_blanks()
        while self.text.startswith("#", self.position):
            self.position = self.end_of_line()
            self.skip_blanks()
        return self.position < len(self.text)

    def end_of_line(self):
        end = re.compile(r"[\r\n]").search(self.text, self.position)
        return end.end() if end else len(self.text)

    def go_to_next_entry(self):
        following = self.text.find("@begin", self.position)
        self.position = len(self.text) if following < 0 else following

    def take_keyword(self):
        for keyword in KEYWORDS:
            if self.text.startswith(keyword, self.position):
                self.position += len(keyword)
                if self.text[self.position:self.position + 1] not in ("", "@", *BLANK):
                    raise BadEntry(f"no blank behind {keyword}")
                return keyword
        raise BadEntry("text stands where a keyword is expected")

    def read_entry(self, line):
        if self.take_keyword() != "@begin":
            raise BadEntry("it does not start with @begin")
        values = {}
        while (keyword := self.next_keyword()) != "@end":
            if keyword not in FIELDS or keyword in values:
                raise BadEntry(f"{keyword} is out of place")
            values[keyword] = self.take_value()
        for field in FIELDS:
            if field not in values:
                raise BadEntry(f"{field} is missing")
        return Entry(line, values["@context"].strip(BLANK), decode_text(values["@src"]), decode_text(values["@tr"]))

    def next_keyword(self):
        self.skip_blanks()
        return self.take_keyword()

    def take_value(self):
        """The text up to the next keyword, as it is written."""
        pattern = re.compile(r"(?<!\\)(?:" + "|".join(KEYWORDS) + ")")
        end = pattern.search(self.text, self.position)
        if end is None:
            raise BadEntry("@end is missing")
        value = self.text[self.position:end.start()]
        self.position = end.start()
        return value


def read_tr_file(path):
    """The entries of a file, and its faults as pairs of line and sentence."""
    try:
        reader = Reader(path.read_bytes().decode("utf-8"))
    except UnicodeDecodeError as error:
        return [], [(1, f"the file is no UTF-8: {error}")]
    return reader.entries, reader.faults
