#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Holds the includes under src/ against the arrows between its folders.

usage: check_includes.py SRC
A folder may include its own headers and those of the folders that it stands on. No Qt header
belongs into the folders that work without Qt. Prints what is wrong; status 1 if anything is.
"""

import re
import sys
from pathlib import Path

ALLOWED = {
    "base": set(),
    "dsp": set(),
    "wav": {"dsp"},
    "analysis": {"wav", "dsp"},
    "export": {"wav", "dsp"},
    "playback": {"base", "wav", "dsp"},
    "midi": {"base"},
    "controls": set(),
    "queue": {"export", "base"},
    "dialogs": {"controls", "queue", "export", "base"},
    "app": {"base", "dsp", "wav", "export", "queue", "playback", "midi", "controls", "dialogs"},
    "recorder-sim": {"midi"},
    "cli": {"base", "dsp", "wav", "analysis", "export", "playback", "midi"},
}
WITHOUT_QT = {"dsp", "wav", "export", "analysis"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^">]+)[">]', re.MULTILINE)


def faults(folder, text):
    """What is wrong with the includes of one file of `folder`."""
    for quote, name in INCLUDE.findall(text):
        top = name.split("/")[0]
        if top in ALLOWED and top != folder and top not in ALLOWED[folder]:
            yield f"{folder} may not include {name}"
        if folder in WITHOUT_QT and re.match(r"Q[A-Z]|Qt[A-Z]", top):
            yield f"{folder} does without Qt, but includes {name}"
        if quote == '"' and top not in ALLOWED:
            yield f"{name} is not named by its folder"


def check(src):
    found = []
    for path in sorted(src.rglob("*")):
        if path.suffix not in {".h", ".cpp", ".in"}:
            continue
        folder = path.relative_to(src).parts[0]
        if folder not in ALLOWED:
            found.append(f"{path}: the folder {folder} is not on the map")
            continue
        found += [f"{path}: {fault}" for fault in faults(folder, path.read_text("utf-8"))]
    return found


def main():
    src = Path(sys.argv[1])
    found = check(src)
    files = len([p for p in src.rglob("*.cpp")])
    if files == 0:
        found.append(f"{src}: no sources found")
    print("\n".join(found) if found else f"{files} sources keep to the arrows")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
