"""The small changes that tools/mutate makes: found line by line, in a layout that clang-format keeps."""
import collections
import dataclasses
import hashlib
import os
import re

FOLDERS = ("storage", "model", "controller", "recording")


@dataclasses.dataclass(frozen=True)
class Change:
    path: str
    line: int  # from 1
    what: str
    before: str
    after: str
    key: str  # the same wherever in its file the line stands

    def __str__(self):
        def flat(text):
            return " ".join(text.split())

        return f"{self.path}:{self.line}\t{self.what}\t{flat(self.before)} => {flat(self.after) or '(nothing)'}"


# What is looked for and what is put there, by kind.
SIGNS = {
    "comparison flipped": {" == ": " != ", " != ": " == ", " < ": " >= ", " > ": " <= ", " <= ": " > ", " >= ": " < "},
    "boundary moved": {" < ": " <= ", " > ": " >= ", " <= ": " < ", " >= ": " > "},
    "and, or exchanged": {" && ": " || ", " || ": " && "},
    "plus, minus exchanged": {" + ": " - ", " - ": " + ", " += ": " -= ", " -= ": " += ", "++": "--", "--": "++"},
    "truth exchanged": {"true": "false", "false": "true"},
    "continue, break exchanged": {"continue;": "break;", "break;": "continue;"},
}
SIGN = {what: re.compile("|".join(r"\b" * old[0].isalpha() + re.escape(old) for old in swaps))
        for what, swaps in SIGNS.items()}
NUMBER = re.compile(r"(?<![\w.'])\d+(?![\w.'])")
CONDITION = re.compile(r"\b(?:if|while) \(")
RETURN = re.compile(r"\breturn (?!\{\};)(.+);$", re.DOTALL)
TEXT = re.compile(r"""u8?"(?:\\.|[^"\\])*"|"(?:\\.|[^"\\])*"|u?'(?:\\.|[^'\\])+'""")
NOT_CHANGED = re.compile(r"\s*(#|//|namespace\b|using\b|static_assert\b|template\b|class\b|struct\b|enum\b|friend\b)")
FUNCTION = re.compile(r"\s*(?:static |constexpr )*\w[\w:<>*& ]* [\w:~]+\(")
PREDICATE = re.compile(r"\s*(?:static |constexpr )*bool ")
LOGS = re.compile(r"\bmodLog::")
# A statement that can go: neither a jump nor a declaration.
REMOVABLE = re.compile(r"\s+(?!(?:return|throw|const|auto|case|default|else|static|constexpr|break|continue)\b)"
                       r"(?![\w:<>,*& ]+ \w+(?: =|[({;]))[\w+\-*(].*;$", re.DOTALL)
IF_WITH_BODY = re.compile(r"\s+(if|while|for) \(")


def without_text(code):
    """The code with strings, characters and comments blotted out, each sign where it was."""
    blotted = TEXT.sub(lambda found: "\0" * len(found.group()), code)
    return re.sub(r"//.*", lambda found: "\0" * len(found.group()), blotted)


def closing(code, opening):
    """Where the parenthesis that opens at `opening` closes, or None."""
    depth = 0
    for at in range(opening, len(code)):
        depth += (code[at] == "(") - (code[at] == ")")
        if depth == 0:
            return at
    return None


def sign_changes(line, code):
    for what, swaps in SIGNS.items():
        for found in SIGN[what].finditer(code):
            yield what, line[:found.start()] + swaps[found.group()] + line[found.end():]


def number_changes(line, code):
    for found in NUMBER.finditer(code):
        for new in (int(found.group()) + 1, int(found.group()) - 1):
            yield "constant off by one", f"{line[:found.start()]}{new}{line[found.end():]}"


def condition_changes(line, code):
    for found in CONDITION.finditer(code):
        opening, end = found.end() - 1, closing(code, found.end() - 1)
        if end and not re.search(r" = |;", code[opening:end]):
            yield "condition negated", f"{line[:opening]}(!{line[opening:end + 1]}){line[end + 1:]}"


def statement_changes(statement, code, answers_bool):
    code = code.rstrip(" \0")
    returned = RETURN.search(code)
    if returned:
        start, end = returned.span(1)
        value = statement[start:end]
        if value not in ("0", "false", "nullptr"):
            yield "return value changed", statement[:start] + "{}" + statement[end:]
        if answers_bool and value not in ("true", "false"):
            yield "return value changed", f"{statement[:start]}!({value}){statement[end:]}"
    if REMOVABLE.match(code) or IF_WITH_BODY.match(code):
        indent = len(statement) - len(statement.lstrip())
        yield "statement removed", statement[:indent] + ";" + "\n" * statement.count("\n")


def statements(lines, codes):
    """(first line, number of lines) of each statement, and of each `if` with a statement on its own line."""
    first = None
    for number, code in enumerate(codes):
        if first is None and code.strip(" \0"):
            first = number
        if first is None:
            continue
        whole = "\n".join(codes[first:number + 1])
        if code.endswith(("{", "}", ":")) or NOT_CHANGED.match(lines[first]):
            first = None
        elif code.rstrip(" \0").endswith(";"):
            if whole.count("(") == whole.count(")") and whole.count("{") == whole.count("}"):
                yield first, number + 1 - first
            first = None


def raw_changes(lines):
    """(line from 0, what, lines before, lines after) of every change to a file, in order."""
    codes = [without_text(line) for line in lines]
    spans = list(statements(lines, codes))
    silent = {at for first, count in spans if LOGS.search("\n".join(codes[first:first + count]))
              for at in range(first, first + count)}
    answers_bool = False
    starts = dict(spans)
    for at, (line, code) in enumerate(zip(lines, codes)):
        if FUNCTION.match(code) and not code.endswith(";"):
            answers_bool = PREDICATE.match(code) is not None
        if at in silent or NOT_CHANGED.match(line):
            continue
        for changes in (sign_changes, number_changes, condition_changes):
            for what, after in changes(line, code):
                yield at, what, line, after
        if at in starts and not (at + starts[at] < len(lines) and lines[at + starts[at]].lstrip().startswith("else")):
            whole = "\n".join(lines[at:at + starts[at]])
            for what, after in statement_changes(whole, without_text(whole), answers_bool):
                yield at, what, whole, after


def changes_of(path, text):
    """Every change to the text of a file."""
    seen = collections.Counter()
    for at, what, before, after in raw_changes(text.split("\n")):
        same = (path, what, before.strip(), after.strip())
        seen[same] += 1
        key = hashlib.sha256(repr((same, seen[same])).encode()).hexdigest()[:10]
        yield Change(path, at + 1, what, before, after, key)


def all_changes(root, folders=FOLDERS):
    for folder in folders:
        for name in sorted(os.listdir(os.path.join(root, folder))):
            if name.endswith(".cpp"):
                with open(os.path.join(root, folder, name), encoding="utf-8") as file:
                    yield from changes_of(f"{folder}/{name}", file.read())


def sampled(root, seed, folders=FOLDERS):
    """All changes in an order made by chance: each change's place in it stays when others come or go."""
    return sorted(all_changes(root, folders),
                  key=lambda change: hashlib.sha256(f"{seed} {change.key}".encode()).digest())


def applied(change, text):
    """The text of the file with the change made."""
    lines = text.split("\n")
    count = change.before.count("\n") + 1
    assert "\n".join(lines[change.line - 1:change.line - 1 + count]) == change.before, change
    lines[change.line - 1:change.line - 1 + count] = change.after.split("\n")
    return "\n".join(lines)
