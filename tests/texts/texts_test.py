"""Every text of the program in both languages, found in its sources: none is missing in one of them,
and none is the same in both but those that are meant to be."""

import pathlib
import re
import unittest

SOURCE = pathlib.Path(__file__).resolve().parents[2] / "src"

# The same in both languages, and why.
SAME = {
    "OK": "understood in both",
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

STRING = r'"(?:[^"\\]|\\.)*"'
TEXT = rf"((?:{STRING}\s*)+)"
PAIR = re.compile(rf"\{{\s*{TEXT},\s*{TEXT}\}}")


def plain(literals):
    """Adjacent literals as the one text that the compiler makes of them."""
    return "".join(part[1:-1] for part in re.findall(STRING, literals))


def pairs():
    """Where, English and French of every pair of texts in braces."""
    for path in sorted(SOURCE.rglob("*")):
        if path.suffix not in (".h", ".cpp") or path.name == "qt_translation.cpp":
            continue
        code = re.sub(r"^\s*//.*$", "", path.read_text(encoding="utf-8"), flags=re.MULTILINE)
        for match in PAIR.finditer(code):
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

    def test_blanks_agree(self):
        """A text that is put together with others keeps the blank that it begins with. French sets
        one before its punctuation."""
        for path, english, french in pairs():
            if re.search(r"\w", english):
                self.assertEqual(english.startswith(" "), french.startswith(" "),
                                 f"{path}: {english!r}, {french!r}")


if __name__ == "__main__":
    unittest.main(verbosity=2)
