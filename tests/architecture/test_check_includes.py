#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The include check finds what it is there to find."""

import tempfile
import unittest
from pathlib import Path

from check_includes import check
from dependencies import Tree, circles, parse_library


def library(name, links="", private_links=""):
    return f"mixdeck_library(\n  {name}\n  SOURCES A.cpp\n  LINKS {links}\n  PRIVATE_LINKS {private_links})\n"


def include(*names):
    return "".join(f'#include "{name}"\n' if name.endswith(".h") else f"#include <{name}>\n"
                   for name in names)


class IncludeCheck(unittest.TestCase):
    """Two folders, `high` on `low`, with nothing wrong."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.src = Path(folder.name)
        self.write("low/CMakeLists.txt", library("low"))
        self.write("low/Low.h", "")
        self.write("high/CMakeLists.txt", library("high", "mixdeck::low"))
        self.write("high/High.h", include("low/Low.h"))

    def write(self, name, text):
        path = self.src / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, "utf-8")

    def expect_none(self):
        self.assertEqual([], check(self.src))

    def expect(self, *words):
        found = check(self.src)
        self.assertTrue(any(all(word in fault for word in words) for fault in found), found)


class Arrows(IncludeCheck):
    def test_with_the_arrows(self):
        self.write("low/Low.cpp", include("low/Low.h", "vector"))
        self.expect_none()

    def test_a_private_link_is_an_arrow_too(self):
        self.write("high/CMakeLists.txt", library("high", "", "mixdeck::low"))
        self.expect_none()

    def test_against_the_arrows(self):
        self.write("low/Low.cpp", '  #  include "high/High.h"\n')
        self.expect("low/Low.cpp", "high/High.h", "not among its links")

    def test_a_link_that_is_gone_takes_its_arrow_along(self):
        self.write("high/CMakeLists.txt", library("high"))
        self.expect("high/High.h", "not among its links")

    def test_a_link_in_a_comment_is_none(self):
        self.write("high/CMakeLists.txt", library("high", "# mixdeck::low"))
        self.expect("high/High.h", "not among its links")

    def test_what_stands_on_a_folder_does_not_stand_on_what_is_below_it(self):
        self.write("top/CMakeLists.txt", library("top", "mixdeck::high"))
        self.write("top/Top.h", include("low/Low.h"))
        self.expect("top/Top.h", "low/Low.h")

    def test_a_program_has_links_of_its_own(self):
        program = "target_link_libraries(program PRIVATE mixdeck::high)\n"
        self.write("low/CMakeLists.txt", library("low") + program)
        self.write("low/main.cpp", include("high/High.h"))
        self.assertFalse([fault for fault in check(self.src) if "links" in fault])
        self.write("low/Low.cpp", include("high/High.h"))
        self.expect("low/Low.cpp", "not among its links")

    def test_header_without_its_folder(self):
        self.write("low/Low.cpp", include("Low.h"))
        self.expect("Low.h is not named by its folder")

    def test_a_folder_without_a_library(self):
        self.write("stray/Stray.h", "")
        self.expect("stray/Stray.h", "no mixdeck_library")

    def test_no_sources(self):
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(1, len(check(folder)))


class Places(IncludeCheck):
    """A folder inside of another."""

    def setUp(self):
        super().setUp()
        self.write("low/real/CMakeLists.txt", library("low_real", "mixdeck::low"))
        self.write("low/real/Real.h", include("low/Low.h"))

    def test_is_a_place_of_its_own(self):
        self.expect_none()
        self.write("high/High.h", include("low/real/Real.h"))
        self.expect("high may not include low/real/Real.h")

    def test_is_not_a_part_of_its_parent(self):
        self.write("low/Other.h", include("low/real/Real.h"))
        self.expect("low may not include low/real/Real.h")

    def test_without_a_library_makes_circles_too(self):
        self.write("low/part/Part.h", include("low/Low.h"))
        self.expect_none()
        self.write("low/Low.cpp", include("low/part/Part.h"))
        self.expect("circle of places: low low/part")


class Qt(IncludeCheck):
    def test_where_it_is_not_linked(self):
        self.write("low/Low.cpp", include("QString"))
        self.expect("low/Low.cpp", "links no Qt")
        self.write("low/Low.cpp", include("QtCore/QFile"))
        self.expect("low/Low.cpp", "links no Qt")

    def test_where_it_is_linked(self):
        self.write("low/CMakeLists.txt", library("low", "Qt6::Core"))
        self.write("high/High.cpp", include("QTimer"))
        self.expect_none()

    def test_what_another_keeps_to_itself_is_not_linked(self):
        self.write("low/CMakeLists.txt", library("low", "", "Qt6::Core"))
        self.write("low/Low.cpp", include("QTimer"))
        self.expect_none()
        self.write("high/High.cpp", include("QTimer"))
        self.expect("high/High.cpp", "links no Qt")

    def test_where_it_never_belongs(self):
        self.write("dsp/CMakeLists.txt", library("dsp", "Qt6::Core"))
        self.expect("dsp does without Qt")

    def test_where_a_folder_inside_of_one_without_has_it(self):
        self.write("cli/CMakeLists.txt", library("cli", "mixdeck::low"))
        self.write("cli/live/CMakeLists.txt", library("live", "mixdeck::cli Qt6::Core"))
        self.expect_none()
        self.write("low/CMakeLists.txt", library("low", "Qt6::Core"))
        self.expect("cli does without Qt")


class StandIns(IncludeCheck):
    def setUp(self):
        super().setUp()
        for name in ("memory", "null", "simulator"):
            self.write(f"low/{name}/CMakeLists.txt", library(f"low_{name}", "mixdeck::low"))
            self.write(f"low/{name}/Fake.h", "")
        links = "mixdeck::low mixdeck::low_memory mixdeck::low_null mixdeck::low_simulator"
        self.write("high/CMakeLists.txt", library("high", links))

    def test_are_not_for_what_does_the_work(self):
        for name in ("memory", "null", "simulator"):
            self.write("high/High.cpp", include(f"low/{name}/Fake.h"))
            self.expect("high/High.cpp", f"low/{name}/Fake.h only stands in")

    def test_are_for_the_entry_of_a_program(self):
        self.write("high/main.cpp", include("low/memory/Fake.h"))
        self.expect_none()

    def test_are_for_one_another(self):
        self.write("low/simulator/CMakeLists.txt", library("low_simulator", "mixdeck::low_memory"))
        self.write("low/simulator/Fake.h", include("low/memory/Fake.h"))
        self.expect_none()


class Circles(IncludeCheck):
    def test_of_files(self):
        self.write("low/Low.h", include("low/Other.h"))
        self.write("low/Other.h", include("low/Low.h"))
        self.expect("circle of files: low/Low low/Other")

    def test_of_classes_whose_sources_close_it(self):
        self.write("low/Low.cpp", include("low/Low.h", "low/Other.h"))
        self.write("low/Other.h", include("low/Low.h"))
        self.expect("circle of files: low/Low low/Other")

    def test_by_way_of_a_third(self):
        self.write("low/Low.h", include("low/B.h"))
        self.write("low/B.h", include("low/C.h"))
        self.write("low/C.h", include("low/Low.h"))
        self.expect("circle of files: low/B low/C low/Low")

    def test_a_source_and_its_own_header_are_none(self):
        self.write("low/Low.cpp", include("low/Low.h"))
        self.expect_none()

    def test_of_folders_without_one_of_files(self):
        self.write("low/CMakeLists.txt", library("low", "mixdeck::high"))
        self.write("low/Other.h", include("high/Else.h"))
        self.write("high/Else.h", "")
        self.expect("circle of folders: high low")
        self.expect("circle of libraries: high low")

    def test_two_apart_are_told_apart(self):
        self.assertEqual([("a", "b"), ("c",)],
                         circles({"a": {"b"}, "b": {"a"}, "c": {"c"}, "d": {"a", "c"}}))


class Reading(unittest.TestCase):
    def test_a_library(self):
        found = parse_library(library("name", "mixdeck::a Qt6::Core", "mixdeck::b"))
        self.assertEqual("name", found.name)
        self.assertEqual(["mixdeck::a", "Qt6::Core"], found.links)
        self.assertEqual(["mixdeck::b"], found.private_links)

    def test_no_library(self):
        self.assertIsNone(parse_library("add_subdirectory(low)\n"))

    def test_the_real_sources(self):
        tree = Tree(Path(__file__).resolve().parents[2] / "src")
        self.assertIn("midi/alsa", tree.libraries)
        self.assertIn("dsp", tree.links("wav"))
        self.assertIn("wav/WaveImage", tree.unit_graph()["wav/WaveFileReader"])


if __name__ == "__main__":
    unittest.main()
