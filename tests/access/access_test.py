"""Works the program as a blind user would: access_test.py PROGRAM (english|french)."""

import glob
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

from client import STATE, Program, press, type_text, wait
from words import ENGLISH, FRENCH

PROGRAM = sys.argv[1]
WORDS = FRENCH if sys.argv[2] == "french" else ENGLISH

# What has no words of its own: what only holds others together, and separators.
SILENT = {"filler", "panel", "menu bar", "popup menu", "separator", "status bar", "unknown",
          "application"}


class AccessTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(dir=os.environ["XDG_RUNTIME_DIR"])
        self.program = Program(PROGRAM, self.folder)

    def tearDown(self):
        self.program.end()
        shutil.rmtree(self.folder)

    # --- The ways to the windows, by keys alone ---

    def start(self):
        """The start window, in the language."""
        window = self.program.window("Brivane 2000  version:")
        if WORDS is FRENCH:
            self.program.focus_on(ENGLISH["create"])
            press("shift+Tab")
            self.program.focus_on("English")
            press("Left")
            self.program.focus_on("Français")
            wait("French captions", lambda: window.name == WORDS["start"])
            press("Tab")
        self.program.focus_on(WORDS["create"])
        return window

    def dimensions(self):
        self.program.push(self.start(), WORDS["create"])
        return self.program.window(WORDS["dimensions"])

    def drawing(self):
        self.program.push(self.dimensions(), "Valider" if WORDS is FRENCH else "Validate")
        return self.program.window(WORDS["drawing"])

    def pick(self, *names):
        """Walks the menu by Alt and the arrows to an entry and presses it."""
        window = self.program.front()
        bar = window.find("menu bar")
        press(wait("the File menu", lambda: bar.find("menu item", WORDS["file"])).shortcut)
        entries = list(WORDS["menus"])
        for name in entries[:entries.index(names[0])]:
            self.chosen(bar, name)
            press("Right")
        entry = self.chosen(bar, names[0])
        for name in names[1:]:
            if entry.name != names[0]:
                press("Right")
            for _ in range(12):
                entry = wait(f"an entry on the way to {name!r}", lambda: self.deepest(bar))
                if entry.name == name:
                    break
                press("Down")
                wait(f"the entry after {entry}", lambda: self.deepest(bar) != entry)
            self.assertEqual(entry.name, name)
        press("Return")

    def deepest(self, menu):
        """The chosen entry of the last menu that is open."""
        chosen = None
        for node, states in menu.walk():
            if states.contains(STATE.FOCUSED) and node.role == "menu item":
                chosen = node
        return chosen

    def chosen(self, bar, name):
        def there():
            return next((node for node, states in bar.walk()
                         if states.contains(STATE.FOCUSED) and node.name == name), None)

        return wait(f"the menu entry {name!r} chosen", there)

    def mould(self):
        self.drawing()
        self.pick(list(WORDS["menus"])[2])
        return self.program.window(WORDS["mould"])

    def patches(self):
        self.drawing()
        self.pick(list(WORDS["menus"])[3])
        return self.program.window(WORDS["patches"])

    # --- Checks ---

    def check_round(self, stops):
        """Tab goes through the stops in this order and comes round."""
        self.program.go_to(stops[0])
        for name in stops[1:] + stops[:1]:
            self.assertEqual(self.program.press_and_move("Tab").name, name)
        for name in (stops[-1], stops[-2]):
            self.assertEqual(self.program.press_and_move("shift+Tab").name, name)

    def check_names(self, window):
        """Everything that is shown has a name without leaders, mnemonics and doubled blanks."""
        self.assertTrue(window.name.strip())
        for node in window.everything():
            if node.role in SILENT and not node.has(STATE.FOCUSABLE):
                continue
            self.assertTrue(node.name.strip(), f"a {node.role} has no name")
            self.assertNotIn("&", node.name)
            self.assertNotRegex(node.name, r"  |\. \.")
            if node.role == "image":
                self.assertTrue(node.description, f"{node} does not say what it shows")
                self.assertNotEqual(node.description, node.name)

    def check_keys(self, window):
        """No two controls answer to the same key, and every button answers to one."""
        keys = {}
        for node in window.everything():
            if node.role in ("push button", "radio button"):
                self.assertNotIn(node.shortcut, keys, f"{node} and {keys.get(node.shortcut)}")
                keys[node.shortcut] = node
        self.assertTrue(keys)

    def check(self, window, stops):
        self.check_names(window)
        self.check_keys(window)
        self.check_round(stops)

    def tree(self, menu):
        """The entries of a menu by name, with those below them."""
        entries = {}
        for node in menu.children:
            if node.role == "menu item":
                below = [child for child in node.children if child.role == "popup menu"]
                entries[node.name] = self.tree(below[0]) if below else {}
        return entries

    # --- The windows ---

    def test_start_window(self):
        window = self.start()
        self.assertEqual(window.name, WORDS["start"])
        self.check(window, [WORDS["language"], WORDS["create"], WORDS["quit"]])

    def test_dimensions_window(self):
        window = self.dimensions()
        self.program.focus_on(WORDS["fields"][1])
        self.check(window, WORDS["fields"])
        for cut in WORDS["cuts"]:
            self.assertTrue(window.find("radio button", cut), cut)
        for name in WORDS["fields"]:
            node = next(node for node in window.everything()
                        if node.name == name and node.has(STATE.FOCUSABLE))
            if node.role == "text":
                self.assertTrue(node.description, f"{node} does not tell its range")

    def test_drawing_window(self):
        window = self.drawing()
        stops = [*WORDS["turning"], WORDS["picture"], *WORDS["buttons"]]
        self.check(window, stops)
        self.assertEqual(self.tree(window.find("menu bar")), WORDS["menus"])

    def test_mould_window(self):
        window = self.mould()
        self.check(window, WORDS["mould stops"])
        for name in WORDS["profiles"]:
            self.assertRegex(window.find("image", name).description, f"^{WORDS['profile']}$")

    def test_patch_window(self):
        self.check(self.patches(), WORDS["patch stops"])

    # --- The main job ---

    def test_main_job(self):
        self.type_dimensions()
        self.look_at_drawing()
        self.save_and_export()
        self.open_again()
        self.print_to_pdf()
        self.change_mould()
        self.size_patches()
        press("ctrl+q")
        self.assertEqual(self.program.ended(), 0)

    def path(self, name):
        return os.path.join(self.folder, name)

    def file(self, name):
        wait(f"the file {name}", lambda: os.path.exists(self.path(name)))
        return self.path(name)

    def results(self, window):
        """The numbers of the three displays."""
        numbers = []
        for caption in ("leech", "lp", "area"):
            label = next(node for node in window.everything()
                         if node.name.startswith(WORDS[caption] + ": "))
            numbers.append(float(label.name.split()[-2]))
        return numbers

    def type_dimensions(self):
        window = self.dimensions()
        fields = WORDS["fields"]
        self.program.focus_on(fields[1])
        before = self.results(window)
        self.program.type_in(fields[1], "5000")
        self.program.type_in(fields[3], "50")
        self.agree_to(WORDS["too short"], WORDS["dimensions"])
        self.program.type_in(fields[3], "4000")
        diagonal = self.program.type_in(fields[4], "6300")
        wait("the diagonal", lambda: diagonal.text == "6300")
        wait("other results", lambda: self.results(window)[0] != before[0])
        # The foot and the luff are known, and the LP is the clew's distance from the luff.
        leech, lp, area = self.results(window)
        self.assertLessEqual(lp, 4000)
        self.assertGreater(leech, 5000)
        self.assertTrue(0.5 * 5 * lp / 1000 < area < 5 * leech / 1000, (leech, lp, area))
        self.program.go_to(WORDS["cuts"][1])
        press("Up")
        self.program.focus_on(WORDS["cuts"][0])
        wait("the cut", lambda: window.find("radio button", WORDS["cuts"][0]).has(STATE.CHECKED))
        # The foot that was too short has taken some of the gaff with it.
        self.gaff = int(window.find("text", fields[5]).text)
        self.leech = leech
        self.program.push(window, fields[-1])

    def agree_to(self, words, then=None):
        """Reads a message and presses its button."""

        def message():
            box = self.program.front()
            return box if box and box.find("push button", "OK") else None

        box = wait(f"the message {words!r}", message)
        self.assertIn(words, " ".join(node.name for node in box.everything()))
        press("Return")
        wait("the end of the message", lambda: self.program.front() not in (None, box))
        if then:
            self.program.window(then)

    def look_at_drawing(self):
        window = self.program.window(WORDS["drawing"])
        picture = window.find("image", WORDS["picture"])
        tells = re.escape(WORDS["seams"]).replace("%s", "NEWSAIL").replace("%d", "(-?[0-9]+)")

        def shown(azimuth, elevation):
            def right():
                read = re.match(tells, picture.description)
                return read and read.groups()[1:] == (str(azimuth), str(elevation))

            wait(f"azimuth {azimuth} and elevation {elevation}", right)

        shown(90, 0)
        panels = int(re.match(tells, picture.description)[1]) - 1
        self.assertTrue(any(node.name.startswith(f"{panels} ") for node in window.everything()
                            if node.role == "label"), "the foot of the window tells the panels")
        azimuth = self.program.go_to(WORDS["turning"][0])
        press("Right", "Right", "Right")
        shown(99, 0)  # 3 steps of 0.05 rad: Int(8.6 + 90.5)
        self.assertEqual(azimuth.value, 15)
        press("End")
        shown(180, 0)  # 1.57 rad: Int(89.95 + 90.5)
        elevation = self.program.go_to(WORDS["turning"][1])
        press("Home")
        shown(90, -90)  # Int(-89.95 + 0.5)
        self.assertEqual((azimuth.value, elevation.value), (0, -157))
        self.program.go_to(WORDS["picture"])
        press("plus", "Left", "Down", "minus")
        develop, redraw, labels, _ = WORDS["buttons"]
        self.program.push(window, redraw)
        shown(90, 0)
        self.program.push(window, develop)
        wait("the panels", lambda: WORDS["flat"] in picture.description)
        self.program.push(window, labels)
        outline = re.escape(WORDS["outline"] % ("NEWSAIL", 5000, self.gaff, self.leech, 4000))
        wait("the labels", lambda: re.match(outline, picture.description))

    def give_file(self, name):
        """Types the path of a file into the dialog in front, by which it is accepted."""

        def field():
            node = self.program.focus()
            return node if node and node.role == "text" else None

        node = wait("the file dialog", field)
        press("ctrl+a")
        type_text(self.path(name))
        wait("the typed path", lambda: node.text == self.path(name))
        press("Return")

    def save_and_export(self):
        self.pick(WORDS["file"], WORDS["save"], WORDS["data"])
        self.give_file("Genoa.bv3")
        with open(self.file("Genoa.bv3"), encoding="cp1252", newline="") as file:
            lines = file.read().split("\r\n")
        self.assertEqual(lines[1], "Genoa")
        self.assertIn(" 5000", lines)
        self.program.window(WORDS["drawing"] + "Genoa")
        self.pick(WORDS["file"], WORDS["save"], WORDS["panels dxf"])
        self.give_file("Genoa.dxf")
        self.agree_to("Genoa_Panel01.DXF", WORDS["drawing"])
        self.assertGreater(len(glob.glob(self.path("Genoa_Panel*.DXF"))), 3)

    def open_again(self):
        self.pick(WORDS["file"], "Nouveau" if WORDS is FRENCH else "New")
        window = self.program.window(WORDS["dimensions"])
        luff = window.find("text", WORDS["fields"][1])
        wait("the first luff", lambda: luff.text == "4550")
        self.program.push(window, WORDS["fields"][-1])
        self.program.window(WORDS["drawing"])
        press("ctrl+o")
        self.give_file("Genoa.bv3")
        self.program.window(WORDS["drawing"] + "Genoa")
        press("alt+d")
        self.program.window(WORDS["dimensions"])
        self.assertEqual(luff.text, "5000")
        self.assertEqual(self.results(window)[0], self.leech)
        press("Escape")
        self.program.window(WORDS["drawing"])

    def print_to_pdf(self):
        self.pick(WORDS["file"], WORDS["print"], "Printer setup")
        setup = self.program.window("Printer setup")
        self.check_names(setup)
        path = self.program.go_to(WORDS["printer"][1])
        press("ctrl+a")
        type_text(self.path("Genoa.pdf"))
        wait("the path", lambda: path.text == self.path("Genoa.pdf"))
        press("Return")
        self.program.window(WORDS["drawing"])
        self.pick(WORDS["file"], WORDS["print"], WORDS["paper"])
        listing = subprocess.run(["pdftotext", "-layout", self.file("Genoa.pdf"), "-"],
                                 check=True, capture_output=True, text=True).stdout
        self.assertIn("Genoa", listing)
        self.assertRegex(listing, r"\b5000\b|\b5\.000\b")

    def change_mould(self):
        self.pick(list(WORDS["menus"])[2])
        window = self.program.window(WORDS["mould"])
        picture = window.find("image", WORDS["profiles"][0])
        fifth = next(node for node in window.everything() if node.name.startswith(WORDS["fifth"]))
        before = (picture.description, fifth.name)
        stops = WORDS["mould stops"]
        self.program.type_in(stops[4], "14")
        bar = self.program.go_to(stops[1])
        press("Up", "Up")
        wait("the shape", lambda: bar.description == "3.2")
        wait("another profile", lambda: (picture.description, fifth.name) != before)
        self.program.push(window, stops[-1])
        self.program.window(WORDS["drawing"])
        self.program.focus_on(WORDS["buttons"][0])

    def size_patches(self):
        self.pick(list(WORDS["menus"])[3])
        window = self.program.window(WORDS["patches"])
        self.program.type_in(WORDS["patch stops"][2], "20")
        picture = window.find("image", WORDS["patch picture"])
        wait("the patch in words", lambda: WORDS["patch words"] in picture.description)
        self.program.push(window, WORDS["patch stops"][-3])
        self.agree_to("Patches.BP4", WORDS["patches"])
        self.file("Patches.bp4")
        self.program.push(window, WORDS["patch stops"][-1])
        self.program.window(WORDS["drawing"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
