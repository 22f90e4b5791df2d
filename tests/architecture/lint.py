# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""usage: lint.py BUILD-FOLDER

clang-tidy with the rules of .clang-tidy over every source under src/ that the build compiles.

Nearly all of its time goes into the headers of libraries, so many sources are looked at in one
piece, with the flags of all, where their names allow it. A piece without findings is not looked at
again before something changes that it consists of: its sources, the headers of ours that they
include, the rules, the compiler's flags or clang-tidy itself.
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

from compiled import ROOT, SOURCES, Memory, folders, key, united, version

sys.path.insert(0, str(ROOT / "cmake"))
from group_sources import group  # noqa: E402

# In one piece: more would be quicker from nothing, and all looked at again whenever one of them changes.
MOST_SOURCES = 80
FINDING = re.compile(r"(error|warning): .*\[")


def pieces(build):
    """Lists of sources that share no name; those that use Qt, and the others."""
    of_qt, others = set(), set()
    for (_, flags, _), sources in folders(build).items():
        (of_qt if any("-DQT_" in flag for flag in flags) else others).update(sources)
    for ordered in sorted(of_qt), sorted(others - of_qt):
        numbers = group([path.read_text("utf-8") for path in ordered], MOST_SOURCES)
        for number in sorted(set(numbers)):
            yield [path for path, own in zip(ordered, numbers) if own == number]


def tidy(command, directory, sources):
    """The status and words of clang-tidy over the sources in one piece."""
    with tempfile.TemporaryDirectory(prefix="mixdeck-lint-") as folder:
        piece = Path(folder, "piece.cpp")
        piece.write_text("".join(f'#include "{source}"  // NOLINT\n' for source in sources))
        Path(folder, "compile_commands.json").write_text(json.dumps([{
            "directory": str(directory), "file": str(piece),
            "command": shlex.join(["c++", *command, "-w", "-c", str(piece)])}]))
        done = subprocess.run(
            ["clang-tidy", "-quiet", f"--config-file={ROOT}/.clang-tidy",
             f"--header-filter={re.escape(str(SOURCES))}/", "-p", folder, str(piece)],
            capture_output=True, text=True, check=False)
    return done.returncode, done.stdout + done.stderr


def lint(command, directory, sources, memory, known_as):
    """The findings in the sources."""
    if memory.knows(known_as):
        return []
    status, words = tidy(command, directory, sources)
    found = [line for line in words.splitlines() if FINDING.search(line)]
    if not found and not status:
        memory.keep(known_as)
    return found or ([words] if status else [])


def main():
    build = Path(sys.argv[1]).resolve()
    rules = version("clang-tidy"), (ROOT / ".clang-tidy").read_text(), Path(__file__).read_text()
    memory = Memory("lint")
    command = united(sorted(flags for _, flags, _ in folders(build)))
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        work = [pool.submit(lint, command, build, sources, memory,
                            key(command, build, sources, *rules))
                for sources in pieces(build)]
        findings = sorted({line for each in work for line in each.result()})
    if not work:
        findings = [f"no source of {SOURCES} is compiled in {build}"]
    print("\n".join(findings[:100]))
    sys.exit(1 if findings else 0)


if __name__ == "__main__":
    main()
