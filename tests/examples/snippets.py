#!/usr/bin/env python3
"""Puts the pieces of code of one kind in a Markdown file together, so that they can be compiled or run.

    snippets.py cpp | com | vbs | js | xml FILE

prints them one after the other. A piece begins with the line ```cpp, ```cpp com, ```vbs, ```js or ```xml; "body" behind
it, as in ```cpp body, marks statements, which are put into a function of their own. Scripts get the data folder as
`folder` from their first argument and end with a line that tells that they came to their end; the one in VBScript calls
its own CloseHost before that.
"""
import re
import sys

FENCE = re.compile(r"^```(\w+)(?: (com))?(?: (body))?\n(.*?)^```$", re.MULTILINE | re.DOTALL)

NATIVE_HEAD = """#include "controller/clsButtonGroupController.h"
#include "core/Error.h"
#include "core/Ref.h"
#include "model/clsButton.h"
#include "recording/clsRecordController.h"
#include "util/VestrelStatic.h"
using namespace vestrel;
"""
COM_HEAD = """#include "examples/cpp-com/Com.h"
"""
NATIVE_ARGUMENTS = ("const Ref<clsButtonGroupController>& controller", "const Ref<clsRecordController>& recorder")
COM_ARGUMENTS = ("const com::Pointer<_clsButtonGroupController>& controller",)

END = "the end of the guide"


def pieces(text, kind):
    """The pieces of a kind as pairs (whether it is a body, text), in order."""
    for language, com, body, code in FENCE.findall(text):
        if (com or language) == kind:
            yield bool(body), code


def program(found, head, arguments):
    parts = [head]
    parameters = ", ".join("[[maybe_unused]] " + argument for argument in arguments)
    for number, (is_body, code) in enumerate(found):
        parts.append(f"void Piece{number}({parameters});\nvoid Piece{number}({parameters}) {{\n{code}}}\n" if is_body else code)
    return "\n".join(parts)


def script(found, head, end):
    return "\n".join([head] + [code for _, code in found] + [end])


def put_together(text, kind):
    """One source text of all pieces of the kind; raises ValueError when there is none."""
    found = list(pieces(text, kind))
    if not found:
        raise ValueError(f"there is no piece of {kind}")
    if kind == "cpp":
        return program(found, NATIVE_HEAD, NATIVE_ARGUMENTS)
    if kind == "com":
        return program(found, COM_HEAD, COM_ARGUMENTS)
    if kind == "vbs":
        return script(found, "Option Explicit\nDim folder\nfolder = WScript.Arguments(0)\n", f'CloseHost\nWScript.Echo "{END}"\n')
    if kind == "js":
        return script(found, "var folder = WScript.Arguments(0);\n", f'WScript.Echo("{END}");\n')
    return "".join(code for _, code in found)


def main(arguments):
    if len(arguments) != 2 or arguments[0] not in ("cpp", "com", "vbs", "js", "xml"):
        print(__doc__, file=sys.stderr)
        return 2
    with open(arguments[1], encoding="utf-8") as file:
        text = file.read()
    try:
        sys.stdout.write(put_together(text, arguments[0]))
    except ValueError as error:
        print(error, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
