#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Holds the includes under src/ against the LINKS lines of the CMake lists.

usage: check_includes.py SRC
- A folder may include its own headers and those of the folders that its library links; a folder
  inside of another is a place of its own.
- No Qt header where the library links no Qt, and no Qt at all for the folders that work without (a
  folder inside of such a one may have it: `cli/live`).
- What only stands in for a real thing is included where a program is put together, by its like, and
  by tests; never by what does the work.
- No circles: of files (a class's header and source are one), of places, of folders, of libraries.
Prints what is wrong; status 1 if anything is.
"""

import re
import sys

from dependencies import Tree, circles, place_of

WITHOUT_QT = {"dsp", "wav", "export", "analysis", "transfer", "takes", "manual", "cli"}
STAND_INS = {"simulator", "memory", "null"}
# Where a program is put together: every main.cpp, these files, and the simulated recorder's program.
COMPOSERS = {"app/DeviceLink.h", "cli/live/DeviceCommand.cpp"}
COMPOSING_FOLDERS = {"recorder-sim"}


def is_qt(name):
    return re.match(r"Q[A-Z]|Qt[A-Z]", name.split("/")[0]) is not None


def is_stand_in(place):
    return place.rpartition("/")[2] in STAND_INS


def composes(name):
    return (name.endswith("/main.cpp") or name in COMPOSERS
            or name.split("/")[0] in COMPOSING_FOLDERS)


def may_include(tree, name, there):
    """Whether a file may include from the place `there`."""
    here = place_of(name)
    if here == there or there in tree.links(here):
        return True
    if name.endswith("/main.cpp") and there in tree.entry_links(here):
        return True
    # A folder that is compiled into its parent's library.
    return tree.library_of(here) == tree.library_of(there)


def include_faults(tree, name, quote, other):
    here, there = place_of(name), place_of(other)
    if quote == "<":
        if is_qt(other) and not tree.reaches_qt(here):
            yield f"includes {other}, but its library links no Qt"
    elif tree.library_of(there) is None:
        yield f"{other} is not named by its folder"
    elif not may_include(tree, name, there):
        yield f"{here} may not include {other}: {there} is not among its links"
    elif is_stand_in(there) and not is_stand_in(here) and not composes(name):
        yield f"{other} only stands in for the real thing"


def file_faults(tree):
    for name, includes in tree.files.items():
        if tree.library_of(place_of(name)) is None:
            yield f"{name}: its folder has no mixdeck_library()"
            continue
        for quote, other in includes:
            for fault in include_faults(tree, name, quote, other):
                yield f"{name}: {fault}"


def qt_faults(tree):
    for place in tree.libraries:
        if place in WITHOUT_QT and tree.reaches_qt(place):
            yield f"{place} does without Qt, but links it"


def circle_faults(tree):
    kinds = {"files": tree.unit_graph(), "places": tree.place_graph(),
             "folders": tree.top_graph(), "libraries": tree.link_graph()}
    for kind, graph in kinds.items():
        for circle in circles(graph):
            yield f"a circle of {kind}: {' '.join(circle)}"


def check(src):
    tree = Tree(src)
    if not tree.files:
        return [f"{src}: no sources found"]
    return [*file_faults(tree), *qt_faults(tree), *circle_faults(tree)]


def main():
    found = check(sys.argv[1])
    print("\n".join(found) if found else "the sources keep to the arrows, without circles")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
