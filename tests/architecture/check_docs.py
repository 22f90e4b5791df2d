#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Whether the pages lead where they say.

usage: check_docs.py ROOT
Every link of a page (*.md) has a target here, every anchor a heading, every picture a file; every page
of docs/ is reached from the README; every path and every class that a page names in backticks is one
of the sources; every figure in a table of docs/comparisons.md stands on the measured page that its section
leads to, and every row there ends with the program of benchmarks/ that repeats it. Nothing is looked up on the network. Prints what is wrong; status 1 if anything is.
"""

import re
import sys
from pathlib import Path

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")
FENCE = re.compile(r"^```.*?^```", re.MULTILINE | re.DOTALL)
CODE = re.compile(r"`([^`\n]+)`")
HEADING = re.compile(r"^#+ +(.*)$", re.MULTILINE)
# A path from the top; one with a word like TARGET or NAME stands for many.
PATH = re.compile(r"(?:src|tests|docs|packaging|benchmarks|cmake|translations|resources|fuzz)/[\w./@+-]*[\w/]")
# `RecorderLink`, `Export::whyNot`: a class has a second capital in it.
NAME = re.compile(r"(?:[A-Z][a-z0-9]+[A-Z]\w*|[A-Z]{2,}[a-z]\w*)(?:::\w+)*|[A-Z][a-z]\w*(?:::\w+)+")
MANY = re.compile(r"[A-Z]{4,}(?:[@./]|$)")
NO_NAMES = {"PascalCase"}
SOURCES = (".h", ".cpp", ".py", ".cmake", ".txt", ".desktop")
APART = {"build", "corpus", "regressions", ".git", "__pycache__"}


def files(root):
    folders = [root]
    while folders:
        for path in sorted(folders.pop().iterdir()):
            if path.name in APART or path.is_symlink():
                continue
            if path.is_dir():
                folders.append(path)
            else:
                yield path


def slug(heading):
    """The anchor that a heading gets where the pages are shown."""
    text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading.strip().lower())
    return re.sub(r"[^\w\- ]", "", text).replace(" ", "-")


class Page:
    def __init__(self, path):
        text = FENCE.sub("", path.read_text("utf-8"))
        self.path = path
        self.anchors = {slug(heading) for heading in HEADING.findall(text)}
        self.links = LINK.findall(CODE.sub("", text))
        self.codes = CODE.findall(text)


def link_faults(page, pages):
    for link in page.links:
        if re.match(r"[a-z]+:", link):
            continue
        name, _, anchor = link.partition("#")
        target = (page.path.parent / name).resolve() if name else page.path
        if not target.exists():
            yield f"{link} is not there"
        elif anchor and anchor not in pages[target].anchors:
            yield f"{link} is no heading"


def is_there(path):
    """A file, a folder, or a class by the path of its files."""
    return path.exists() or path.with_suffix(".h").exists()


class Words:
    """What the sources name; a class's own header has its operations."""

    def __init__(self, sources):
        found = {path: set(re.findall(r"\w+", path.read_text("utf-8", "ignore"))) for path in sources}
        self.headers = {path.stem: words for path, words in found.items() if path.suffix == ".h"}
        self.all = NO_NAMES.union(*found.values())

    def has(self, name):
        holder, *members = name.split("::")
        return holder in self.all and self.headers.get(holder, self.all).issuperset(members)


def name_faults(page, root, words):
    for code in page.codes:
        if PATH.fullmatch(code) and not MANY.search(code) and not is_there(root / code):
            yield f"`{code}` is not there"
        if NAME.fullmatch(code) and not words.has(code):
            yield f"`{code}` is no name of the sources"


def unreached(root, pages):
    """Pages of docs/ that no way leads to from the README."""
    seen, todo = set(), [root / "README.md"]
    while todo:
        page = todo.pop()
        if page in seen:
            continue
        seen.add(page)
        for link in pages[page].links:
            target = (page.parent / link.partition("#")[0]).resolve()
            is_folder = target.is_dir() and not link.startswith("#")
            todo += sorted(target.glob("*.md")) if is_folder else [target] if target in pages else []
    return [page for page in pages if root / "docs" in page.parents and page not in seen]


def figure_faults(root):
    """Figures of comparisons that nobody measured, or that were measured anew since."""
    page = root / "docs/comparisons.md"
    for section in page.read_text("utf-8").split("\n## ")[1:] if page.exists() else []:
        measured = re.findall(r"\((measured/\w+\.md)\)", section)
        known = " ".join((page.parent / name).read_text("utf-8") for name in measured)
        rows = [line for line in section.splitlines() if line.startswith("|")]
        for figure in re.findall(r"(?<![\w.])\d+(?:[.,]\d+)*", " ".join(rows)):
            if not re.search(rf"(?<![\d.]){re.escape(figure)}(?![\d.]*\d)", known):
                yield f"docs/comparisons.md: {figure} does not stand in {', '.join(measured)}"


def repeat_faults(root):
    """Rows of comparisons that do not say how to have them again."""
    page = root / "docs/comparisons.md"
    text = page.read_text("utf-8") if page.exists() else ""
    for table in re.findall(r"(?:^\|.*\n?)+", text, re.MULTILINE):
        for row in table.splitlines()[2:]:  # behind the heading and its line
            if not re.search(r"\| *`benchmarks/[\w-]+`[^|]*\| *$", row):
                yield f"docs/comparisons.md: no program of benchmarks/ ends the row {row}"


def check(root):
    found = list(files(root))
    pages = {path: Page(path) for path in found if path.suffix == ".md"}
    words = Words(path for path in found if path.suffix in SOURCES)
    faults = []
    for path, page in sorted(pages.items()):
        faults += [f"{path.relative_to(root)}: {fault}"
                   for fault in (*link_faults(page, pages), *name_faults(page, root, words))]
    faults += [f"{path.relative_to(root)}: nothing leads there from README.md"
               for path in sorted(unreached(root, pages))]
    faults += [*figure_faults(root), *repeat_faults(root)]
    return faults, len(pages)


def main():
    faults, count = check(Path(sys.argv[1]).resolve())
    if count < 2:
        faults.append(f"only {count} pages were found")
    print("\n".join(faults) if faults else f"{count} pages are in order")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
