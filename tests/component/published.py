#!/usr/bin/env python3
"""Reads what a build publishes back from the files themselves and compares it with the fixed list of slots.

    published.py idl SLOTS ENUMERATIONS VESTREL_TABLES    the interface text that the tool prints
    published.py tlb SLOTS ENUMERATIONS FILE              a type library

Both are turned into the notation of slots.txt and enumerations.txt. Every argument travels both ways at this boundary, so the list's
"in out " and "out " are left aside here. Ends with status 1, and the lines that differ, when something does.
"""
import difflib
import re
import struct
import subprocess
import sys

PLAIN = {
    "VARIANT_BOOL": "boolean", "unsigned char": "byte", "short": "short", "long": "long", "float": "single",
    "BSTR": "string", "VARIANT": "variant", "IDispatch*": "object", "SAFEARRAY(VARIANT)": "array",
}


def fixed_lines(path):
    with open(path, encoding="utf-8") as file:
        return [re.sub(r"\b(in out|out) (?=\w+: )", "", line.rstrip("\n")) for line in file]


def slot_line(ident, kind, name, arguments, by_value, result):
    """One line of the list. arguments: (name, type, default or None)."""
    texts = [f"{a}: {t}" + ("" if d is None else f" = {d}") for a, t, d in arguments]
    return (f"  {ident} {kind}{name}({', '.join(texts)})" + (" by value" if by_value else "")
            + (f": {result}" if result else ""))


# ---- The interface text


def idl_type(text):
    text = text.strip()
    if text in PLAIN:
        return PLAIN[text]
    return text[1:-1] if text.startswith("_") and text.endswith("*") else text


def idl_default(attributes, kind, members):
    if "optional" not in attributes:
        return None
    match = re.search(r'defaultvalue\(("(?:[^"\\]|\\.)*"|[^)]*)\)', attributes)
    if not match:
        return "none"
    text = match.group(1)
    if text.startswith('"'):
        return '"' + re.sub(r"\\(.)", r"\1", text[1:-1]) + '"'
    if kind == "boolean":
        return "true" if int(text) else "false"
    return str(members.get(text, text))


def idl_argument(text, members):
    """(attributes, name, type, default, by reference) of "[in, out] long* index"."""
    match = re.fullmatch(r"\[((?:[^\]\"]|\"(?:[^\"\\]|\\.)*\")*)\] (.*?)(\*?) (\w+)", text.strip(), re.S)
    attributes, kind, star, name = match.groups()
    by_reference = "out" in attributes.split(", ")[:2] and star
    kind = idl_type(kind + (star if not by_reference else ""))
    # A word of the language cannot stand as a name there.
    name = "default" if name == "default_" else name
    return attributes, name, kind, idl_default(attributes, kind, members), by_reference


def idl_slot(attributes, name, text, members):
    ident = re.search(r"id\((\d+)\)", attributes).group(1)
    kind = next((k + " " for k in ("propputref", "propput", "propget") if k in attributes), "")
    parts = [idl_argument(part, members) for part in re.split(r",\n\s+", text)] if text else []
    result = ""
    if parts and "retval" in parts[-1][0]:
        result = parts.pop()[2]
    values = [not part[4] for part in parts]
    if kind.startswith("propput"):
        assert values[-1] and not any(values[:-1]), name
    by_value = kind == "" and bool(values) and all(values)
    assert by_value or kind or not any(values), name
    return slot_line(ident, kind.replace("prop", ""), name, [part[1:4] for part in parts], by_value, result)


def idl_lines(text):
    members = {name: int(value) for name, value in re.findall(r"^    (\w+) = (-?\d+),?$", text, re.M)}
    lines = []
    for interface, body in re.findall(r"\n  interface _(\w+) : IDispatch\n  \{\n(.*?)\n  \}", text, re.S):
        lines.append(interface)
        for attributes, name, arguments in re.findall(
                r"^    \[((?:[^\]\"]|\"(?:[^\"\\]|\\.)*\")*)\]\n    HRESULT (\w+)\((.*?)\);$", body, re.M | re.S):
            lines.append(idl_slot(attributes, name, arguments, members))
    return lines


def idl_enumerations(text):
    lines = []
    for body, name in re.findall(r"enum \w+ \{\n(.*?)\n  \} (\w+);", text, re.S):
        lines += [f"{name} {member} {value}" for member, value in re.findall(r"(\w+) = (-?\d+)", body)]
    return lines


def idl_record(text):
    body = re.search(r"struct TUIFaderValues \{\n(.*?)\n  \} TUIFaderValues;", text, re.S).group(1)
    # The language tells sizes alone.
    return [f"{name} 1 to {size}" for name, size in re.findall(r"^    long (\w+)\[(\d+)\];$", body, re.M)]


