# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""usage: check_headers.py BUILD-FOLDER

Each header under src/ compiles alone, with the flags of the build; a build in pieces would not tell. A header that did is not compiled again before it changes, or a header of ours
that it includes, or the flags, or the compiler.

Nearly all of the time would go into the headers of libraries. What a header of ours includes anyway,
itself or through another of ours, may come before it: what it forgot to include is still missing. So
the headers of libraries are compiled beforehand, and ours in chains of which each includes the last.
"""

import os
import re
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from compiled import SOURCES, Memory, closure, folders, key, united, version

# It reads what was compiled beforehand several times as fast as GCC does. The warnings are GCC's task.
COMPILER = "clang++"
FLAGS = ["-w", "-O0", "-g0"]
LIBRARY = re.compile(r"^\s*#\s*include\s*<([^>]+)>", re.MULTILINE)
# What it takes to compile one of them, roughly, in milliseconds. The others are quick, or rare.
COSTS = {"CLI/CLI.hpp": 2000, "nlohmann/json.hpp": 1000, "QWidget": 1200, "QLabel": 1300,
         "QAccessibleWidget": 1300, "QPushButton": 1300, "QDialog": 1300, "QListView": 1400,
         "QAbstractButton": 1300, "QToolButton": 1300, "QPainter": 900, "QObject": 800,
         "QTimer": 800, "QString": 700, "QRectF": 100, "QIcon": 600, "QImage": 600,
         "filesystem": 400, "functional": 300, "condition_variable": 250, "mutex": 200,
         "thread": 200, "memory": 250, "string": 200, "chrono": 200, "optional": 50, "vector": 50}
MOST_PREPARED = 20


def plain(command):
    """The command without what only a build needs: dependencies are not written."""
    kept, skip = [], False
    for word in command:
        if not skip and word not in {"-MD", "-MT", "-MF"}:
            kept.append(word)
        skip = word in {"-MT", "-MF"}
    return kept


def libraries(path, build):
    """The costly headers of libraries that a header of ours includes, itself or through others."""
    texts = (each.read_text("utf-8") for each in closure([path], [SOURCES, build / "generated"]))
    return frozenset(name for text in texts for name in LIBRARY.findall(text) if name in COSTS)


def cost(names):
    """Qt's headers include each other, so only the dearest of them counts in full."""
    of_qt = [COSTS[name] for name in names if name.startswith("Q")]
    return sum(COSTS[name] for name in names if not name.startswith("Q")) + max(of_qt, default=0)


def worth_preparing(sets):
    """A few sets of headers which, compiled beforehand, save the most."""
    within = {some & others: [] for some in set(sets) for others in set(sets)}
    for names, members in within.items():
        members += [i for i, own in enumerate(sets) if names <= own]
    saved, chosen = [0] * len(sets), []

    def gain(names):
        return sum(max(0, cost(names) - saved[i]) for i in within[names]) - 2 * cost(names)

    while within and len(chosen) < MOST_PREPARED:
        best = max(within, key=lambda names: (gain(names), sorted(names)))
        if gain(best) <= 0:
            break
        chosen.append(best)
        for i in within[best]:
            saved[i] = max(saved[i], cost(best))
    return chosen


class Compiler:
    """Compiles headers alone, behind those of libraries that were compiled beforehand."""

    def __init__(self, command, directory, folder):
        self._command = [COMPILER, *command, *FLAGS]
        self._directory = directory
        self._folder = Path(folder)
        self._prepared = {}

    def run(self, *words, text=None):
        return subprocess.run([*self._command, *words], cwd=self._directory, input=text,
                              capture_output=True, text=True, check=False)

    def prepare(self, names):
        path = self._folder / f"{len(self._prepared)}.h"
        self._prepared[names] = path
        path.write_text("".join(f"#include <{name}>\n" for name in sorted(names)))
        return lambda: self.run("-x", "c++-header", path, "-o", f"{path}.gch").check_returncode()

    def prepared(self, own):
        """The dearest of the prepared sets that a header includes anyway."""
        fitting = [names for names in self._prepared if names <= own]
        return max(fitting, key=lambda names: (cost(names), sorted(names)), default=None)

    def compile_chain(self, chain, names):
        """What the compiler says against the headers."""
        before = ["-include", self._prepared[names]] if names else []
        text = "".join(f'#include "{path}"\n' for path in chain)
        done = self.run(*before, "-fsyntax-only", "-x", "c++", "-", text=text)
        return done.stderr if done.returncode else ""


def chains(headers, build):
    """Lists in which each header includes the one before it; all headers are in one of them."""
    within = {path: set(closure([path], [SOURCES, build / "generated"])) for path in headers}
    left = sorted(headers, key=lambda path: (len(within[path]), path))
    while left:
        chain = [left.pop()]
        for path in reversed(left[:]):
            if path in within[chain[0]]:
                chain.insert(0, path)
                left.remove(path)
        yield chain


def compile_all(headers, build, command, directory):
    """Pairs of a list of headers and what the compiler says against them."""
    owns = {path: libraries(path, build) for path in headers}
    with tempfile.TemporaryDirectory(prefix="mixdeck-headers-") as folder, \
            ThreadPoolExecutor(os.cpu_count()) as pool:
        compiler = Compiler(command, directory, folder)
        preparing = [compiler.prepare(names) for names in worth_preparing(list(owns.values()))]
        for work in [pool.submit(prepare) for prepare in preparing]:
            work.result()
        alike = {}
        for path, own in owns.items():
            alike.setdefault(compiler.prepared(own), []).append(path)
        work = [(chain, pool.submit(compiler.compile_chain, chain, names))
                for names, members in alike.items() for chain in chains(members, build)]
        return [(chain, each.result()) for chain, each in work]


def main():
    build = Path(sys.argv[1]).resolve()
    alike = folders(build)
    command = plain(united(sorted(flags for _, flags, _ in alike)))
    found = sorted({path for folder, _, _ in alike for path in folder.glob("*.h")})
    memory, rules = Memory("headers"), (version(COMPILER), Path(__file__).read_text())
    keys = {path: key(command, build, [path], *rules) for path in found}
    unknown = [path for path in found if not memory.knows(keys[path])]
    faults = []
    for chain, said in compile_all(unknown, build, command, build):
        if said:
            faults.append(f"{chain[-1]} does not compile alone:\n{said}")
        for path in [] if said else chain:
            memory.keep(keys[path])
    lost = set(SOURCES.rglob("*.h")) - set(found)
    faults += [f"{path}: no source of its folder is compiled in {build}" for path in sorted(lost)]
    print("\n".join(faults) if faults else f"{len(found)} headers compile alone")
    sys.exit(1 if faults or not found else 0)


if __name__ == "__main__":
    main()
