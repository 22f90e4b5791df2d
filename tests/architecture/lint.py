# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""usage: lint.py BUILD-FOLDER

clang-tidy with the rules of .clang-tidy over every source under src/ that the build compiles.

Nearly all of its time goes into the headers of libraries, so the sources of a folder are looked at
in one piece. Those that use a name for something else than the ones before them are a piece of their
own.
"""

import json
import os
import re
import shlex
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

SOURCES = Path.cwd() / "src"
ERROR = re.compile(r"^(/[^:]*):\d+:\d+: error:", re.MULTILINE)
FINDING = re.compile(r"(error|warning): .*\[")


def flags(entry):
    """What the compiler is told, but for the source and the output."""
    words = shlex.split(entry["command"])
    start = 2 if "ccache" in words[0] else 1
    kept, skip = [], False
    for word in words[start:]:
        if skip or word == "-c" or word == entry["file"]:
            skip = False
        elif word == "-o":
            skip = True
        else:
            kept.append(word)
    return tuple(kept)


def folders(build):
    """The sources by folder and flags."""
    pieces = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        path = Path(entry["file"])
        if SOURCES in path.parents:
            pieces.setdefault((path.parent, flags(entry), entry["directory"]), set()).add(path)
    return pieces


def run(command, directory, sources, *program):
    """The status and words of a program over the sources in one piece."""
    with tempfile.TemporaryDirectory(prefix="mixdeck-lint-") as folder:
        piece = Path(folder, "piece.cpp")
        piece.write_text("".join(f'#include "{source}"  // NOLINT\n' for source in sources))
        Path(folder, "compile_commands.json").write_text(json.dumps([{
            "directory": directory, "file": str(piece),
            "command": shlex.join(["c++", *command, "-w", "-c", str(piece)])}]))
        done = subprocess.run([*program, "-p", folder, str(piece)], capture_output=True, text=True,
                              check=False)
    return done.returncode, done.stdout + done.stderr


def clashing(command, directory, sources):
    """Of sources that each compile alone those that do not compile after the others."""
    status, words = run(command, directory, sources, "clang-check")
    if status == 0 or len(sources) == 1:
        return []
    named = set(ERROR.findall(words))
    found = [source for source in sources if str(source) in named]
    return found if 0 < len(found) < len(sources) else sources[len(sources) // 2:]


def lint(command, directory, sources):
    """The findings in the sources."""
    apart = clashing(command, directory, sources)
    if apart:
        rest = [source for source in sources if source not in apart]
        return lint(command, directory, rest) + lint(command, directory, apart)
    status, words = run(command, directory, sources, "clang-tidy", "-quiet",
                        f"--config-file={SOURCES.parent}/.clang-tidy",
                        f"--header-filter={re.escape(str(SOURCES))}/")
    found = [line for line in words.splitlines() if FINDING.search(line)]
    return found or ([words] if status else [])


def main():
    pieces = folders(Path(sys.argv[1]))
    if not pieces:
        sys.exit(f"no source of {SOURCES} is compiled in {sys.argv[1]}")
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        work = [pool.submit(lint, command, directory, sorted(sources))
                for (_, command, directory), sources in pieces.items()]
        findings = sorted({line for each in work for line in each.result()})
    print("\n".join(findings[:100]))
    sys.exit(1 if findings else 0)


if __name__ == "__main__":
    main()
