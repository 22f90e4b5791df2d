# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""usage: check_headers.py BUILD-FOLDER

Each header under src/ compiles alone, with the flags of the build; a build in pieces would not tell.
A header that did is not compiled again before it changes, or a header of ours that it includes, or
the flags, or the compiler.

Nearly all of the time would go into the headers of libraries, so they are compiled beforehand, and
ours behind them, in chains. What comes before a header of ours hides nothing that it forgot: it
includes all of those libraries' headers itself, or through others, and names nothing of ours that it
does not include.
"""

import os
import re
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from compiled import ROOT, SOURCES, Memory, closure, folders, key, united, version

sys.path.insert(0, str(ROOT / "cmake"))
from group_sources import names as declared  # noqa: E402

# It reads what was compiled beforehand several times as fast as GCC does. The warnings are GCC's task.
COMPILER = "clang++"
FLAGS = ["-w", "-O0", "-g0"]
LIBRARY = re.compile(r"^\s*#\s*include\s*<([^>]+)>", re.MULTILINE)
MOST_PREPARED = 6


def plain(command):
    """The command without what only a build needs: dependencies are not written."""
    kept, skip = [], False
    for word in command:
        if not skip and word not in {"-MD", "-MT", "-MF"}:
            kept.append(word)
        skip = word in {"-MT", "-MF"}
    return kept


class Header:
    """One of ours: what it includes, itself or through others, and what it names."""

    def __init__(self, path, build):
        self.path = path
        self.closure = frozenset(closure([path], [SOURCES, build / "generated"]))
        self.libraries = frozenset(name for each in self.closure
                                   for name in LIBRARY.findall(each.read_text("utf-8")))
        self._names = frozenset(re.findall(r"\w+", path.read_text("utf-8")))

    def leans_on(self, others, declarations):
        """Whether it names what one of the others declares, and does not include that."""
        return any(not self._names.isdisjoint(declarations[path]) for path in others - self.closure)


class Chain:
    """Headers of ours that are compiled in one go, and all that the last of them finds there."""

    def __init__(self, declarations):
        self._declarations = declarations
        self._seen = set()
        self.libraries = frozenset()
        self.paths = []

    def takes(self, header):
        return self.libraries <= header.libraries and not header.leans_on(self._seen, self._declarations)

    def append(self, header):
        self._seen |= header.closure
        self.libraries = header.libraries
        self.paths.append(header.path)


class Library:
    """What the headers of libraries consist of: sets of their names, and what those include."""

    def __init__(self, files):
        self._files = files
        self._costs = {}

    def _united(self, names):
        return frozenset().union(*(self._files[name] for name in names))

    def completed(self, names):
        """With all that is included along with them."""
        united = self._united(names)
        return frozenset(name for name, own in self._files.items() if own and own <= united)

    def cost(self, names):
        """What it takes to compile them, roughly: their bytes."""
        if names not in self._costs:
            self._costs[names] = sum(os.path.getsize(path) for path in self._united(names))
        return self._costs[names]


def worth_preparing(sets, cost):
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

    def files(self, name):
        """What a header of a library consists of: the files that it includes, and itself."""
        made = self.run("-M", "-x", "c++", "-", text=f"#include <{name}>\n")
        return frozenset(made.stdout.replace("\\\n", " ").split()[1:])

    def prepare(self, names):
        path = self._folder / f"{len(self._prepared)}.h"
        self._prepared[names] = path
        path.write_text("".join(f"#include <{name}>\n" for name in sorted(names)))
        return lambda: self.run("-x", "c++-header", path, "-o", f"{path}.gch").check_returncode()

    def prepared(self, own, cost):
        """The dearest of the prepared sets that a header includes anyway."""
        fitting = [names for names in self._prepared if names <= own]
        return max(fitting, key=lambda names: (cost(names), sorted(names)), default=None)

    def compile_chain(self, chain, names):
        """What the compiler says against the headers."""
        before = ["-include", self._prepared[names]] if names else []
        text = "".join(f'#include "{path}"\n' for path in chain)
        done = self.run(*before, "-fsyntax-only", "-x", "c++", "-", text=text)
        return done.stderr if done.returncode else ""


def chains(headers, cost, declarations):
    """Lists of paths; all headers are in one of them."""
    made = []
    for header in sorted(headers, key=lambda each: (cost(each.libraries), len(each.closure), each.path)):
        fitting = [chain for chain in made if chain.takes(header)]
        if not fitting:
            fitting = [Chain(declarations)]
            made += fitting
        max(fitting, key=lambda chain: cost(chain.libraries)).append(header)
    return [chain.paths for chain in made]


def compile_all(paths, build, command):
    """Pairs of a list of headers and what the compiler says against them."""
    headers = [Header(path, build) for path in paths]
    declarations = {path: declared(path.read_text("utf-8"))
                    for path in frozenset().union(*(header.closure for header in headers))}
    with tempfile.TemporaryDirectory(prefix="mixdeck-headers-") as folder, \
            ThreadPoolExecutor(os.cpu_count()) as pool:
        compiler = Compiler(command, build, folder)
        names = sorted(frozenset().union(*(header.libraries for header in headers)))
        library = Library(dict(zip(names, pool.map(compiler.files, names))))
        for header in headers:
            header.libraries = library.completed(header.libraries)
        preparing = [compiler.prepare(names) for names in
                     worth_preparing([header.libraries for header in headers], library.cost)]
        for work in [pool.submit(prepare) for prepare in preparing]:
            work.result()
        alike = {}
        for header in headers:
            alike.setdefault(compiler.prepared(header.libraries, library.cost), []).append(header)
        work = [(chain, pool.submit(compiler.compile_chain, chain, names))
                for names, members in alike.items()
                for chain in chains(members, library.cost, declarations)]
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
    for chain, said in compile_all(unknown, build, command):
        if said:
            faults.append(f"does not compile alone:\n{said}")
        for path in [] if said else chain:
            memory.keep(keys[path])
    lost = set(SOURCES.rglob("*.h")) - set(found)
    faults += [f"{path}: no source of its folder is compiled in {build}" for path in sorted(lost)]
    print("\n".join(faults) if faults else f"{len(found)} headers compile alone")
    sys.exit(1 if faults or not found else 0)


if __name__ == "__main__":
    main()
