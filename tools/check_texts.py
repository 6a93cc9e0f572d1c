#!/usr/bin/env python3
"""Fails when a text that the program looks up has no row, or is not the row's exact text, and when a row is never looked up. Run
from the repository root."""
import re
import sys
from pathlib import Path

STRING = r'u"((?:[^"\\]|\\.)*)"'
LITERALS = r"((?:\s*" + STRING + r")+)"
ROW = re.compile(r"^    \{" + LITERALS + ",", re.MULTILINE)
CALL = re.compile(r"L10n::t\(" + LITERALS)
# Where the text comes out of a table or through a function, every literal of that file that begins like one is a text.
INDIRECT = re.compile(r"L10n::t\((?!\s*u\")")
TITLE = re.compile(r"[A-ZÁÉÍÓÚÑ][a-záéíóúñ]")


def joined(literals):
    return "".join(re.findall(STRING, literals))


def texts(code):
    """What a file looks up."""
    looked_up = {joined(call[1]) for call in CALL.finditer(code)}
    if INDIRECT.search(code):
        looked_up |= {text for text in (joined(found[0]) for found in re.finditer(LITERALS, code)) if TITLE.match(text)}
    return looked_up


source = Path("src")
rows = {joined(row[1]) for path in (source / "l10n").glob("*Texts.cpp") for row in ROW.finditer(path.read_text("utf-8"))}
found = []
used = set()
for path in sorted(source.rglob("*.cpp")):
    if path.parent.name == "l10n":
        continue
    used |= (wanted := texts(path.read_text("utf-8")))
    found += [f'{path}: no row for "{text}"' for text in sorted(wanted - rows)]
found += [f'no file looks "{text}" up' for text in sorted(rows - used)]
print("\n".join(found) or f"texts: {len(rows)} rows in order")
sys.exit(bool(found))
