"""A client of the accessibility interface that has a keyboard and no mouse."""

import os
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 60  # seconds, for a machine that has other things to do
STATE = Atspi.StateType
ROLE = Atspi.Role

# What has nothing below it.
LEAVES = {ROLE.PUSH_BUTTON, ROLE.RADIO_BUTTON, ROLE.LABEL, ROLE.TEXT, ROLE.IMAGE, ROLE.SCROLL_BAR,
          ROLE.SEPARATOR}


class Lost(AssertionError):
    """Something is not there, or did not happen in time."""


def wait(what, condition):
    """The first true value of the condition; Lost where none comes in time."""
    end = time.monotonic() + PATIENCE
    while True:
        try:
            value = condition()
        except GLib.Error:  # what was looked at has gone meanwhile
            value = None
        if value:
            return value
        if time.monotonic() > end:
            raise Lost(f"in vain waited for: {what}")
        time.sleep(0.01)


def press(*keys):
    """Presses keys by their X names, such as "alt+f", one after the other."""
    subprocess.run(["xdotool", "key", "--delay", "0", *keys], check=True)


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "1", text], check=True)


class Node:
    """A window, a control or a text as the interface tells of it; nothing is remembered."""

    def __init__(self, accessible):
        self.accessible = accessible

    def __eq__(self, other):
        return isinstance(other, Node) and self.accessible == other.accessible

    def __repr__(self):
        return f"{self.role} {self.name!r}"

    @property
    def role(self):
        return self.accessible.get_role_name()

    @property
    def name(self):
        return self.accessible.get_name() or ""

    @property
    def description(self):
        return self.accessible.get_description() or ""

    def has(self, state):
        return self.accessible.get_state_set().contains(state)

    @property
    def children(self):
        found = (self.accessible.get_child_at_index(i)
                 for i in range(self.accessible.get_child_count()))
        return [Node(child) for child in found if child]

    def walk(self):
        """All below that is shown, in the order in which it is read, each with its states."""
        if self.accessible.get_role() in LEAVES:
            return
        for child in self.children:
            states = child.accessible.get_state_set()
            if states.contains(STATE.SHOWING):
                yield child, states
                yield from child.walk()

    def everything(self):
        return (node for node, _ in self.walk())

    def find(self, role, name=None):
        """The first of that role, and of that name, below; None where there is none."""
        for node in self.everything():
            if node.role == role and name in (None, node.name):
                return node
        return None

    @property
    def text(self):
        return Atspi.Text.get_text(self.accessible, 0, -1)

    @property
    def value(self):
        return Atspi.Value.get_current_value(self.accessible)

    @property
    def shortcut(self):
        """What presses it, as X names it: "alt+c"."""
        binding = Atspi.Action.get_key_binding(self.accessible, 0)
        keys = binding.replace("<Alt>", "alt+").replace("Alt+", "alt+")
        if not keys.startswith("alt+"):
            raise Lost(f"{self} has no key: {binding!r}")
        return keys.lower()


class Program:
    """The program, started in a folder."""

    def __init__(self, path, folder):
        self.process = subprocess.Popen([path], cwd=folder, stdin=subprocess.DEVNULL,
                                        env={**os.environ, "LC_ALL": "C.UTF-8"})
        self.root = wait("the program on the accessibility bus", self._find)
        self.root.accessible.set_cache_mask(Atspi.Cache.NONE)

    def _find(self):
        if self.process.poll() is not None:
            raise Lost(f"the program has ended with {self.process.returncode}")
        for node in Node(Atspi.get_desktop(0)).children:
            if node.accessible.get_process_id() == self.process.pid and node.children:
                return node
        return None

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()

    def ended(self):
        """The exit status, once the program has ended by itself."""
        try:
            return self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired as late:
            raise Lost("the program does not end") from late

    def front(self):
        """The window in front."""
        for window in self.root.children:
            if window.has(STATE.ACTIVE):
                return window
        return None

    def window(self, title):
        """The window whose title has these words, once it is in front and has the focus."""

        def there():
            window = self.front()
            return window if window and title in window.name and self.focus() else None

        return wait(f"the window {title!r} in front", there)

    def focus(self):
        """What has the focus in the window in front."""
        window = self.front()
        if window is None:
            return None
        focused = None  # a box that holds the control may say that it has the focus, too
        for node, states in window.walk():
            if states.contains(STATE.FOCUSED):
                focused = node
        return focused

    def focus_on(self, name):
        """What has that name, once it has the focus."""

        def there():
            node = self.focus()
            return node if node and node.name == name else None

        return wait(f"the focus on {name!r}", there)

    def press_and_move(self, key):
        """Presses a key that moves the focus, and tells where it is then."""
        before = self.focus()
        press(key)

        def moved():
            if before and before.has(STATE.FOCUSED):
                return None
            return self.focus()

        return wait(f"the focus to leave {before} by {key}", moved)

    def go_to(self, name, key="Tab"):
        """Presses the key until the control of that name has the focus."""
        node = self.focus()
        for _ in range(60):
            if node and node.name == name:
                return node
            node = self.press_and_move(key)
        raise Lost(f"{key} does not lead to {name!r}")

    def type_in(self, name, text):
        """Goes to a field by Tab, replaces its text and leaves it by Tab."""
        field = self.go_to(name)
        press("ctrl+a")
        type_text(text)
        wait(f"{text!r} in {name!r}", lambda: field.text == text)
        press("Tab")
        return field

    def push(self, window, name):
        """Presses a button by the key that it tells."""
        button = wait(f"the button {name!r}", lambda: window.find("push button", name))
        press(button.shortcut)
