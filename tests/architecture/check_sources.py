#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Small rules that hold for every source file.

usage: check_sources.py ROOT
A pointer's shape is loaded at the start, two SPDX lines a file, no source over 400 lines, a source includes its own header first so that the
header is known to compile alone, clang-format has nothing to change. Prints what is wrong; status 1
if anything is.
"""

import re
import subprocess
import sys
from pathlib import Path

CODE = {".h", ".cpp"}
TAGGED = CODE | {".py", ".cmake"}
FOLDERS = ["src", "tests", "benchmarks", "fuzz", "cmake", "packaging", ".ci"]
LONGEST = 400
FORMATTER = 14  # of clang-format


def sources(root):
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            is_data = {"corpus", "regressions", "data", "__pycache__"} & set(path.parts)
            if path.is_file() and not is_data:
                yield path


def is_script(path):
    return path.suffix == "" and path.read_bytes().startswith(b"#!")


def includes_another_first(path):
    header = path.with_suffix(".h")
    if path.suffix != ".cpp" or not header.exists():
        return False
    first = re.search(r'^#include [<"](.*)[>"]', path.read_text("utf-8"), re.MULTILINE)
    return not (first and header.as_posix().endswith("/" + first[1]))


def ill_formatted(code):
    """What clang-format would change. Its releases put some things otherwise: one of them counts."""
    version = subprocess.run(["clang-format", "--version"], capture_output=True, text=True).stdout
    if f" {FORMATTER}." not in version:
        print(f"the format is not looked at: {version.strip()}, not {FORMATTER}")
        return []
    done = subprocess.run(["clang-format", "--dry-run", "-Werror", *map(str, code)],
                          capture_output=True, text=True)
    return [done.stderr] if done.returncode != 0 else []


def late_pointers(root):
    """The first sight of a shape reads the user's folders: Appearance has each shown at the start."""
    loaded = (root / "src/controls/Appearance.cpp").read_text("utf-8")
    for path in sorted((root / "src").rglob("*.cpp")):
        for shape in re.findall(r"Qt::\w+Cursor\b", path.read_text("utf-8")):
            if shape not in loaded:
                yield f"{path}: {shape} is not loaded at the start"


def main():
    root = Path(sys.argv[1])
    files = list(sources(root))
    code = [path for path in files if path.suffix in CODE]
    found = []
    for path in files:
        if path.suffix in TAGGED or path.name == "CMakeLists.txt" or is_script(path):
            if path.read_text("utf-8").count("SPDX-") < 2:
                found.append(f"{path}: SPDX lines are missing")
    for path in code:
        lines = path.read_text("utf-8").count("\n")
        if path.parts[len(root.parts)] == "src" and lines > LONGEST:
            found.append(f"{path}: {lines} lines")
        if includes_another_first(path):
            found.append(f"{path}: its own header is not the first that it includes")
    found += late_pointers(root)
    found += ill_formatted(code)
    if not code:
        found.append(f"{root}: no sources found")
    print("\n".join(found) if found else f"{len(files)} files are in order")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
