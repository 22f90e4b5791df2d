#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The check of the pages finds what it is there to find."""

import tempfile
import unittest
from pathlib import Path

from check_docs import check


class DocsCheck(unittest.TestCase):
    """Two pages, a picture and a source, with nothing wrong."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        self.write("README.md", "# Top\n[a](docs/a.md) ![picture](docs/p.png)\n")
        self.write("docs/a.md", "# What `it` is, and why\n[here](#what-it-is-and-why) `src/wav/FrameStream.h`, `FrameStream::read`\n")
        self.write("docs/p.png", "")
        self.write("src/wav/FrameStream.h", "class FrameStream { int read(); };\n")

    def write(self, path, text):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text(text, encoding="utf-8")

    def say(self, text):
        """A line more on the page."""
        with open(self.root / "docs/a.md", "a", encoding="utf-8") as page:
            page.write(text + "\n")

    def compare(self, end):
        """A page of one row with this end, which another page leads to."""
        self.write("benchmarks/b", "")
        self.write("docs/comparisons.md", "# C\n## One\n[m](measured/m.md)\n"
                   f"| | time | beside | again with |\n|---|---|---|---|\n| cp | 44 ms | {end} |\n")
        self.write("docs/a.md", "# What `it` is, and why\n[c](comparisons.md)\n")

    def assert_fault(self, part):
        faults, _ = check(self.root)
        self.assertEqual(len(faults), 1, faults)
        self.assertIn(part, faults[0])

    def test_nothing_wrong(self):
        self.say("[up](../README.md#top) [far](https://example.org/x)")
        self.say("`tests/NAME.py` `src/wav/FrameStream`\n```\n[none](none.md)\n```\n`[none](none.md)`")
        self.assertEqual(check(self.root), ([], 2))

    def test_a_link_without_a_target(self):
        self.say("[b](b.md)")
        self.assert_fault("docs/a.md: b.md is not there")

    def test_a_picture_that_is_not_there(self):
        self.say("![b](pictures/b.png)")
        self.assert_fault("pictures/b.png is not there")

    def test_an_anchor_that_is_no_heading(self):
        self.say("[up](../README.md#bottom)")
        self.assert_fault("../README.md#bottom is no heading")

    def test_a_path_that_is_not_there(self):
        self.say("`src/wav/Gone.h`")
        self.assert_fault("`src/wav/Gone.h` is not there")

    def test_a_class_that_is_not_there(self):
        self.say("`FrameRiver`")
        self.assert_fault("`FrameRiver` is no name")

    def test_an_operation_that_is_not_there(self):
        self.write("src/wav/Other.h", "void write();\n")
        self.say("`FrameStream::write`")
        self.assert_fault("`FrameStream::write` is no name")

    def test_a_page_that_nothing_leads_to(self):
        self.write("docs/b.md", "# Alone\n")
        self.assert_fault("docs/b.md: nothing leads there")

    def test_a_figure_that_nobody_measured(self):
        self.write("docs/measured/m.md", "# M\n| cp | 44 | 1.41 |\n")
        self.compare("1.41 | `benchmarks/b`")
        self.assertEqual(check(self.root), ([], 4))
        self.compare("1.4 | `benchmarks/b`")
        self.assert_fault("1.4 does not stand in measured/m.md")

    def test_a_figure_that_nobody_can_repeat(self):
        self.write("docs/measured/m.md", "# M\n| cp | 44 | 1.41 |\n")
        for end in ("1.41", "1.41 | `docs/a.md`", "`benchmarks/b` | 1.41"):
            self.compare(end)
            self.assert_fault("no program of benchmarks/ ends the row | cp | 44 ms |")
        self.compare("1.41 | `benchmarks/gone`")
        self.assert_fault("`benchmarks/gone` is not there")


if __name__ == "__main__":
    unittest.main()