def idl_classes(text):
    """Each class with its interfaces, its own first."""
    return [" ".join([name, *re.findall(r"interface _(\w+);", body)])
            for name, body in re.findall(r"\n  coclass (\w+)\n  \{\n(.*?)\n  \}", text, re.S)]


# ---- The type library


class TypeLibrary:
    """A type library file as far as needed: names, functions in order, their arguments and defaults."""

    PLAIN = {2: "short", 3: "long", 4: "single", 8: "string", 9: "object", 11: "boolean", 12: "variant", 17: "byte"}
    POINTER, ARRAY, NAMED = 26, 27, 29
    ENUMERATION, RECORD, INTERFACE, DISPATCH, CLASS = 0, 1, 3, 4, 5
    LONG, FIXED_ARRAY = 3, 28

    def __init__(self, data):
        self.data = data
        assert data[:4] == b"MSFT"
        count = self.word(0x20)
        directory = 0x54 + (4 if self.word(0x14) & 0x100 else 0) + 4 * count
        self.segments = [self.word(directory + 16 * i) for i in range(15)]
        self.types = [self.segments[0] + 100 * i for i in range(count)]

    def word(self, at):
        return struct.unpack_from("<i", self.data, at)[0]

    def name(self, offset):
        at = self.segments[7] + offset
        length = self.data[at + 8]
        return self.data[at + 12:at + 12 + length].decode("latin-1")

    def type_name(self, at):
        return self.name(self.word(at + 0x34))

    def described(self, word):
        """A type as the list writes it, and whether it is a pointer."""
        if word < 0:
            return self.PLAIN.get(word & 0xFF, f"type {word & 0xFF}"), False
        at = self.segments[9] + word
        kind, more = struct.unpack_from("<h", self.data, at)[0] & 0xFF, self.word(at + 4)
        if kind == self.POINTER:
            inner, pointer = self.described(more)
            # A pointer to an interface is an object; one more star makes it travel by reference.
            return (inner[1:] or "object", False) if inner.startswith("_") and not pointer else (inner, True)
        if kind == self.ARRAY:
            return "array", False
        if kind == self.NAMED:
            if more & 1:  # of another library: the only one used is IDispatch
                return "_", False
            target = self.segments[0] + more
            name = self.type_name(target)
            return ("_" + name.lstrip("_") if self.word(target) & 0xF in (self.INTERFACE, self.DISPATCH) else name), False
        return f"kind {kind}", False

    def default(self, word, kind):
        if word == -1:
            return "none"
        if word < 0:
            value = word & 0x3FFFFFF
            value = value - 0x4000000 if value & 0x2000000 else value
            tag = (word >> 26) & 0x1F
        else:
            at = self.segments[11] + word
            tag = struct.unpack_from("<H", self.data, at)[0]
            if tag == 8:
                length = struct.unpack_from("<i", self.data, at + 2)[0]
                return '"' + self.data[at + 6:at + 6 + max(length, 0)].decode("latin-1") + '"'
            value = struct.unpack_from("<i", self.data, at + 2)[0]
        if kind == "boolean":
            return "true" if value else "false"
        if tag == 4:  # the bits of a number with a fraction
            value = struct.unpack("<f", struct.pack("<i", value))[0]
            value = int(value) if value == int(value) else value
        return str(value)

    def variables(self, at):
        """The members of an enumeration or a record: (name, type, value or offset)."""
        counts = self.word(at + 0x18)
        functions, count = counts & 0xFFFF, counts >> 16
        place = self.word(at + 4)
        record = place + 4
        names = record + self.word(place) + 4 * (functions + count)
        result = []
        for i in range(count):
            result.append((self.name(self.word(names + 4 * i)), self.word(record + 4), self.word(record + 16)))
            record += self.word(record) & 0xFFFF
        return result

    def enumerations(self):
        lines = []
        for at in self.types:
            if self.word(at) & 0xF == self.ENUMERATION:
                name = self.type_name(at)
                lines += [f"{name} {member} {self.default(value, 'long')}" for member, _, value in self.variables(at)]
        return lines

    def classes(self):
        """Each class with its interfaces, its own first."""
        return [f"{self.type_name(at)} {' '.join(self.implemented(at))}"
                for at in self.types if self.word(at) & 0xF == self.CLASS]

    def implemented(self, at):
        names = []
        reference = self.word(at + 0x54)
        while reference != -1:
            record = self.segments[3] + reference
            target = self.word(record)
            assert target & 3 == 0  # in this library
            names.append(self.type_name(self.segments[0] + target)[1:])
            assert (self.word(record + 4) & 1 == 1) == (len(names) == 1)  # the first is the default
            reference = self.word(record + 12)
        assert len(names) == struct.unpack_from("<h", self.data, at + 0x4C)[0]
        return names

    def record(self, wanted):
        """The members of a record of arrays of long, with their bounds."""
        for at in self.types:
            if self.word(at) & 0xF == self.RECORD and self.type_name(at) == wanted:
                return [f"{name} {self.array_bounds(kind)}" for name, kind, _ in self.variables(at)]
        return []

    def array_bounds(self, word):
        at = self.segments[9] + word
        assert struct.unpack_from("<h", self.data, at)[0] & 0xFF == self.FIXED_ARRAY
        array = self.segments[10] + self.word(at + 4)
        assert self.word(array) & 0x7FFF == self.LONG
        size, lower = self.word(array + 8), self.word(array + 12)
        return f"{lower} to {lower + size - 1}"

    def function(self, record, ident, name):
        size = self.word(record) & 0xFFFF
        kinds = self.word(record + 16)
        count = struct.unpack_from("<h", self.data, record + 20)[0]
        arguments = record + size - 12 * count
        defaults = arguments - 4 * count if kinds & 0x1000 else None
        kind = {1: "", 2: "get ", 4: "put ", 8: "putref "}[(kinds >> 3) & 0xF]
        parts, pointers, result = [], [], ""
        for i in range(count):
            type_word, name_offset, flags = struct.unpack_from("<iii", self.data, arguments + 12 * i)
            text, pointer = self.described(type_word)
            if flags & 0x8:
                result = text
                continue
            default = None
            if flags & 0x10:
                default = self.default(self.word(defaults + 4 * i) if defaults else -1, text)
            elif flags & 0x20:
                default = self.default(self.word(defaults + 4 * i), text)
            # The value of a property has no name of its own there.
            parts.append((self.name(name_offset) if name_offset != -1 else "value", text, default))
            pointers.append(pointer)
        by_value = kind == "" and bool(parts) and not any(pointers)
        return slot_line(ident, kind, name, parts, by_value, result)

    def interfaces(self):
        """The lines of each class."""
        result = {}
        for at in self.types:
            name = self.type_name(at)
            if self.word(at) & 0xF not in (self.INTERFACE, self.DISPATCH) or not name.startswith("_"):
                continue
            count = self.word(at + 0x18) & 0xFFFF
            place = self.word(at + 4)
            tables = place + 4 + self.word(place)
            idents = [self.word(tables + 4 * i) for i in range(count)]
            names = [self.word(tables + 4 * (count + i)) for i in range(count)]
            record = place + 4
            slots = []
            for ident, offset in zip(idents, names):
                vtable = struct.unpack_from("<h", self.data, record + 12)[0]
                slots.append((vtable & ~1, self.function(record, ident, self.name(offset))))
                record += self.word(record) & 0xFFFF
            result[name[1:]] = [line for _, line in sorted(slots, key=lambda slot: slot[0])]
        return result


