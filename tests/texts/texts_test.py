"""Every text of the program in both languages, found in its sources: none is missing in one of them,
none is the same in both, and none stands in one language alone, but those that are meant to."""

import pathlib
import re
import unittest

SOURCE = pathlib.Path(__file__).resolve().parents[2] / "src"

# The same in both languages, and why.
SAME = {
    "OK": "understood in both",
    "&OK": "understood in both",
    "Type": "the same word",
    "Alias": "the same word",
    "Ctrl": "a key of that name on both keyboards",
    "Alt": "a key of that name on both keyboards",
    "Printer setup": "fixed so for both",
    "VRML": "the name of a format",
    "&Dimensions": "the same word, fixed so for both",
    "Dimensions": "the same word",
    "LP =": "an abbreviation, fixed so for both",
    "P&ortrait": "the same word",
    "Surface ": "fixed so for both",
}

# Pairs of texts that are no translations of each other: where they stand, and the first of them.
NO_TRANSLATIONS = {
    ("ui", "Brivane2000(.bv3)"): "a kind of file and its pattern",
    ("ui", "Brivane4(.bv4)"): "a kind of file and its pattern",
}

# What stands in one language alone, and why: in the windows and pictures, and in what is thrown.
ALONE = {
    "mm": "a unit",
    " mm": "a unit",
    " 1000 mm": "a length on paper",
    " 200 mm": "a length on paper",
    "deg": "fixed so for both",
    "azimuth=": "fixed so for both",
    "   elevation=": "fixed so for both",
    "  version:": "fixed so for both",
    "version:": "the same word, as in the title",
    "page ": "the same word",
    ".XYZ ": "fixed so for both",
    "NEWSAIL": "the name of a sail, fixed so for both",
    "Printer problem": "fixed so for both",
    "Invalid file type selected": "fixed so for both",
    " : Dessin1 File Open procedure": "fixed so for both",
    " Selected type of file cannot be imported": "fixed so for both",
    " : SailForm File Open procedure": "fixed so for both",
    " : SailForm file loading procedure": "fixed so for both",
    ".bv3": "an extension",
    "bv3": "an extension",
    "bv4": "an extension",
    ".pdf": "an extension",
    "*.pdf": "an extension",
    r"\tpdf": "a mark that nobody sees",
    "org.brivane.brivane": "the program's name among the desktop's",
    "localhost": "a part of an address",
    "qtbase_fr": "a file of the toolkit's",
    "LC_ALL": "spoken to the print service",
    "C.UTF-8": "spoken to the print service",
    "lpstat": "spoken to the print service",
    "system default destination: ": "said by the print service",
    "lp": "spoken to the print service",
    "media=": "spoken to the print service",
    "print-scaling=none": "spoken to the print service",
    "the page cannot be begun": "never shown: the message says Printer problem",
    "no further page can be begun": "never shown: the message says Printer problem",
    "the last page cannot be ended": "never shown: the message says Printer problem",
    "there is no print service": "never shown: the message says Printer problem",
    "the job cannot be written": "never shown: the message says Printer problem",
    "the print service refused the job": "never shown: the message says Printer problem",
    "Subscript out of range": "guards a table: no sail and no file leads to it",
}

# A control's name stands in one of these.
NAMES = re.compile(r"setObjectName\(|findChild<|AddCommand\(|AddSize\(|Add\w+Row\(|Make\w+\(|"
                   r"\w+Label\(|Numbered\(|kResultNames")

STRING = r'"(?:[^"\\]|\\.)*"'
TEXT = rf"((?:{STRING}\s*)+)"
PAIR = re.compile(rf"\{{\s*{TEXT},\s*{TEXT}\}}")


def plain(literals):
    """Adjacent literals as the one text that the compiler makes of them."""
    return "".join(part[1:-1] for part in re.findall(STRING, literals))


def code_of(path):
    """A source without its comments and the files that it includes."""
    code = re.sub(r"^\s*(//|#).*$", "", path.read_text(encoding="utf-8"), flags=re.MULTILINE)
    return re.sub(r"//(/<.*|[^\"\n]*)$", "", code, flags=re.MULTILINE)


def sources(*folders):
    return [path for folder in folders for path in sorted((SOURCE / folder).rglob("*"))
            if path.suffix in (".h", ".cpp")]


def lone_texts():
    """Where and what of every text that stands in one language alone: those of windows and pictures
    that name no control, and those that are thrown."""
    for path in sources("ui", "view"):
        for statement in re.split(r"[;{}]\s", PAIR.sub("", code_of(path))):
            if not NAMES.search(statement):
                for literal in re.findall(STRING, statement):
                    yield path, literal[1:-1]
    for path in sources(""):
        for thrown in re.findall(r"\bthrow [^;]*;", PAIR.sub("", code_of(path))):
            for literal in re.findall(STRING, thrown):
                yield path, literal[1:-1]


def pairs():
    """Where, English and French of every pair of texts in braces."""
    for path in sources(""):
        for match in PAIR.finditer(code_of(path)):
            english, french = plain(match[1]), plain(match[2])
            if (path.parent.name, english) not in NO_TRANSLATIONS:
                yield path.relative_to(SOURCE), english, french


class TextsTest(unittest.TestCase):
    def test_finds_the_texts_of_every_floor(self):
        found = list(pairs())
        english = [text for _, text, _ in found]
        for text in ("Luff", "Luff length", "Sail area =", "&File", "Clew corner patch", " panels",
                     "Luff too short, has been adjusted to minimum"):
            self.assertIn(text, english)
        self.assertGreater(len(found), 150)

    def test_none_is_missing(self):
        for path, english, french in pairs():
            self.assertTrue(english.strip(), f"{path}: no English for {french!r}")
            self.assertTrue(french.strip(), f"{path}: no French for {english!r}")

    def test_none_is_the_same_unless_it_is_meant_to_be(self):
        same = {english: path for path, english, french in pairs() if english == french}
        for text, path in same.items():
            self.assertIn(text, SAME, f"{path}: the same in both languages")
        for text in SAME:
            self.assertIn(text, same, "stands in the list for nothing")

    def test_none_stands_alone_unless_it_is_meant_to(self):
        alone = {text: path for path, text in lone_texts() if re.search("[A-Za-z]{2}", text)}
        for text, path in alone.items():
            self.assertIn(text, ALONE, f"{path}: in one language alone")
        for text in ALONE:
            self.assertIn(text, alone, "stands in the list for nothing")

    def test_blanks_agree(self):
        """A text that is put together with others keeps the blank that it begins with. French sets
        one before its punctuation."""
        for path, english, french in pairs():
            if re.search(r"\w", english):
                self.assertEqual(english.startswith(" "), french.startswith(" "),
                                 f"{path}: {english!r}, {french!r}")


if __name__ == "__main__":
    unittest.main(verbosity=2)
