# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What depends on what under src/, read from the CMake lists and from the includes.

A place is a folder with a library of its own, or a folder inside of one. A unit is a class's header
and source taken together, or a file that has no such companion: `midi/MIDIManager`.
"""

import re
from dataclasses import dataclass, field
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^">]+)[">]', re.MULTILINE)
LIBRARY = re.compile(r"^mixdeck_library\(([^)]*)\)", re.MULTILINE)
PROGRAM = re.compile(r"^target_link_libraries\(([^)]*)\)", re.MULTILINE)
SECTIONS = ("SOURCES", "HEADERS", "LINKS", "PRIVATE_LINKS")
SUFFIXES = {".h", ".cpp", ".in"}


@dataclass
class Library:
    """What a mixdeck_library() says."""
    name: str
    links: list = field(default_factory=list)
    private_links: list = field(default_factory=list)

    @property
    def all_links(self):
        return self.links + self.private_links


def parse_library(text):
    """The library of a CMakeLists.txt, or None."""
    found = LIBRARY.search(re.sub(r"#.*", "", text))
    if not found:
        return None
    words, said, section = found[1].split(), {name: [] for name in SECTIONS}, None
    for word in words[1:]:
        if word in SECTIONS:
            section = word
        elif section:
            said[section].append(word)
    return Library(words[0], said["LINKS"], said["PRIVATE_LINKS"])


def parse_program_links(text):
    """What the programs of a CMakeLists.txt link beside its library."""
    return [word for said in PROGRAM.findall(re.sub(r"#.*", "", text)) for word in said.split()]


class Tree:
    """The sources under one folder."""

    def __init__(self, src):
        self.src = Path(src)
        self.libraries = {}
        self.program_links = {}
        for path in sorted(self.src.rglob("CMakeLists.txt")):
            library = parse_library(path.read_text("utf-8"))
            place = path.parent.relative_to(self.src).as_posix()
            if library:
                self.libraries[place] = library
            self.program_links[place] = parse_program_links(path.read_text("utf-8"))
        self.places_by_target = {f"mixdeck::{library.name}": place
                                 for place, library in self.libraries.items()}
        self.files = {path.relative_to(self.src).as_posix(): INCLUDE.findall(path.read_text("utf-8"))
                      for path in sorted(self.src.rglob("*")) if path.suffix in SUFFIXES}
        self.folders = {name.rpartition("/")[0] for name in self.files}

    def library_of(self, place):
        """The folder whose library a place is compiled into, or None."""
        while place and place not in self.libraries:
            place = place.rpartition("/")[0]
        return place or None

    def links(self, place, private=True):
        """The places that the library of a place links."""
        library = self.libraries[self.library_of(place)]
        named = library.all_links if private else library.links
        return {self.places_by_target[name] for name in named if name in self.places_by_target}

    def entry_links(self, place):
        """The places that a main.cpp may include from beside those of its library."""
        named = self.program_links.get(place, [])
        return {self.places_by_target[name] for name in named if name in self.places_by_target}

    def reaches_qt(self, place):
        """Whether the library of a place links Qt, itself or by what it stands on."""
        own = self.libraries[self.library_of(place)].all_links
        return any(name.startswith("Qt6::") for name in own) or any(
            self.hands_on_qt(other, {place}) for other in self.links(place))

    def hands_on_qt(self, place, seen):
        if place in seen:
            return False
        if any(name.startswith("Qt6::") for name in self.libraries[place].links):
            return True
        return any(self.hands_on_qt(other, seen | {place})
                   for other in self.links(place, private=False))

    def own_includes(self, name):
        """The files of ours that a file includes; generated headers by their folder's name."""
        return [other for quote, other in self.files[name] if quote == '"']

    def unit_graph(self):
        graph = {unit(name): set() for name in self.files}
        for name in self.files:
            graph[unit(name)] |= {unit(other) for other in self.own_includes(name)
                                  if other in self.files and unit(other) != unit(name)}
        return graph

    def place_graph(self):
        graph = {place: set() for place in self.folders}
        for name in self.files:
            here = place_of(name)
            graph[here] |= {place_of(other) for other in self.own_includes(name)
                            if other in self.files} - {here}
        return graph

    def link_graph(self):
        return {place: self.links(place) for place in self.libraries}

    def top_graph(self):
        """As the place graph, each folder of src/ with all that is inside of it."""
        graph = {}
        for place, others in self.place_graph().items():
            here = place.split("/")[0]
            graph.setdefault(here, set()).update({other.split("/")[0] for other in others} - {here})
        return graph


def place_of(name):
    return name.rpartition("/")[0]


def unit(name):
    return re.sub(r"(\.h)?\.(h|cpp|in)$", "", name)


def circles(graph):
    """The sets of nodes that reach one another, each sorted; a node alone is none."""
    def reached(start):
        seen, waiting = set(), [start]
        while waiting:
            for other in graph.get(waiting.pop(), ()):
                if other not in seen:
                    seen.add(other)
                    waiting.append(other)
        return seen

    far = {node: reached(node) for node in graph}
    found = {tuple(sorted(other for other in far[node] if node in far.get(other, ())))
             for node in graph if node in far[node]}
    return sorted(found)
