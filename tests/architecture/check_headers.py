# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""usage: check_headers.py BUILD-FOLDER

Each header under src/ compiles alone, with the flags of its folder and without warnings; a build in
pieces would not tell. A header that did is not compiled again before it changes, or a header of ours
that it includes, or the flags, or the compiler.
"""

import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from compiled import SOURCES, Memory, folders, key, version

COMPILER = os.environ.get("CXX", "c++")
# What a build in pieces leaves out of the warnings.
FLAGS = ["-Werror", "-Wshadow", "-O0", "-g0", "-fsyntax-only", "-x", "c++", "-"]
# Dependencies are not written.
UNUSED = {"-MD", "-MT", "-MF"}


def headers(build):
    """Each header with the flags and the directory of its folder's sources."""
    found = {}
    for (folder, command, directory), _ in folders(build).items():
        for path in folder.glob("*.h"):
            found.setdefault(path, (command, directory))
    return found


def without_dependencies(command):
    kept, skip = [], False
    for word in command:
        if not skip and word not in UNUSED:
            kept.append(word)
        skip = word in {"-MT", "-MF"}
    return [word for word in kept if word not in UNUSED]


def compile_alone(path, command, directory, memory, known_as):
    """What the compiler says against a header."""
    if memory.knows(known_as):
        return ""
    done = subprocess.run([COMPILER, *command, *FLAGS], cwd=directory,
                          input=f'#include "{path}"\n', capture_output=True, text=True,
                          check=False)
    if done.returncode == 0:
        memory.keep(known_as)
        return ""
    return f"{path} does not compile alone:\n{done.stderr}"


def main():
    build = Path(sys.argv[1]).resolve()
    rules = version(COMPILER), Path(__file__).read_text()
    memory = Memory("headers")
    found = headers(build)
    lost = set(SOURCES.rglob("*.h")) - set(found)
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        work = [pool.submit(compile_alone, path, plain, directory, memory,
                            key(plain, build, [path], *rules))
                for path, (command, directory) in sorted(found.items())
                for plain in [without_dependencies(command)]]
        faults = [fault for each in work if (fault := each.result())]
    faults += [f"{path}: no source of its folder is compiled in {build}" for path in sorted(lost)]
    print("\n".join(faults) if faults else f"{len(found)} headers compile alone")
    sys.exit(1 if faults or not found else 0)


if __name__ == "__main__":
    main()
