# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""usage: lint.py BUILD-FOLDER

clang-tidy with the rules of .clang-tidy over every source under src/ that the build compiles.

Nearly all of its time goes into the headers of libraries, so the sources of a folder are looked at
in as few pieces as their names allow. A piece without findings is not looked at again before
something changes that it consists of: its sources, the headers of ours that they include, the rules,
the compiler's flags or clang-tidy itself. What was found good is kept in ~/.cache/mixdeck/lint.
"""

import hashlib
import json
import os
import re
import shlex
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SOURCES = ROOT / "src"
KEPT = Path(os.environ.get("XDG_CACHE_HOME") or Path.home() / ".cache", "mixdeck", "lint")
FINDING = re.compile(r"(error|warning): .*\[")
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)

sys.path.insert(0, str(ROOT / "cmake"))
from group_sources import group  # noqa: E402


def flags(entry):
    """What the compiler is told, but for the source and the output."""
    words = shlex.split(entry["command"])
    compiler = next(i for i, word in enumerate(words) if word.endswith("++"))
    kept, skip = [], False
    for word in words[compiler + 1:]:
        if skip or word == "-c" or word == entry["file"]:
            skip = False
        elif word == "-o":
            skip = True
        else:
            kept.append(word)
    return tuple(kept)


def compiled(entry):
    """The sources that an entry compiles: the one that it names, or those of a piece."""
    path = Path(entry["file"])
    if path.suffix != ".cxx":
        return [path]
    return [Path(name) for name in INCLUDE.findall(path.read_text("utf-8"))]


def pieces(build):
    """Lists of sources that are compiled alike, with their flags."""
    alike = {}
    for entry in json.loads((build / "compile_commands.json").read_text("utf-8")):
        for path in compiled(entry):
            if SOURCES in path.parents:
                key = (path.parent, flags(entry), entry["directory"])
                alike.setdefault(key, set()).add(path)
    for (_, command, directory), sources in alike.items():
        ordered = sorted(sources)
        numbers = group([path.read_text("utf-8") for path in ordered])
        for number in sorted(set(numbers)):
            members = [path for path, own in zip(ordered, numbers) if own == number]
            yield command, directory, members


def closure(sources, folders):
    """The sources and every header of ours that they include, directly or not."""
    seen, waiting = set(), list(sources)
    while waiting:
        path = waiting.pop()
        if path in seen:
            continue
        seen.add(path)
        for name in INCLUDE.findall(path.read_text("utf-8")):
            waiting += [folder / name for folder in folders if (folder / name).is_file()][:1]
    return sorted(seen)


def key(command, build, sources, version):
    """Is the same for the same contents, wherever they stand."""
    digest = hashlib.sha256()
    words = " ".join(command).replace(str(build), "BUILD").replace(str(ROOT), "ROOT")
    for text in (version, words, (ROOT / ".clang-tidy").read_text("utf-8"),
                 Path(__file__).read_text("utf-8")):
        digest.update(text.encode() + b"\0")
    for path in closure(sources, [SOURCES, build / "generated"]):
        name = str(path).replace(str(build), "BUILD").replace(str(ROOT), "ROOT")
        digest.update(name.encode() + b"\0" + path.read_bytes() + b"\0")
    return digest.hexdigest()


def tidy(command, directory, sources):
    """The status and words of clang-tidy over the sources in one piece."""
    with tempfile.TemporaryDirectory(prefix="mixdeck-lint-") as folder:
        piece = Path(folder, "piece.cpp")
        piece.write_text("".join(f'#include "{source}"  // NOLINT\n' for source in sources))
        Path(folder, "compile_commands.json").write_text(json.dumps([{
            "directory": directory, "file": str(piece),
            "command": shlex.join(["c++", *command, "-w", "-c", str(piece)])}]))
        done = subprocess.run(
            ["clang-tidy", "-quiet", f"--config-file={ROOT}/.clang-tidy",
             f"--header-filter={re.escape(str(SOURCES))}/", "-p", folder, str(piece)],
            capture_output=True, text=True, check=False)
    return done.returncode, done.stdout + done.stderr


def lint(command, directory, sources, kept):
    """The findings in the sources."""
    if kept.exists():
        return []
    status, words = tidy(command, directory, sources)
    found = [line for line in words.splitlines() if FINDING.search(line)]
    if not found and not status:
        kept.touch()
    return found or ([words] if status else [])


def main():
    build = Path(sys.argv[1]).resolve()
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, text=True,
                             check=True).stdout
    KEPT.mkdir(parents=True, exist_ok=True)
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        work = [pool.submit(lint, command, directory, sources,
                            KEPT / key(command, build, sources, version))
                for command, directory, sources in pieces(build)]
        findings = sorted({line for each in work for line in each.result()})
    if not work:
        findings = [f"no source of {SOURCES} is compiled in {build}"]
    print("\n".join(findings[:100]))
    sys.exit(1 if findings else 0)


if __name__ == "__main__":
    main()
