#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The picture that measure writes: that it is there, and that what is drawn is what is measured."""

import collections
import json
import math
import random
import re
import shutil
import struct
import subprocess
import unittest
from xml.etree import ElementTree

from mixdeck import (CLI, FIGURES, Case, bext, chunk, decoded, fmt, pack24, recording, single, tone,
                     wave)

SVG = "{http://www.w3.org/2000/svg}"


class Panel(collections.namedtuple("Panel", "top bottom most least")):
    """From where to where it is drawn, and the values at both ends."""

    def y(self, value):
        part = (self.most - value) / (self.most - self.least)
        return self.top + (self.bottom - self.top) * min(1, max(0, part))


class Picture:
    """A picture as it is drawn: its curves and outlines, and the values that its scales state."""

    def __init__(self, svg):
        self.root = ElementTree.fromstring(svg)
        self.texts = [(float(one.get("x")), float(one.get("y")), one)
                      for one in self.root.iter(SVG + "text")]
        self.paths = [(one.get("d"), one) for one in self.root.iter(SVG + "path")]

    def label(self, words):
        return next(one for one in self.texts if one[2].text == words)

    @staticmethod
    def points(path):
        return [(float(x), float(y)) for x, y in re.findall(r"[ML](\S+?) ([^MLz]+)", path)]

    def curve(self, name):
        """The points of the curve that has the colour of this name."""
        colour = self.label(name)[2].get("fill")
        path, = [path for path, one in self.paths
                 if (one.get("fill"), one.get("stroke")) == ("none", colour)]
        return path, self.points(path)

    def outline(self, name):
        """Of the channel whose panel has this name beside it: the points of its greatest values,
        and those of its least, which are drawn half a unit lower, so that silence is seen."""
        panel = self.panel(self.label(name)[1] - 4)
        path, = [path for path, one in self.paths if path.endswith("z")
                 and panel.top <= self.points(path)[0][1] <= panel.bottom]
        points = self.points(path)
        greatest, least = points[:len(points) // 2], points[:len(points) // 2 - 1:-1]
        return greatest, [(x, y - 0.5) for x, y in least]

    def panel(self, y):
        """The panel around this place, as the first and the last line of its scale tell."""
        top, bottom = next((top, top + height) for top, height in self.panels()
                           if top <= y <= top + height)
        lines = sorted(line for line in self.lines() if top <= line <= bottom)
        first = self.value_at(lines[0])
        unit = (self.value_at(lines[-1]) - first) / (lines[-1] - lines[0])
        return Panel(top, bottom, *(first + (end - lines[0]) * unit for end in (top, bottom)))

    def lines(self):
        """Where the lines of all scales are."""
        found = [re.fullmatch(r"M\S+ (\S+)h\S+", path) for path, _ in self.paths]
        return [float(line[1]) for line in found if line]

    def panels(self):
        return [(float(one.get("y")), float(one.get("height")))
                for one in self.root.iter(SVG + "rect") if one.get("x")]

    def value_at(self, y):
        word, = [one for _, place, one in self.texts
                 if one.get("text-anchor") == "end" and abs(place - 4 - y) < 0.06]
        return float(word.text)

    def width_numbers(self):
        """Where the numbers of widths stand under the curves."""
        return {int(one.text): x for x, _, one in self.texts if one.get("text-anchor") == "middle"}

    def width_x(self, angle):
        numbers = self.width_numbers()
        return numbers[0] + (numbers[150] - numbers[0]) * angle / 150


class PlotTest(Case):
    def plot(self, *words):
        self.expect(0, "measure", "--plot", "p.svg", *words, "a.wav", err="")
        return ElementTree.fromstring(self.read("p.svg"))

    def test_a_picture_without_a_display(self):
        samples = tone(2, -20)
        for i in range(96000, 96400):
            samples[i] = 8000000
        self.file("a.wav", recording(samples))
        environment = {"PATH": "/usr/bin:/bin"}
        self.expect(0, "measure", "--plot", "p.svg", "a.wav", env=environment)
        root = ElementTree.fromstring(self.read("p.svg"))
        self.assertEqual(root.tag, SVG + "svg")
        words = [text.text for text in root.iter(SVG + "text")]
        for word in ("a.wav", "loudness, LUFS", "true peak, dBTP", "correlation", "width", "150"):
            self.assertIn(word, words)
        self.assertIn("2.0 s, 48000 Hz, raw M/S, width 120, gain +0 dB", words)

    def test_a_png_without_a_display(self):
        samples = tone(2, -20)
        for i in range(96000, 96400):
            samples[i] = 8000000
        self.file("a.wav", recording(samples))
        self.expect(0, "measure", "--plot", "p.png", "a.wav", env={"PATH": "/usr/bin:/bin"}, err="")
        png = self.read("p.png")
        self.assertEqual(png[:8], b"\x89PNG\r\n\x1a\n")
        self.assertEqual(struct.unpack(">II", png[16:24]), (2200, 1440))
        colours = self.colours("p.png")
        for colour in ("17181B", "202226", "7FB4E0", "E8B04B", "FFFFFF"):
            self.assertIn(tuple(bytes.fromhex(colour)), colours)
        title = self.colours("p.png", "-crop", "400x60+140+20")
        self.assertGreater(len(title), 10, "letters with smooth edges")

    def colours(self, name, *words):
        data = subprocess.run(["convert", self.path(name), *words, "-depth", "8", "rgb:-"],
                              check=True, capture_output=True).stdout
        return set(zip(data[0::3], data[1::3], data[2::3]))

    def test_a_png_without_the_program_that_draws_it(self):
        self.file("a.wav", recording(tone(0.2, -20)))
        shutil.copy(CLI, self.path("alone"))
        result = subprocess.run([self.path("alone"), "measure", "--plot", "p.png", "a.wav"],
                                capture_output=True, text=True, cwd=self.folder, check=False)
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn("p.png: Fail to save. ", result.stderr)
        self.assertIn("mixdeck-plot-png: No such file or directory", result.stderr)
        self.assertNotIn("p.png", self.names())

    def test_marks_stand_where_it_clips(self):
        samples = tone(2, -20)
        samples[2 * 60000] = 8000000
        samples[2 * 60000 + 1] = 8000000
        self.file("a.wav", recording(samples))
        marks = [path for path in self.plot().iter(SVG + "path") if path.get("class") == "clipped"]
        places = re.findall(r"M(\S+) ", marks[0].get("d"))
        self.assertEqual(places, [f"{70 + 60000 // 96:.1f}"])
        self.assertEqual([path for path in self.plot("--angle", "0").iter(SVG + "path")
                          if path.get("class") == "clipped"], [])

    def test_a_picture_that_cannot_be_written(self):
        self.file("a.wav", recording(tone(0.2, -20)))
        result = self.expect(1, "measure", "--plot", "no/p.svg", "a.wav", out="")
        self.assertEqual(result.stderr, "mixdeck-cli: no/p.svg: Fail to save. No such file or directory; make "
                                        "its folder first\n")
        result = self.expect(1, "measure", "--plot", "a.wav/p.svg", "a.wav", out="")
        self.assertEqual(result.stderr, "mixdeck-cli: a.wav/p.svg: Fail to save. Not a directory; name another "
                                        "place with --plot\n")

    def test_wrong_usage(self):
        self.file("a.wav", recording(tone(0.2, -20)))
        self.expect(2, "measure", "--plot", "p.svg", "a.wav", "a.wav", out="")
        self.expect(2, "measure", "--plot", "p.gif", "a.wav", out="")
        self.assertEqual(self.names(), ["a.wav"])


class DrawnTest(Case):
    """Whether what is drawn is what is measured."""

    CURVES = {"loudness, LUFS": "integrated_lufs", "true peak, dBTP": "true_peak_dbtp",
              "correlation": "correlation"}

    def picture(self, *words):
        self.expect(0, "measure", "--plot", "p.svg", *words, "a.wav", err="")
        return Picture(self.read("p.svg").decode())

    @staticmethod
    def varied():
        """A take whose figures all differ: peaks between the samples, a loud part and a soft one, a
        side of another colour that the middle comes back in."""
        samples = []
        for i in range(4 * 48000):
            level = 900000 if i < 96000 else 400000
            turn = math.pi * (i / 2 + 1 / 4)
            samples += [int(level * math.sin(turn)),
                        int(level * (2 * math.sin(turn / 9 + 1) - 0.3 * math.sin(turn)))]
        return samples

    def test_the_curves_are_the_figures(self):
        self.file("a.wav", recording(self.varied()))
        rows = json.loads(self.expect(0, "measure", "--json", "--angles", "all", "--gain", "4",
                                      "a.wav").stdout)["widths"]
        picture = self.picture("--gain", "4")
        for name, figure in self.CURVES.items():
            path, points = picture.curve(name)
            self.assertEqual((len(points), path.count("M")), (151, 1), name)
            panel = picture.panel(points[0][1])
            for row, (x, drawn) in zip(rows, points):
                told = (name, row["angle"])
                self.assertAlmostEqual(x, picture.width_x(row["angle"]), delta=0.06, msg=told)
                self.assertAlmostEqual(drawn, panel.y(row[figure]), delta=0.15, msg=told)
            for other in set(FIGURES[2:]) - {figure}:
                apart = max(abs(panel.y(row[other]) - y) for row, (_, y) in zip(rows, points))
                self.assertGreater(apart, 2, f"{name} would be told from {other}")

    def test_the_scales_are_even(self):
        self.file("a.wav", recording(tone(0.5, -20)))
        picture = self.picture("--angle", "77")
        self.assertEqual(len(picture.lines()), 3 + 3 + 6 + 3)
        for y in picture.lines():
            wanted = picture.panel(y).y(picture.value_at(y))
            self.assertAlmostEqual(y, wanted, delta=0.15)
        numbers = picture.width_numbers()
        self.assertEqual(list(numbers), [0, 30, 60, 90, 120, 150])
        for angle, x in numbers.items():
            self.assertAlmostEqual(x, picture.width_x(angle), delta=0.06)
        dashed, = [path for path, one in picture.paths if one.get("stroke-dasharray")]
        x = float(re.match(r"M(\S+) ", dashed)[1])
        self.assertAlmostEqual(x, picture.width_x(77), delta=0.06)

    def pieces(self):
        """Blocks of 100 ms, each with another greatest and least of Mid and of Side."""
        dice = random.Random(11)
        for loud in (0.05, 0.3, 0.7, 1.0, 0.4, 0.15, 0.9):
            edges = [int(4000000 * loud * dice.uniform(0.1, 1)) for _ in range(4)]
            yield [sample for _ in range(800)
                   for sample in (dice.randint(-edges[0], edges[1]),
                                  dice.randint(-edges[2], edges[3]))]

    def test_a_column_is_the_extremes_of_its_frames(self):
        pieces = list(self.pieces())
        data = b"".join(map(pack24, pieces)) * 143
        self.file("a.wav", wave(fmt(rate=8000), bext(), chunk("data", data[:1000 * 4800])))
        # At 120 they are kept as such, and only rounded; 78 lies between two widths where they are.
        for angle, near in ((120, 1.009), (78, None)):
            picture = self.picture("--angle", angle, "--gain", "2")
            wanted = [decoded([single(value / 8388608) for value in piece], angle, 2)
                      for piece in pieces]
            for i, column in enumerate(self.columns(picture)):
                self.check_column(column, wanted[i % 7], (angle, i), near,
                                  max(map(abs, pieces[i % 7][1::2])) / 8388608 * 10 ** (2 / 20))

    def columns(self, picture):
        """The values drawn in each column: greatest and least of Left and of Right."""
        edges = []
        for name in ("L", "R"):
            for points in picture.outline(name):
                self.assertEqual([x for x, _ in points], [70 + i for i in range(1000)])
                panel = picture.panel(points[0][1])
                self.assertEqual((panel.most, panel.least), (1, -1))
                height = panel.bottom - panel.top
                edges.append([1 - 2 * (y - panel.top) / height for _, y in points])
        return zip(*edges)

    def check_column(self, drawn, pairs, told, near, side):
        """Never low; the peak at most half a decibel high, and any edge at most a seventh of the
        peak of Side, or `near` to the truth. The places are rounded to a tenth."""
        left, right = pairs[0::2], pairs[1::2]
        true = (max(left), min(left), max(right), min(right))
        rounding = 0.06 * 2 / 120
        for edge, value, outward in zip(drawn, true, (1, -1, 1, -1)):
            beyond = (edge - value) * outward
            self.assertGreaterEqual(beyond, -rounding, told)
            allowed = abs(value) * (near - 1) if near else side / 7
            self.assertLessEqual(beyond, allowed + rounding, told)
        peaks = [max(map(abs, edges)) for edges in (drawn, true)]
        self.assertLessEqual(peaks[0], peaks[1] * 10 ** (0.5 / 20) + rounding, told)


if __name__ == "__main__":
    unittest.main()