def fixed_classes(slots):
    """Each class with its interfaces, which its slots of prefixed names tell."""
    result = {}
    for line in slots:
        if not line.startswith(" "):
            names = result.setdefault(line, [line])
            continue
        interface = re.match(r"  \d+ (?:\w+ )?(I\w+?)_\w+\(", line)
        if interface and interface.group(1) not in names:
            names.append(interface.group(1))
    return [f"{name} {' '.join(names)}" for name, names in result.items()]


def compare(what, expected, actual):
    if expected == actual:
        print(f"{what}: {len(expected)} lines agree")
        return 0
    print("\n".join(difflib.unified_diff(expected, actual, "fixed", "published", lineterm="", n=0)))
    return 1


def read_text(tool):
    text = subprocess.run([tool, "idl"], check=True, capture_output=True, encoding="utf-8").stdout
    return idl_lines(text), idl_enumerations(text), idl_record(text), idl_classes(text)


def read_library(path, fixed):
    with open(path, "rb") as file:
        library = TypeLibrary(file.read())
    # The order of the types is the compiler's own; that of their slots is not.
    order = {line: i for i, line in enumerate(fixed)}
    interfaces = library.interfaces()
    lines = []
    for name in sorted(interfaces, key=lambda name: order.get(name, len(fixed))):
        lines += [name] + interfaces[name]
    return lines, library.enumerations(), library.record("TUIFaderValues"), library.classes()


def main(what, slots, enumerations, source):
    fixed = fixed_lines(slots)
    lines, members, record, classes = read_text(source) if what == "idl" else read_library(source, fixed)
    wrong = compare("slots", fixed, lines)
    wrong += compare("enumerations", sorted(fixed_lines(enumerations)), sorted(members))
    wrong += compare("classes", sorted(fixed_classes(fixed)), sorted(classes))
    wrong += compare("record", ["GroupFaders 1 to 8", "BumpFaders 1 to 8"], record)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
