#!/usr/bin/env python3
"""Fails when a text that the program looks up has no row, or is not the row's exact text. Run from the repository root."""
import re
import sys
from pathlib import Path

STRING = r'u"((?:[^"\\]|\\.)*)"'
ROW = re.compile(r"^    \{((?:\s*" + STRING + r")+),", re.MULTILINE)
CALL = re.compile(r"L10n::t\(((?:\s*" + STRING + r")+)")

source = Path("src")


def joined(literals):
    return "".join(re.findall(STRING, literals))


rows = {joined(row[1]) for path in (source / "l10n").glob("*Texts.cpp") for row in ROW.finditer(path.read_text("utf-8"))}
found = []
for path in sorted(source.rglob("*.cpp")):
    for call in CALL.finditer(path.read_text("utf-8")):
        if joined(call[1]) not in rows:
            found.append(f'{path}: no row for "{joined(call[1])}"')
print("\n".join(found) or f"texts: {len(rows)} rows in order")
sys.exit(bool(found))
