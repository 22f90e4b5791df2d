# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Recordings whose sound lies past 2 GiB: what is measured and exported of it."""

import os
import struct
import unittest

from mixdeck import FIRST_SAMPLE, Case, bext, chunk, fmt, pack24, stored24, unpack24, wave

FRAME = 6
RATE = 48000
HALF, QUARTER = 1 << 22, 1 << 21  # as stored


class LongCase(Case):
    def sparse(self, name, head, size):
        """A file that begins with `head`, a whole file but for its last chunk's payload, and has
        `size` bytes more that take no room."""
        path = self.file(name, head[:4] + struct.pack("<I", len(head) + size - 8) + head[8:])
        os.truncate(path, len(head) + size)
        return path

    def put(self, path, offset, samples):
        with open(path, "r+b") as file:
            file.seek(offset)
            file.write(pack24(samples))


class PastTwoGiBTest(LongCase):
    """A take with its loud frames past the reach of a signed 32-bit offset."""

    frames = (1 << 31) // FRAME + 60 * RATE

    def setUp(self):
        super().setUp()
        head = wave(fmt(), bext(), chunk("data", b"", self.frames * FRAME))
        self.take = self.sparse("long.wav", head, self.frames * FRAME)
        self.loud = self.frames - 30 * RATE
        self.offset = len(head) + self.loud * FRAME
        self.assertGreater(self.offset, 1 << 31)
        self.put(self.take, self.offset, [HALF, QUARTER, 0, 0, -HALF, -QUARTER])

    def levels(self, first, last):
        """Of the stretch between two frames."""
        shown = self.expect(0, "levels", "--meter-rule", "--angle", 120, "--from", (first - 0.5) / RATE, "--to",
                            (last + 0.5) / RATE, self.take, err="").stdout
        return [float(word) for word in shown.split()]

    def test_it_is_measured(self):
        self.assertEqual(self.levels(self.loud - 5, self.loud + 5), [0.75, 0.25])
        self.assertEqual(self.levels(self.loud - 50, self.loud - 40), [0.0, 0.0])

    def test_it_is_read_and_exported(self):
        target = self.path("out.wav")
        self.expect(0, "export", "--angle", 120, "--output", target, self.take, err="")
        self.assertEqual(os.path.getsize(target), FIRST_SAMPLE + self.frames * FRAME)
        with open(target, "rb") as file:
            head = file.read(FIRST_SAMPLE)
            file.seek(FIRST_SAMPLE + (self.loud - 1) * FRAME)
            found = unpack24(file.read(5 * FRAME))
        self.assertEqual(struct.unpack_from("<I", head, 4)[0],
                         FIRST_SAMPLE + self.frames * FRAME - 8)
        self.assertEqual(struct.unpack_from("<I", head, 744)[0], self.frames * FRAME)
        wanted = [0, 0, 0.75, 0.25, 0, 0, -0.75, -0.25, 0, 0]
        self.assertEqual(found, [stored24(sample) for sample in wanted])

    def test_data_that_begins_there_too(self):
        filler = (1 << 31) + 1000
        head = wave(fmt(), bext(), chunk("JUNK", b"", filler))
        samples = pack24([HALF, QUARTER])
        path = self.sparse("late.wav", head, filler)
        with open(path, "r+b") as file:
            file.seek(4)
            file.write(struct.pack("<I", len(head) + filler + 8 + len(samples) - 8))
            file.seek(len(head) + filler)
            file.write(chunk("data", samples))
        self.expect(0, "export", "--angle", 0, "--output", self.path("out.wav"), path, err="")
        with open(self.path("out.wav"), "rb") as file:
            self.assertEqual(unpack24(file.read()[FIRST_SAMPLE:]), 2 * [stored24(0.5)])


if __name__ == "__main__":
    unittest.main()
