# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What a build compiles under src/ and how, and a memory for what was found good about it."""

import hashlib
import json
import os
import re
import shlex
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SOURCES = ROOT / "src"
TWO_WORDS = {"-isystem", "-MT", "-MF"}
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


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


def entries(build):
    """How the targets of src/ are compiled; tests compile some of its sources once more."""
    for entry in json.loads((build / "compile_commands.json").read_text("utf-8")):
        words = shlex.split(entry["command"])
        if words[words.index("-o") + 1].startswith("src/"):
            yield entry


def folders(build):
    """Sources by folder, flags and directory."""
    alike = {}
    for entry in entries(build):
        for path in compiled(entry):
            if SOURCES in path.parents:
                key = (path.parent, flags(entry), entry["directory"])
                alike.setdefault(key, set()).add(path)
    return alike


def united(commands):
    """All flags of all commands, each once, in their order."""
    kept = {}
    for command in commands:
        words = iter(command)
        for word in words:
            kept[(word, next(words)) if word in TWO_WORDS else (word,)] = None
    return [word for words in kept for word in words]


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


def key(command, build, sources, *rules):
    """Is the same for the same contents, wherever they stand. `rules`: what else the verdict hangs on."""
    digest = hashlib.sha256()
    words = " ".join(command).replace(str(build), "BUILD").replace(str(ROOT), "ROOT")
    for text in (words, *rules):
        digest.update(text.encode() + b"\0")
    for path in closure(sources, [SOURCES, build / "generated"]):
        name = str(path).replace(str(build), "BUILD").replace(str(ROOT), "ROOT")
        digest.update(name.encode() + b"\0" + path.read_bytes() + b"\0")
    return digest.hexdigest()


def version(program):
    return subprocess.run([program, "--version"], capture_output=True, text=True, check=True).stdout


class Memory:
    """Keys of what was found good, in ~/.cache/mixdeck."""

    def __init__(self, name):
        cache = Path(os.environ.get("XDG_CACHE_HOME") or Path.home() / ".cache")
        self._folder = cache / "mixdeck" / name
        self._folder.mkdir(parents=True, exist_ok=True)

    def knows(self, key):
        return (self._folder / key).exists()

    def keep(self, key):
        (self._folder / key).touch()
