"""The changes that can be made to the core's sources, and how a switch is written for each."""

import re
from dataclasses import dataclass

SWAPS = {
    "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&",
    "+": "-", "-": "+", "*": "/", "/": "*", "+=": "-=", "-=": "+=", "++": "--",
    "true": "false", "false": "true",
}
# An operator between two operands stands between blanks, or at the end of a line.
OPERATORS = re.compile(r"(?<= )(?:[<>=!+-]=|[<>+*/-]|&&|\|\|)(?=\s)|\+\+|\b(?:true|false)\b")
NUMBER = re.compile(r"(?<![\w.'])(\d+\.\d+(?:e-?\d+)?|\d+(?:e-?\d+)?)(?![\w.'])")
NAMES = "brivane::mutation::"


@dataclass(frozen=True)
class Change:
    """One change: in a source, from one place of its text to another, these words instead. What it
    is called does not depend on line numbers: the function, the line's text, the how many-th."""
    source: str
    start: int
    end: int
    instead: str
    function: str
    line: str
    nth: int
    was: str

    @property
    def name(self):
        nth = f" ({self.nth})" if self.nth > 1 else ""
        return f"{self.source} {self.function}: {self.was} -> {self.instead}{nth}: {self.line}"


def code_of(text):
    """The text with strings, characters, comments and the preprocessor's lines blanked out, its
    length and its lines kept."""
    blank = lambda found: re.sub(r"[^\n]", " ", found.group())
    text = re.sub(r'"(?:\\.|[^"\\\n])*"|(?<![0-9])\'(?:\\.|[^\'\\\n])+\'|//[^\n]*', blank, text)
    return re.sub(r"(?m)^\s*(?:#|template|using |static_assert)[^\n]*", blank, text)


def other_number(text):
    if re.fullmatch(r"\d+", text):
        return str(int(text) + 1)
    value = float(text)
    return repr(value * 1.1 if value else 1.0)


def functions_of(code):
    """For each line the function, or the variable, that it belongs to."""
    outer, inner, names = "", "", []
    for line in code.splitlines():
        if re.match(r"[A-Za-z_]", line) and not line.startswith(("namespace", "public", "private")):
            kind = re.match(r"(?:struct|class|enum class)\s+(\w+)", line)
            call = re.search(r"(operator\S+|[\w:~]+)\(", line)
            value = re.search(r"(\w+)(?:\[\w*\])?\s*(?:=|\{|;|$)", line)
            found = kind or (value if value and (not call or "=" in line[:call.start()]) else call)
            if found and not (kind and line.rstrip().endswith(";") and "{" not in line):
                outer, inner = found.group(1), ""
        elif re.match(r"  [A-Za-z_~]", line) and re.search(r"\)[^;]*\{|\)\s*$|\) :", line):
            call = re.search(r"(operator\S+|[\w~]+)\(", line)
            if call and call.group(1) not in ("if", "for", "while", "switch", "static_cast"):
                inner = call.group(1)
        names.append((outer, inner))
    # Only what stands in a class has an inner name.
    classes = set(re.findall(r"(?m)^(?:struct|class)\s+(\w+)[^;]*\{", code))
    return [f"{o}::{i}" if i and o in classes else o for o, i in names]


def changes_of(source, text):
    code = code_of(text)
    functions = functions_of(code)
    lines = text.splitlines()
    seen = {}
    found = [(m.start(), m.end(), SWAPS[m.group()]) for m in OPERATORS.finditer(code)]
    found += [(m.start(), m.end(), other_number(m.group())) for m in NUMBER.finditer(code)]
    for start, end, instead in sorted(found):
        number = text.count("\n", 0, start)
        was = text[start:end]
        key = (functions[number], lines[number].strip(), was)
        seen[key] = seen.get(key, 0) + 1
        yield Change(source, start, end, instead, key[0], key[1], seen[key], was)


def changed(text, change):
    return text[:change.start] + change.instead + text[change.end:]


def operand_start(code, at):
    """Where the operand begins that ends before a "&&" or "||"; both bind to the left, "&&" first."""
    depth, stop_at_or = 0, code[at:at + 2] == "&&"
    k = at - 1
    while k >= 0:
        c = code[k]
        if c in ")]}":
            depth += 1
        elif c in "([{":
            if depth == 0:
                break
            depth -= 1
        elif depth == 0:
            if c in ",;?" or (c == "|" and stop_at_or):
                break
            if c == ":" and code[k - 1] != ":" and code[k + 1] != ":":
                break
            if c == "=" and code[k - 1] not in "=!<>" and code[k + 1] != "=":
                break
        k -= 1
    k += 1
    return k + re.match(r"\s*(?:return\b\s*)?", code[k:at]).end()


def operand_end(code, at):
    """Where the operand ends that begins behind a "&&" or "||"."""
    depth, ands = 0, code[at:at + 2] == "&&"
    k = at + 2
    while k < len(code):
        c = code[k]
        if c in "([{":
            depth += 1
        elif c in ")]}":
            if depth == 0:
                break
            depth -= 1
        elif depth == 0:
            if c in ",;?" or code[k:k + 2] == "||" or (ands and code[k:k + 2] == "&&"):
                break
            if c == ":" and code[k - 1] != ":" and code[k + 1] != ":":
                break
        k += 1
    return at + 2 + len(code[at + 2:k].rstrip())


def switched(text, numbered):
    """The text with a switch for each of the numbered changes, line for line."""
    code = code_of(text)
    pieces = []  # (place, order at one place, end, what is put there)

    def put(place, order, end, words):
        pieces.append((place, order, end, words))

    for number, change in numbered:
        start, end, was, instead = change.start, change.end, change.was, change.instead
        if was in ("&&", "||"):
            low, high = operand_start(code, start), operand_end(code, start)
            name = "Both" if was == "&&" else "Either"
            opened = "[&]() -> bool { return static_cast<bool>("
            put(low, (1, -high), low, f"{NAMES}{name}<{number}>({opened}")
            put(start, (2, 0), end, f"); }}, {opened}")
            put(high, (0, 0), high, "); })")
        elif was == "++":
            before = re.match(r"\s*[\w(*]", code[end:])
            if re.search(r"[\w)\]]$", code[:start]):
                put(start, (2, 0), end, f"->*{NAMES}After<{number}>{{}}")
            elif before:
                put(start, (2, 0), end, f"{NAMES}Before<{number}>{{}}->*")
        elif re.match(r"[\w.]", was):
            put(start, (2, 0), end, f"{NAMES}Value<{number}>({was}, {instead})")
        else:
            put(start, (2, 0), end, f"{was} {NAMES}Change<{number}>{{}} {was}")
    out, at = [], 0
    for place, _, end, words in sorted(pieces):
        out += [text[at:place], words]
        at = end
    return "".join(out) + text[at:]
