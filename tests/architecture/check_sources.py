#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Small rules that hold for every source file.

usage: check_sources.py ROOT
Two SPDX lines a file, no source over 400 lines, clang-format has nothing to change. Prints what is
wrong; status 1 if anything is.
"""

import subprocess
import sys
from pathlib import Path

CODE = {".h", ".cpp"}
TAGGED = CODE | {".py", ".cmake"}
FOLDERS = ["src", "tests", "benchmarks", "fuzz", "cmake", "packaging", ".ci"]
LONGEST = 400


def sources(root):
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            is_data = {"corpus", "regressions", "data", "__pycache__"} & set(path.parts)
            if path.is_file() and not is_data:
                yield path


def is_script(path):
    return path.suffix == "" and path.read_bytes().startswith(b"#!")


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
    formatted = subprocess.run(["clang-format", "--dry-run", "-Werror", *map(str, code)],
                               capture_output=True, text=True)
    if formatted.returncode != 0:
        found.append(formatted.stderr)
    if not code:
        found.append(f"{root}: no sources found")
    print("\n".join(found) if found else f"{len(files)} files are in order")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
